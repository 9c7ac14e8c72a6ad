#include "support/RedirectedOutput.h"

#include <windows.h>

namespace orvane::tests {

struct RedirectedOutput::State {
    HANDLE original = nullptr;
    HANDLE file = INVALID_HANDLE_VALUE;
};

namespace {

// A file that is gone when its last handle is closed.
HANDLE MakeTemporaryFile(DWORD access) {
    wchar_t folder[MAX_PATH + 1];
    wchar_t path[MAX_PATH + 1];
    GetTempPathW(MAX_PATH, folder);
    GetTempFileNameW(folder, L"out", 0, path);
    return CreateFileW(path, access, 0, nullptr, CREATE_ALWAYS,
                       FILE_ATTRIBUTE_TEMPORARY | FILE_FLAG_DELETE_ON_CLOSE, nullptr);
}

} // namespace

RedirectedOutput::RedirectedOutput(OutputTarget target)
    : mState(std::make_unique<State>()) {
    mState->original = GetStdHandle(STD_OUTPUT_HANDLE);
    if (target == OutputTarget::kFile) mState->file = MakeTemporaryFile(GENERIC_READ | GENERIC_WRITE);
    if (target == OutputTarget::kReadOnly) mState->file = MakeTemporaryFile(GENERIC_READ);
    SetStdHandle(STD_OUTPUT_HANDLE, mState->file);
}

RedirectedOutput::~RedirectedOutput() {
    SetStdHandle(STD_OUTPUT_HANDLE, mState->original);
    if (mState->file != INVALID_HANDLE_VALUE) CloseHandle(mState->file);
}

std::string RedirectedOutput::Text() const {
    std::string text(std::size_t(GetFileSize(mState->file, nullptr)), '\0');
    SetFilePointer(mState->file, 0, nullptr, FILE_BEGIN);
    DWORD count = 0;
    ReadFile(mState->file, text.data(), DWORD(text.size()), &count, nullptr);
    text.resize(count);
    return text;
}

} // namespace orvane::tests
