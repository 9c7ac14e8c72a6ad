#include "plugins/external/Discovery.h"

#include "platform/LogLine.h"
#include "platform/Text.h"
#include "plugins/external/DiscoveryCalls.h"
#include "plugins/external/ExternalVisualPlugIn.h"
#include "plugins/external/FloatingPointState.h"
#include "plugins/external/PathBuffer.h"

#include <knownfolders.h>

namespace orvane::plugins {

using platform::LogFormat;
using platform::LogLine;

namespace {

constexpr wchar_t kProgramFilesVariable[] = L"ProgramW6432";
constexpr wchar_t kBelowProgramFiles[] = L"\\Orvane\\Plug-ins\\";
constexpr wchar_t kBesideExecutable[] = L"\\Plug-ins\\";
constexpr wchar_t kBelowRoamingData[] = L"\\Kelbo Computer\\Orvane\\Orvane Plug-ins\\";
constexpr wchar_t kModulePattern[] = L"*.dll";

constexpr char kAppendFailed[] = "StringCchCat failed\n";
constexpr char kBaseFolderTooLong[] = "StringCchCat(pathString, 1024, folderPath) failed\n";

// The folder as it is by default, even if it was never made: the search then finds nothing.
constexpr DWORD kDefaultPath = KF_FLAG_DEFAULT_PATH;
static_assert(kDefaultPath == 1024);
static_assert(TokenElevationTypeFull == 2 && sizeof(TOKEN_ELEVATION_TYPE) == 4);

// No box that says "bad image" or "no disk" comes up while it lives, so that a broken file in a plug-in folder
// doesn't hold up the start until somebody clicks. The error mode is the whole process's: a failure in
// another thread meanwhile is as quiet.
class NoErrorBoxes {
public:
    NoErrorBoxes()
        : mBefore(GetErrorMode()) {
        SetErrorMode(mBefore | SEM_FAILCRITICALERRORS | SEM_NOOPENFILEERRORBOX);
    }

    ~NoErrorBoxes() { SetErrorMode(mBefore); }

    NoErrorBoxes(const NoErrorBoxes&) = delete;
    NoErrorBoxes& operator=(const NoErrorBoxes&) = delete;

private:
    UINT mBefore;
};

std::u16string UnitsOf(std::wstring_view text) {
    return { text.begin(), text.end() };
}

} // namespace

// A folder that the system knows by its id; released when this goes.
class Discovery::KnownFolder {
public:
    KnownFolder(const DiscoveryCalls& calls, REFKNOWNFOLDERID id)
        : mCalls(calls)
        , mResult(calls.shGetKnownFolderPath(id, kDefaultPath, nullptr, &mPath)) {}

    ~KnownFolder() { mCalls.coTaskMemFree(mPath); }

    KnownFolder(const KnownFolder&) = delete;
    KnownFolder& operator=(const KnownFolder&) = delete;

    [[nodiscard]] HRESULT Result() const { return mResult; }

    [[nodiscard]] bool Failed() const { return FAILED(mResult); }

    // Without a failure alone.
    [[nodiscard]] std::wstring_view Path() const { return mPath; }

private:
    const DiscoveryCalls& mCalls;
    PWSTR mPath = nullptr;
    HRESULT mResult;
};

Discovery::Discovery(AdoptPlugin adopt)
    : Discovery(std::move(adopt), kPlatformDiscoveryCalls) {}

Discovery::Discovery(AdoptPlugin adopt, const DiscoveryCalls& calls)
    : mAdopt(std::move(adopt))
    , mCalls(calls) {}

void Discovery::Run() const {
    if (IsFullyElevated()) return;
    ScanProgramFiles();
    ScanBesideExecutable();
    ScanRoamingData();
}

// A token that can't be opened or read is no reason to leave the user without plug-ins.
bool Discovery::IsFullyElevated() const {
    HANDLE token = nullptr;
    if (!mCalls.openProcessToken(GetCurrentProcess(), TOKEN_QUERY, &token)) return false;
    TOKEN_ELEVATION_TYPE type = TokenElevationTypeDefault;
    DWORD length = 0;
    const BOOL read = mCalls.getTokenInformation(token, TokenElevationType, &type, sizeof(type), &length);
    mCalls.closeHandle(token);
    return read && type == TokenElevationTypeFull;
}

void Discovery::ScanProgramFiles() const {
    PathBuffer path;
    const KnownFolder folder(mCalls, FOLDERID_ProgramFilesX64);
    if (!folder.Failed()) {
        if (!path.Append(folder.Path())) return LogLine(kBaseFolderTooLong);
    } else {
        const DWORD count =
            mCalls.getEnvironmentVariable(kProgramFilesVariable, path.Data(), PathBuffer::kCapacity);
        LogFormat("GetEnvironmentVariable num characters = %d\n\n", int(count));
        if (count == 0)
            return LogLine(
                "Looks like this machine is running a 32-bit OS. Nevertheless GetEnvironmentVariable "
                "\"ProgramW6432\" returned zero characters so we can't find 3rd party plugins from the "
                "Orvane plug-ins folder.");
        // A value that doesn't fit isn't there at all: the count is what it would need.
        if (count >= PathBuffer::kCapacity) return LogLine(kAppendFailed);
    }
    if (!path.Append(kBelowProgramFiles)) return LogLine(kAppendFailed);
    RegisterPluginsInFolder(path.View());
}

void Discovery::ScanBesideExecutable() const {
    PathBuffer path;
    const DWORD count = mCalls.getModuleFileName(nullptr, path.Data(), PathBuffer::kCapacity);
    if (count == 0 || count >= PathBuffer::kCapacity) return; // failed, or cut off
    if (!mCalls.pathRemoveFileSpec(path.Data())) return;
    if (path.Append(kBesideExecutable)) RegisterPluginsInFolder(path.View());
}

void Discovery::ScanRoamingData() const {
    PathBuffer path;
    const KnownFolder folder(mCalls, FOLDERID_RoamingAppData);
    if (folder.Failed())
        return LogFormat("SHGetKnownFolderPath(FOLDERID_RoamingAppData failed. HRESULT == 0x%X\n\n",
                         unsigned(folder.Result()));
    if (!path.Append(folder.Path())) return LogLine(kBaseFolderTooLong);
    if (!path.Append(kBelowRoamingData)) return LogLine(kAppendFailed);
    RegisterPluginsInFolder(path.View());
}

void Discovery::RegisterPluginsInFolder(std::wstring_view folder) const {
    PathBuffer pattern;
    if (!pattern.Append(folder) || !pattern.Append(kModulePattern)) return;
    WIN32_FIND_DATAW found = {};
    const HANDLE search = mCalls.findFirstFile(pattern.Text(), &found);
    if (search == INVALID_HANDLE_VALUE) return;
    do {
        PathBuffer path;
        if (path.Append(folder) && path.Append(found.cFileName)) RegisterPlugin(path.Text());
    } while (mCalls.findNextFile(search, &found));
    mCalls.findClose(search);
}

void Discovery::RegisterPlugin(const wchar_t* path) const {
    const NoErrorBoxes quiet;
    const FloatingPointState kept; // loading runs the module's own start
    const std::u16string units = UnitsOf(path);
    const std::string shown = platform::Utf8FromUtf16(units);
    const HMODULE module = mCalls.loadLibrary(path, nullptr, 0);
    if (!module) return LogFormat("LoadLibraryExW failed when registering \"%s\"\n", shown.c_str());
    LogFormat("Registering \"%s\"\n", shown.c_str());
    auto plugIn = MakePlugIn<ExternalVisualPlugIn>(units.c_str(), static_cast<void*>(module));
    if (!plugIn) return;
    if (plugIn->Initialize()) return mAdopt(std::move(plugIn));
    LogFormat("Initialize failed when registering \"%s\"\n", shown.c_str());
    plugIn->Deactivate(); // says so, if it never registered a handler
}

} // namespace orvane::plugins
