#include "LogWriter.h"

#include <cstdio>
#include <string>
#include <windows.h>

namespace orvane::tests {

namespace {

constexpr wchar_t kPathVariable[] = L"ORVANE_MODULE_LOG";
constexpr DWORD kLongestPath = 1024; // units

const char* NameOf(CallKind kind) {
    switch (kind) {
    case CallKind::Entry:
        return "entry";
    case CallKind::Handler:
        return "handler";
    case CallKind::Host:
        return "host";
    }
    return "";
}

void AppendHex(std::string& text, const void* bytes, std::size_t size) {
    static constexpr char kDigits[] = "0123456789abcdef";
    text += ' ';
    if (!bytes) {
        text += '-';
        return;
    }
    const auto* at = static_cast<const unsigned char*>(bytes);
    for (std::size_t i = 0; i < size; ++i) {
        text += kDigits[at[i] >> 4];
        text += kDigits[at[i] & 15];
    }
}

std::string TextOf(const CallLine& line) {
    char head[160];
    const int length = std::snprintf(
        head, sizeof(head), "%s %lu %s %08x %016llx ", line.module, GetCurrentThreadId(), NameOf(line.kind),
        line.message, static_cast<unsigned long long>(reinterpret_cast<UINT_PTR>(line.cookie)));
    std::string text(head, static_cast<std::size_t>(length));
    text += line.kind == CallKind::Host ? std::to_string(line.status) : "-";
    AppendHex(text, line.record, line.recordSize);
    AppendHex(text, line.data, line.dataSize);
    text += '\n';
    return text;
}

} // namespace

void WriteCallLine(const CallLine& line) {
    wchar_t path[kLongestPath];
    const DWORD units = GetEnvironmentVariableW(kPathVariable, path, kLongestPath);
    if (units == 0 || units >= kLongestPath) return;
    const HANDLE file = CreateFileW(path, FILE_APPEND_DATA, FILE_SHARE_READ | FILE_SHARE_WRITE, nullptr,
                                    OPEN_ALWAYS, FILE_ATTRIBUTE_NORMAL, nullptr);
    if (file == INVALID_HANDLE_VALUE) return;
    const std::string text = TextOf(line);
    DWORD written = 0;
    WriteFile(file, text.data(), DWORD(text.size()), &written, nullptr);
    CloseHandle(file);
}

} // namespace orvane::tests
