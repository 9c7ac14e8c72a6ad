#include "shell/entry/CommandLine.h"

#include <windows.h>

#include <shellapi.h>

#include <algorithm>
#include <memory>
#include <string_view>

namespace orvane::shell {

bool WantsConsole(const wchar_t* commandLine) {
    int count = 0;
    const std::unique_ptr<wchar_t*, decltype(&LocalFree)> arguments(CommandLineToArgvW(commandLine, &count),
                                                                    &LocalFree);
    if (!arguments) return false;
    return std::any_of(arguments.get(), arguments.get() + count,
                       [](std::wstring_view argument) { return argument == L"-c"; });
}

} // namespace orvane::shell
