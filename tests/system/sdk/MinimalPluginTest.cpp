// The module that the plug-in guide begins with does what the guide says.
#include "support/PlayedHost.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <iterator>
#include <string>

namespace orvane::tests {
namespace {

TEST(MinimalPlugin, RegistersAndFillsItsWindowBrighterWithLouderSound) {
    PlayedHost host(ProgramFolder() / "minimal" / "minimal.dll");
    ASSERT_TRUE(host.HasEntry());
    ASSERT_EQ(host.Enter(), ORVANE_OK);
    ASSERT_EQ(host.mRegistered.size(), 1u);
    const OrvaneString name = host.mRegistered[0].name;
    EXPECT_EQ(std::u16string(name.units, name.units + name.count), u"My Visualizer");

    const HWND window = CreateWindowExW(WS_EX_TOPMOST | WS_EX_NOACTIVATE, L"STATIC", L"", WS_POPUP, 10, 10,
                                        60, 40, nullptr, nullptr, nullptr, nullptr);
    ShowWindow(window, SW_SHOWNOACTIVATE);
    UpdateWindow(window);
    EXPECT_EQ(host.Activate(window), ORVANE_OK);
    const auto blueAfter = [&](std::uint8_t sample) {
        OrvaneRenderData sound = {};
        sound.waveformChannels = 1;
        std::fill(std::begin(sound.waveform[0]), std::end(sound.waveform[0]), sample);
        host.Pulse(sound, 1);
        const HDC context = GetDC(window);
        const COLORREF pixel = GetPixel(context, 30, 20);
        ReleaseDC(window, context);
        return int(GetBValue(pixel));
    };
    EXPECT_EQ(blueAfter(ORVANE_SILENCE), 0);
    EXPECT_EQ(blueAfter(ORVANE_SILENCE - 50), 100);
    EXPECT_EQ(blueAfter(255), 255);
    host.Send(ORVANE_MSG_DEACTIVATE);
    DestroyWindow(window);
}

} // namespace
} // namespace orvane::tests
