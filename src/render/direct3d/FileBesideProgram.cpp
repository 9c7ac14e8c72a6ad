#include "render/direct3d/FileBesideProgram.h"

#include <windows.h>

#include <new>
#include <string>

namespace orvane::render {
namespace {

struct HandleCloser {
    void operator()(HANDLE handle) const { CloseHandle(handle); }
};

using UniqueHandle = std::unique_ptr<void, HandleCloser>;

constexpr std::size_t kNameBuffer = 256; // characters, with the terminating zero

// KEEP: a name of more than 255 characters wraps round to the start of its buffer and is not refused.
// So what lies behind each 256th character is the name that counts.
// By design: names are fixed texts of the program; the buffer is bounded and that is enough.
// Pinned by LoadFunction.ANameOfMoreThan255CharactersWrapsRoundToTheStart.
std::wstring WideName(const char* name) {
    wchar_t buffer[kNameBuffer] = {};
    std::size_t at = 0;
    for (; *name != '\0'; ++name) {
        buffer[at] = static_cast<unsigned char>(*name);
        at = (at + 1) % kNameBuffer;
    }
    buffer[at] = L'\0';
    return buffer;
}

// With the backslash at its end; empty if the system won't tell.
std::wstring ProgramFolder() {
    std::wstring path(MAX_PATH, L'\0');
    for (;;) {
        const DWORD length = GetModuleFileNameW(nullptr, path.data(), static_cast<DWORD>(path.size()));
        if (length < path.size()) {
            path.resize(length);
            break;
        }
        path.resize(2 * path.size());
    }
    return path.substr(0, path.find_last_of(L'\\') + 1);
}

} // namespace

FileContents ReadFileBesideProgram(const char* fileName) {
    if (fileName == nullptr) return {};
    const std::wstring path = ProgramFolder() + WideName(fileName);
    const HANDLE opened = CreateFileW(path.c_str(), GENERIC_READ, FILE_SHARE_READ, nullptr, OPEN_EXISTING,
                                      FILE_ATTRIBUTE_NORMAL, nullptr);
    if (opened == INVALID_HANDLE_VALUE) return {};
    const UniqueHandle file(opened);
    const DWORD size = GetFileSize(file.get(), nullptr);
    if (size == 0 || size == INVALID_FILE_SIZE) return {};
    FileContents contents{ std::unique_ptr<std::byte[]>(new (std::nothrow) std::byte[size]), size };
    DWORD read = 0;
    const bool whole =
        contents.bytes && ReadFile(file.get(), contents.bytes.get(), size, &read, nullptr) && read == size;
    if (!whole) return {};
    return contents;
}

} // namespace orvane::render
