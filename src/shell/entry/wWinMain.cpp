#include "shell/entry/HostMain.h"

int WINAPI wWinMain(HINSTANCE instance, HINSTANCE, PWSTR, int) {
    return orvane::shell::HostMain(instance);
}
