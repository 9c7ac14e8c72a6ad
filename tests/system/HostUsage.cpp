#include "system/HostUsage.h"

#include <psapi.h>

#include <algorithm>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <functional>
#include <iterator>
#include <sstream>

namespace orvane::tests {

namespace {

constexpr wchar_t kProcesses[] = LR"(Z:\proc\)";
constexpr std::size_t kBytesPerKilobyte = 1024;
constexpr double kFileTimeTicksPerSecond = 1e7;
constexpr double kNanosecondsPerSecond = 1e9;
constexpr double kClockTicksPerSecond = 100; // of the system's process statistics

void ForEachEntry(const std::wstring& folder, const std::function<void(const std::wstring&)>& take) {
    WIN32_FIND_DATAW found = {};
    const HANDLE search = FindFirstFileW((folder + L"*").c_str(), &found);
    if (search == INVALID_HANDLE_VALUE) return;
    do {
        const std::wstring name = found.cFileName;
        if (name != L"." && name != L"..") take(name);
    } while (FindNextFileW(search, &found));
    FindClose(search);
}

std::string Contents(const std::wstring& path) {
    std::ifstream file(std::filesystem::path(path), std::ios::binary);
    return { std::istreambuf_iterator<char>(file), {} };
}

bool IsNumber(const std::wstring& name) {
    return std::all_of(name.begin(), name.end(), [](wchar_t unit) { return unit >= L'0' && unit <= L'9'; });
}

std::wstring FolderOfProcessWith(const std::string& argument) {
    std::wstring result;
    ForEachEntry(kProcesses, [&](const std::wstring& name) {
        if (!IsNumber(name)) return;
        const std::wstring folder = kProcesses + name + L"\\";
        if (Contents(folder + L"cmdline").find(argument) != std::string::npos) result = folder;
    });
    return result;
}

PROCESS_MEMORY_COUNTERS MemoryCounters(HANDLE process) {
    PROCESS_MEMORY_COUNTERS counters = {};
    counters.cb = sizeof(counters);
    GetProcessMemoryInfo(process, &counters, sizeof(counters));
    return counters;
}

double Seconds(const FILETIME& time) {
    return (double(time.dwHighDateTime) * 4294967296.0 + double(time.dwLowDateTime)) /
           kFileTimeTicksPerSecond;
}

} // namespace

HostUsage::HostUsage(HANDLE process, const std::string& uniqueArgument)
    : mProcess(process)
    , mFolder(FolderOfProcessWith(uniqueArgument)) {}

std::size_t HostUsage::StatusBytes(const char* field) const {
    const std::string status = Contents(mFolder + L"status");
    const std::string name = std::string("\n") + field + ":";
    const auto at = status.find(name);
    if (at == std::string::npos) return 0;
    return std::strtoull(status.c_str() + at + name.size(), nullptr, 10) * kBytesPerKilobyte;
}

std::size_t HostUsage::MemoryBytes() const {
    return mFolder.empty() ? MemoryCounters(mProcess).WorkingSetSize : StatusBytes("VmRSS");
}

std::size_t HostUsage::MostMemoryBytes() const {
    return mFolder.empty() ? MemoryCounters(mProcess).PeakWorkingSetSize : StatusBytes("VmHWM");
}

std::size_t HostUsage::Descriptors() const {
    std::size_t count = 0;
    if (mFolder.empty()) {
        DWORD handles = 0;
        GetProcessHandleCount(mProcess, &handles);
        return handles;
    }
    ForEachEntry(mFolder + L"fd\\", [&](const std::wstring&) { ++count; });
    return count;
}

double HostUsage::ProcessorSeconds() const {
    if (mFolder.empty()) {
        FILETIME created, ended, inSystem, inProgram;
        GetProcessTimes(mProcess, &created, &ended, &inSystem, &inProgram);
        return Seconds(inSystem) + Seconds(inProgram);
    }
    // "pid (name) state ...": the two times are the 12th and 13th fields behind the name.
    const std::string stat = Contents(mFolder + L"stat");
    std::istringstream fields(stat.substr(stat.rfind(')') + 2));
    std::string field;
    double ticks = 0;
    for (int i = 1; i <= 13 && fields >> field; ++i)
        if (i >= 12) ticks += std::strtod(field.c_str(), nullptr);
    return ticks / kClockTicksPerSecond;
}

double HostUsage::StarvedSeconds() const {
    if (mFolder.empty()) return 0;
    double seconds = 0;
    ForEachEntry(mFolder + L"task\\", [&](const std::wstring& thread) {
        // "time on a processor, time of waiting for one, turns", the times in nanoseconds
        std::istringstream fields(Contents(mFolder + L"task\\" + thread + L"\\schedstat"));
        double ran = 0, waited = 0;
        fields >> ran >> waited;
        seconds += waited / kNanosecondsPerSecond;
    });
    return seconds;
}

} // namespace orvane::tests
