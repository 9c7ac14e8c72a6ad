// The host with the test visualizer as both of its built-ins, the example module beside them, and a player that has
// named them.
#pragma once

#include "system/HostUsage.h"
#include "system/windows/WindowsTest.h"

namespace orvane::tests {

constexpr std::u16string_view kFirstName = u"Particles", kSecondName = u"Classic";

class BuiltInsTest : public WindowsTest {
protected:
    void SetUp() override;
    void TearDown() override; // a failed test shows what the host said
    void StartProgram() override;

    // Sends NamingRequest(); the list that came back.
    player::PluginList NameThem();

    // 'SWSV'; behind it the visualizer runs in the window.
    void Select(std::u16string_view name);

    // A track with these texts, by 'STRT'.
    void StartTrack(std::u16string_view name, std::u16string_view artist, std::u16string_view album);

    // A key as the window gets it, or as the player sends it.
    void TypeInProxy(char16_t character);
    void SendKey(char16_t character);

    // Pulses until the picture is as it should be; false if it never gets there.
    template <typename Condition>
    [[nodiscard]] bool PulseUntil(Condition holds) {
        return WaitUntil([&] {
            Pulse();
            return holds();
        });
    }

    // The proxy window as the screen shows it.
    [[nodiscard]] Picture View() const;

    std::optional<HostUsage> mUsage;
};

// 'UPVM' with help texts and the two names.
[[nodiscard]] Bytes NamingRequest();

// 'SWSV' without a track.
[[nodiscard]] Bytes SelectRequest(std::u16string_view name);

} // namespace orvane::tests
