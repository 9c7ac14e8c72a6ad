// The real host's windows, seen and handled from outside as a user would: by their handles, the mouse, the
// keyboard and the pixels on the screen.
#pragma once

#include "system/plugins/PluginsTest.h"

#include <functional>
#include <string>
#include <vector>

namespace orvane::tests {

struct Pixel {
    std::uint8_t blue, green, red, unused;

    [[nodiscard]] int Brightness() const { return (red + green + blue) / 3; }
};

// A part of the screen as it stands.
struct Picture {
    int width = 0, height = 0;
    std::vector<Pixel> pixels;

    [[nodiscard]] Pixel At(int x, int y) const { return pixels[std::size_t(y * width + x)]; }

    // How many pixels of a part are brighter than `least`.
    [[nodiscard]] int CountBright(const RECT& part, int least) const;
};

[[nodiscard]] Picture TakePicture(const RECT& screenPart);

[[nodiscard]] std::vector<long> RectOf(HWND window);
[[nodiscard]] std::vector<long> RectInParent(HWND child);
[[nodiscard]] std::wstring TitleOf(HWND window);
[[nodiscard]] std::vector<long> ScreenRect();

// The mouse and the keyboard. Points are those of the screen.
void MoveMouse(int x, int y);
void PressMouse();
void ReleaseMouse();
void ClickAt(int x, int y);
void Type(std::initializer_list<WORD> keys); // all go down in their order, and up again in the opposite one

// A host with the example module and the recorder in plug-in folders, and a player on it. Its window is where it is made,
// hidden.
class WindowsTest : public PluginsTest {
protected:
    void SetUp() override;
    ~WindowsTest() override;

    virtual void StartProgram() { ServeHost(); }

    // 'SWND', and the window has come up with its strip painted.
    void Show();

    // The module by its display name, shown and activated.
    void SelectExample();

    // A pulse with a loud sound; its reply.
    std::string Pulse();

    // The top 30 rows of the window as the screen shows them; more of the latest picture the more often it is
    // asked for. Has the strip painted once more: a compositing system that is idle may show a picture only when
    // the next one is there.
    [[nodiscard]] Picture Strip() const;

    HWND mWindow = nullptr, mProxy = nullptr;
    std::uint32_t mStamp = 0;
};

constexpr std::u16string_view kExampleName = u"Orvane Oscilloscope";

} // namespace orvane::tests
