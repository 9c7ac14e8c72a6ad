#include "unit/plugins/external/ScriptedDiscoveryCalls.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstring>
#include <cwchar>

namespace orvane::tests {

namespace {

ScriptedDiscoveryCalls* sScript = nullptr;

const auto kToken = HANDLE(0x70CE);
const auto kSearch = HANDLE(0x5EA4);

constexpr GUID kProgramFilesX64 = {
    0x6D809377, 0x6AF0, 0x444B, { 0x89, 0x57, 0xA3, 0x77, 0x3F, 0x02, 0x20, 0x0E }
};
constexpr GUID kRoamingAppData = {
    0x3EB685DB, 0x65F9, 0x4CF6, { 0xA0, 0x3A, 0xE3, 0xEF, 0x65, 0x72, 0x9F, 0x3D }
};

BOOL WINAPI OpenToken(HANDLE process, DWORD access, HANDLE* token) {
    EXPECT_EQ(process, GetCurrentProcess());
    EXPECT_EQ(access, DWORD(TOKEN_QUERY));
    if (sScript->mTokenOpens) *token = kToken;
    return sScript->mTokenOpens;
}

BOOL WINAPI ReadToken(HANDLE token, TOKEN_INFORMATION_CLASS information, void* value, DWORD size,
                      DWORD* length) {
    EXPECT_EQ(token, kToken);
    EXPECT_EQ(information, TokenElevationType);
    EXPECT_EQ(size, 4u);
    if (!sScript->mTokenReads) return FALSE;
    std::memcpy(value, &sScript->mElevationType, 4);
    *length = 4;
    return TRUE;
}

BOOL WINAPI Close(HANDLE handle) {
    EXPECT_EQ(handle, kToken);
    ++sScript->mTokensClosed;
    return TRUE;
}

HRESULT WINAPI KnownFolder(REFKNOWNFOLDERID id, DWORD flags, HANDLE token, PWSTR* path) {
    EXPECT_EQ(flags, 1024u);
    EXPECT_EQ(token, nullptr);
    *path = nullptr;
    const bool isProgramFiles = IsEqualGUID(id, kProgramFilesX64);
    EXPECT_TRUE(isProgramFiles || IsEqualGUID(id, kRoamingAppData));
    const auto& folder = isProgramFiles ? sScript->mProgramFiles : sScript->mRoamingData;
    if (!folder) return isProgramFiles ? E_FAIL : sScript->mRoamingFailure;
    ++sScript->mFoldersAsked;
    *path = static_cast<PWSTR>(CoTaskMemAlloc((folder->size() + 1) * sizeof(wchar_t)));
    std::wcscpy(*path, folder->c_str());
    return S_OK;
}

void WINAPI Release(void* path) {
    if (path) ++sScript->mFoldersReleased;
    CoTaskMemFree(path);
}

DWORD WINAPI Environment(const wchar_t* name, wchar_t* buffer, DWORD size) {
    EXPECT_STREQ(name, L"ProgramW6432");
    EXPECT_EQ(size, 1024u);
    const auto& value = sScript->mProgramW6432;
    if (value.size() >= size) return DWORD(value.size() + 1); // what it would need
    std::wcscpy(buffer, value.c_str());
    return DWORD(value.size());
}

DWORD WINAPI ModuleFileName(HMODULE module, wchar_t* buffer, DWORD size) {
    EXPECT_EQ(module, nullptr);
    EXPECT_EQ(size, 1024u);
    const auto& name = sScript->mExecutable;
    if (name.empty()) return 0;
    const auto length = std::min<std::size_t>(name.size(), size - 1);
    std::copy_n(name.begin(), length, buffer);
    buffer[length] = L'\0';
    return name.size() < size ? DWORD(length) : size;
}

BOOL WINAPI RemoveFileSpec(wchar_t* path) {
    if (!sScript->mFileSpecIsRemoved) return FALSE;
    *std::wcsrchr(path, L'\\') = L'\0';
    return TRUE;
}

BOOL NextFile(WIN32_FIND_DATAW* found) {
    if (sScript->mNextFile == sScript->mFoundFiles.size()) return FALSE;
    std::wcscpy(found->cFileName, sScript->mFoundFiles[sScript->mNextFile++].c_str());
    return TRUE;
}

HANDLE WINAPI FindFirst(const wchar_t* pattern, WIN32_FIND_DATAW* found) {
    sScript->mSearches.emplace_back(pattern);
    sScript->mNextFile = 0;
    return NextFile(found) ? kSearch : INVALID_HANDLE_VALUE;
}

BOOL WINAPI FindNext(HANDLE search, WIN32_FIND_DATAW* found) {
    EXPECT_EQ(search, kSearch);
    return NextFile(found);
}

BOOL WINAPI FindEnd(HANDLE search) {
    EXPECT_EQ(search, kSearch);
    ++sScript->mSearchesClosed;
    return TRUE;
}

HMODULE WINAPI Load(const wchar_t* path, HANDLE file, DWORD flags) {
    EXPECT_EQ(file, nullptr);
    EXPECT_EQ(flags, 0u);
    sScript->mLoads.emplace_back(path);
    sScript->mErrorModeOfLoad = GetErrorMode();
    return sScript->mLoaded;
}

} // namespace

ScriptedDiscoveryCalls::ScriptedDiscoveryCalls()
    : mTable{ &OpenToken,      &ReadToken,      &Close,     &KnownFolder, &Release, &Environment,
              &ModuleFileName, &RemoveFileSpec, &FindFirst, &FindNext,    &FindEnd, &Load } {
    sScript = this;
}

ScriptedDiscoveryCalls::~ScriptedDiscoveryCalls() {
    EXPECT_EQ(mFoldersReleased, mFoldersAsked);
    sScript = nullptr;
}

} // namespace orvane::tests
