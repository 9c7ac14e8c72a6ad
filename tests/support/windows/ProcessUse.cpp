#include "support/windows/ProcessUse.h"

#include "support/windows/UnderWine.h"

#include <windows.h>

#include <psapi.h>

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <string>
#include <vector>

namespace orvane::tests {
namespace {

// Arguments of a process as Linux tells them: each ends in a zero.
std::vector<std::string> ArgumentsOf(const std::string& process) {
    std::vector<std::string> arguments;
    std::FILE* const file = std::fopen(("Z:\\proc\\" + process + "\\cmdline").c_str(), "rb");
    if (file == nullptr) return arguments;
    std::string argument;
    for (int c = std::fgetc(file); c != EOF; c = std::fgetc(file)) {
        if (c != 0) {
            argument.push_back(static_cast<char>(c));
        } else {
            arguments.push_back(std::move(argument));
            argument.clear();
        }
    }
    std::fclose(file);
    while (!arguments.empty() && arguments.back().empty()) arguments.pop_back();
    return arguments;
}

// Linux was given the program by a path that is the end of its full one, and the same arguments.
bool AreOurs(const std::vector<std::string>& arguments) {
    if (arguments.size() != static_cast<std::size_t>(__argc)) return false;
    char path[MAX_PATH];
    const DWORD length = GetModuleFileNameA(nullptr, path, sizeof path);
    std::string own(path, length);
    std::replace(own.begin(), own.end(), '\\', '/');
    return own.ends_with(arguments.front()) && std::equal(arguments.begin() + 1, arguments.end(), __argv + 1);
}

std::vector<std::string> NamesIn(const std::string& folder) {
    std::vector<std::string> names;
    WIN32_FIND_DATAA found;
    const HANDLE search = FindFirstFileA((folder + "\\*").c_str(), &found);
    if (search == INVALID_HANDLE_VALUE) return names;
    do names.emplace_back(found.cFileName);
    while (FindNextFileA(search, &found));
    FindClose(search);
    return names;
}

// The number by which Linux knows this process. (Z:\proc\self is Wine's server: it opens the files.)
std::string LinuxProcess() {
    std::string ours;
    for (const std::string& name : NamesIn("Z:\\proc")) {
        if (name.find_first_not_of("0123456789") != std::string::npos || !AreOurs(ArgumentsOf(name)))
            continue;
        if (!ours.empty()) return {};
        ours = name;
    }
    return ours;
}

} // namespace

std::size_t ResidentBytes() {
    PROCESS_MEMORY_COUNTERS counters{};
    counters.cb = sizeof counters;
    GetProcessMemoryInfo(GetCurrentProcess(), &counters, sizeof counters);
    return counters.WorkingSetSize;
}

int OpenHandles() {
    if (!IsUnderWine()) {
        DWORD count = 0;
        return GetProcessHandleCount(GetCurrentProcess(), &count) ? static_cast<int>(count) : -1;
    }
    static const std::string sProcess = LinuxProcess();
    if (sProcess.empty()) return -1;
    return static_cast<int>(NamesIn("Z:\\proc\\" + sProcess + "\\fd").size());
}

} // namespace orvane::tests
