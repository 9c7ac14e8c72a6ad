#include "system/windows/WindowsTest.h"

#include <cmath>
#include <numbers>

namespace orvane::tests {

namespace {

constexpr int kWholeScreen = 65536; // absolute mouse coordinates

void SendMouse(DWORD flags, long x = 0, long y = 0) {
    INPUT input = {};
    input.type = INPUT_MOUSE;
    input.mi.dx = x;
    input.mi.dy = y;
    input.mi.dwFlags = flags;
    SendInput(1, &input, sizeof(input));
}

// The absolute coordinate that means the pixel: that of its middle, so that no rounding leads to the next
// one.
long Absolute(int pixel, int metric) {
    return (2 * long(pixel) + 1) * kWholeScreen / (2 * long(GetSystemMetrics(metric)));
}

constexpr bool IsExtended(WORD key) {
    return key >= VK_PRIOR && key <= VK_DOWN;
}

void SendKey(WORD key, DWORD flags) {
    INPUT input = {};
    input.type = INPUT_KEYBOARD;
    input.ki.wVk = key;
    input.ki.wScan = WORD(MapVirtualKeyW(key, MAPVK_VK_TO_VSC));
    input.ki.dwFlags = flags | (IsExtended(key) ? KEYEVENTF_EXTENDEDKEY : 0);
    SendInput(1, &input, sizeof(input));
}

} // namespace

int Picture::CountBright(const RECT& part, int least) const {
    int count = 0;
    for (long y = std::max(part.top, 0L); y < std::min(part.bottom, long(height)); ++y)
        for (long x = std::max(part.left, 0L); x < std::min(part.right, long(width)); ++x)
            count += At(int(x), int(y)).Brightness() > least ? 1 : 0;
    return count;
}

Picture TakePicture(const RECT& screenPart) {
    Picture picture;
    picture.width = int(screenPart.right - screenPart.left);
    picture.height = int(screenPart.bottom - screenPart.top);
    picture.pixels.resize(std::size_t(picture.width) * std::size_t(picture.height));
    const HDC screen = GetDC(nullptr), memory = CreateCompatibleDC(screen);
    BITMAPINFO info = {};
    info.bmiHeader = {
        sizeof(BITMAPINFOHEADER), picture.width, -picture.height, 1, 32, BI_RGB, 0, 0, 0, 0, 0
    };
    void* bits = nullptr;
    const HBITMAP bitmap = CreateDIBSection(screen, &info, DIB_RGB_COLORS, &bits, nullptr, 0);
    const HGDIOBJ before = SelectObject(memory, bitmap);
    BitBlt(memory, 0, 0, picture.width, picture.height, screen, int(screenPart.left), int(screenPart.top),
           SRCCOPY);
    GdiFlush();
    std::memcpy(picture.pixels.data(), bits, picture.pixels.size() * sizeof(Pixel));
    SelectObject(memory, before);
    DeleteObject(bitmap);
    DeleteDC(memory);
    ReleaseDC(nullptr, screen);
    return picture;
}

std::vector<long> RectOf(HWND window) {
    RECT rect = {};
    EXPECT_TRUE(GetWindowRect(window, &rect));
    return { rect.left, rect.top, rect.right, rect.bottom };
}

std::vector<long> RectInParent(HWND child) {
    const auto own = RectOf(child), parents = RectOf(GetParent(child)); // the parent has no frame
    return { own[0] - parents[0], own[1] - parents[1], own[2] - parents[0], own[3] - parents[1] };
}

std::wstring TitleOf(HWND window) {
    wchar_t title[512] = {};
    GetWindowTextW(window, title, 512);
    return title;
}

std::vector<long> ScreenRect() {
    return { 0, 0, GetSystemMetrics(SM_CXSCREEN), GetSystemMetrics(SM_CYSCREEN) };
}

void MoveMouse(int x, int y) {
    SendMouse(MOUSEEVENTF_MOVE | MOUSEEVENTF_ABSOLUTE, Absolute(x, SM_CXSCREEN), Absolute(y, SM_CYSCREEN));
}

void PressMouse() {
    SendMouse(MOUSEEVENTF_LEFTDOWN);
}

void ReleaseMouse() {
    SendMouse(MOUSEEVENTF_LEFTUP);
}

void ClickAt(int x, int y) {
    MoveMouse(x, y);
    PressMouse();
    ReleaseMouse();
}

void Type(std::initializer_list<WORD> keys) {
    for (const WORD key : keys) SendKey(key, 0);
    for (auto key = std::rbegin(keys); key != std::rend(keys); ++key) SendKey(*key, KEYEVENTF_KEYUP);
}

void WindowsTest::SetUp() {
    ASSERT_NO_FATAL_FAILURE(PluginsTest::SetUp());
    std::filesystem::copy_file(ProgramBeside(L"example-plugin.dll"),
                               mFolders.Make(Folder::kBesideProgram) / "example-plugin.dll");
    mFolders.Lay(Folder::kRoamingData, "recorder");
    ASSERT_NO_FATAL_FAILURE(StartProgram());
    mWindow = FindWindowW(L"ORVANE OOPWIND", nullptr);
    ASSERT_NE(mWindow, nullptr);
    mProxy = FindWindowExW(mWindow, nullptr, L"ORVANE PROXY", nullptr);
    ASSERT_NE(mProxy, nullptr);
    MoveMouse(0, 0);
}

WindowsTest::~WindowsTest() {
    ReleaseMouse(); // a test that failed may have left it down
}

void WindowsTest::Show() {
    EXPECT_EQ(Ask("SWND"), "OK");
    EXPECT_TRUE(WaitUntil([&] {
        return Strip().CountBright({ 300, 0, 700, 30 }, 200) > 0;
    })) << "no title came up on the strip";
}

void WindowsTest::SelectExample() {
    EXPECT_EQ(Ask(WireBuilder().Raw("SWSV").String(kExampleName).U8(0).Get()), "OK");
    EXPECT_TRUE(WaitUntil([&] { return TitleOf(mWindow) == L"Orvane Oscilloscope"; }));
}

std::string WindowsTest::Pulse() {
    ++mStamp;
    WireBuilder sound;
    sound.Raw("PULS").U32(mStamp).U32(mStamp * 16);
    sound.U8(2);
    for (int i = 0; i < 1024; ++i)
        sound.U8(std::uint8_t(127 + 110 * std::sin(2 * std::numbers::pi * (i + int(mStamp) * 9) / 128)));
    sound.U8(2);
    for (int i = 0; i < 1024; ++i) sound.U8(std::uint8_t(i % 512 < 100 ? 200 : 20));
    return Ask(sound.Get());
}

Picture WindowsTest::Strip() const {
    RECT rect = {};
    GetWindowRect(mWindow, &rect);
    const RECT strip = { 0, 0, rect.right - rect.left, 30 };
    InvalidateRect(mWindow, &strip, FALSE);
    rect.bottom = rect.top + 30;
    return TakePicture(rect);
}

} // namespace orvane::tests
