// The window of a Windows program, asked of a real one that is never shown.
#include "platform/NativeWindow.h"

#include <windows.h>

#include <gtest/gtest.h>

namespace orvane::platform {
namespace {

constexpr int kLeft = 30, kTop = 40, kWidth = 320, kHeight = 200;

HWND MakeWindow(DWORD style, HWND parent) {
    return CreateWindowExW(0, L"STATIC", L"", style, kLeft, kTop, kWidth, kHeight, parent, nullptr,
                           GetModuleHandleW(nullptr), nullptr);
}

TEST(SystemWindow, RectanglesAreThoseOfTheWindow) {
    const HWND handle = MakeWindow(WS_POPUP, nullptr);
    ASSERT_NE(handle, nullptr);
    const NativeWindow window = { handle };
    PixelRect client, outer;
    EXPECT_TRUE(ClientRectOf(window, client));
    EXPECT_TRUE(WindowRectOf(window, outer));
    EXPECT_EQ(client, (PixelRect{ 0, 0, kWidth, kHeight })) << "a borderless window is all client area";
    EXPECT_EQ(outer, (PixelRect{ kLeft, kTop, kLeft + kWidth, kTop + kHeight }));
    DestroyWindow(handle);

    PixelRect rect = { 1, 2, 3, 4 };
    EXPECT_FALSE(ClientRectOf(window, rect));
    EXPECT_FALSE(WindowRectOf(window, rect));
    EXPECT_EQ(rect, (PixelRect{ 1, 2, 3, 4 }));
}

TEST(SystemWindow, OnlyAMinimisedParentIsTold) {
    const HWND normal = MakeWindow(WS_POPUP, nullptr);
    const HWND minimised = MakeWindow(WS_POPUP | WS_MINIMIZE, nullptr);
    const HWND childOfNormal = MakeWindow(WS_CHILD, normal);
    const HWND childOfMinimised = MakeWindow(WS_CHILD, minimised);
    ASSERT_TRUE(childOfNormal && childOfMinimised);
    EXPECT_FALSE(IsParentIconic({ normal }));
    EXPECT_FALSE(IsParentIconic({ minimised })) << "it has no parent that could be";
    EXPECT_FALSE(IsParentIconic({ childOfNormal }));
    EXPECT_TRUE(IsParentIconic({ childOfMinimised }));
    DestroyWindow(normal);
    DestroyWindow(minimised);
}

} // namespace
} // namespace orvane::platform
