#include "shell/windows/WindowClasses.h"

#include "shell/server/WindowClassNames.h"
#include "shell/windows/WindowProcedures.h"

#include <gtest/gtest.h>

#include <iterator>

namespace orvane::shell {
namespace {

class WindowClasses : public testing::Test {
protected:
    static void SetUpTestSuite() { RegisterWindowClasses(Instance()); }

    static void TearDownTestSuite() {
        UnregisterClassW(kProxyClassName, Instance());
        UnregisterClassW(kTopLevelClassName, Instance());
    }

    static HINSTANCE Instance() { return GetModuleHandleW(nullptr); }

    static WNDCLASSEXW Registered(const wchar_t* name) {
        WNDCLASSEXW windowClass = {};
        windowClass.cbSize = sizeof(windowClass);
        EXPECT_TRUE(GetClassInfoExW(Instance(), name, &windowClass));
        return windowClass;
    }
};

TEST_F(WindowClasses, EachAtomMakesAWindowOfItsName) {
    struct Row {
        ATOM atom;
        const wchar_t* name;
    };

    for (const Row& row :
         { Row{ ProxyClassAtom(), L"ORVANE PROXY" }, { TopLevelClassAtom(), L"ORVANE OOPWIND" } }) {
        const HWND window = CreateWindowW(MAKEINTATOM(row.atom), L"", WS_OVERLAPPED, 0, 0, 10, 10, nullptr,
                                          nullptr, Instance(), nullptr);
        wchar_t name[32] = {};
        GetClassNameW(window, name, int(std::size(name)));
        EXPECT_STREQ(name, row.name);
        DestroyWindow(window);
    }
}

TEST_F(WindowClasses, BothRedrawWhollyAndHaveTheArrowAndNothingElse) {
    const HCURSOR arrow = LoadCursorW(nullptr, IDC_ARROW);
    for (const wchar_t* name : { kProxyClassName, kTopLevelClassName }) {
        const WNDCLASSEXW windowClass = Registered(name);
        EXPECT_EQ(windowClass.style, 3u);
        EXPECT_EQ(windowClass.cbClsExtra, 0);
        EXPECT_EQ(windowClass.cbWndExtra, 0);
        EXPECT_EQ(windowClass.hInstance, Instance());
        EXPECT_EQ(windowClass.hIcon, nullptr);
        EXPECT_EQ(windowClass.hIconSm, nullptr);
        EXPECT_EQ(windowClass.hCursor, arrow);
        EXPECT_EQ(windowClass.lpszMenuName, nullptr);
    }
}

TEST_F(WindowClasses, TheProxyHasNoBackgroundAndTheTopLevelWindowABlackOne) {
    EXPECT_EQ(Registered(kProxyClassName).hbrBackground, nullptr);
    EXPECT_EQ(Registered(kTopLevelClassName).hbrBackground, static_cast<HBRUSH>(GetStockObject(BLACK_BRUSH)));
}

TEST_F(WindowClasses, EachHasItsProcedure) {
    EXPECT_EQ(Registered(kProxyClassName).lpfnWndProc, &ProxyWindowProcedure);
    EXPECT_EQ(Registered(kTopLevelClassName).lpfnWndProc, &TopLevelWindowProcedure);
}

} // namespace
} // namespace orvane::shell
