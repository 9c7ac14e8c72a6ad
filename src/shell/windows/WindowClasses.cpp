#include "shell/windows/WindowClasses.h"

#include "shell/server/WindowClassNames.h"
#include "shell/windows/WindowProcedures.h"

namespace orvane::shell {

namespace {

ATOM sProxyClass = 0;
ATOM sTopLevelClass = 0;

ATOM RegisterWindowClass(HINSTANCE instance, const wchar_t* name, WNDPROC procedure, HBRUSH background) {
    WNDCLASSEXW windowClass = {};
    windowClass.cbSize = sizeof(windowClass);
    windowClass.style = CS_HREDRAW | CS_VREDRAW;
    windowClass.lpfnWndProc = procedure;
    windowClass.hInstance = instance;
    windowClass.hCursor = LoadCursorW(nullptr, IDC_ARROW);
    windowClass.hbrBackground = background;
    windowClass.lpszClassName = name;
    return RegisterClassExW(&windowClass);
}

} // namespace

void RegisterWindowClasses(HINSTANCE instance) {
    const auto black = static_cast<HBRUSH>(GetStockObject(BLACK_BRUSH));
    sProxyClass = RegisterWindowClass(instance, kProxyClassName, &ProxyWindowProcedure, nullptr);
    sTopLevelClass = RegisterWindowClass(instance, kTopLevelClassName, &TopLevelWindowProcedure, black);
}

ATOM ProxyClassAtom() {
    return sProxyClass;
}

ATOM TopLevelClassAtom() {
    return sTopLevelClass;
}

} // namespace orvane::shell
