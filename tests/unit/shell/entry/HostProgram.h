// The host program itself, which lies beside the test programs.
#pragma once

#include <windows.h>

#include <string>

namespace orvane::tests {

[[nodiscard]] inline std::wstring HostProgram() {
    wchar_t path[MAX_PATH] = {};
    GetModuleFileNameW(nullptr, path, MAX_PATH);
    const std::wstring program = path;
    return program.substr(0, program.find_last_of(L'\\') + 1) + L"orvane-visualizer.exe";
}

} // namespace orvane::tests
