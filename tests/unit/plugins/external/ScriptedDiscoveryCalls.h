// The platform as discovery sees it, with every outcome set by a test.
#pragma once

#include "plugins/external/DiscoveryCalls.h"

#include <optional>
#include <string>
#include <vector>

namespace orvane::tests {

// One at a time. As made: a process that isn't elevated, three folders, and no file in any of them.
class ScriptedDiscoveryCalls {
public:
    ScriptedDiscoveryCalls();
    ~ScriptedDiscoveryCalls();
    ScriptedDiscoveryCalls(const ScriptedDiscoveryCalls&) = delete;
    ScriptedDiscoveryCalls& operator=(const ScriptedDiscoveryCalls&) = delete;

    plugins::DiscoveryCalls mTable;

    // What the platform answers.
    bool mTokenOpens = true, mTokenReads = true;
    std::uint32_t mElevationType = 3;
    std::optional<std::wstring> mProgramFiles = L"C:\\PF";  // nothing: E_FAIL
    std::optional<std::wstring> mRoamingData = L"C:\\Roam"; // nothing: mRoamingFailure
    HRESULT mRoamingFailure = E_FAIL;
    std::wstring mProgramW6432;
    std::wstring mExecutable = L"C:\\App\\host.exe"; // longer than a buffer: cut; empty: fails
    bool mFileSpecIsRemoved = true;
    std::vector<std::wstring> mFoundFiles; // in every folder
    HMODULE mLoaded = nullptr;

    // What was asked of it.
    std::vector<std::wstring> mSearches; // patterns
    std::vector<std::wstring> mLoads;    // paths
    int mTokensClosed = 0, mFoldersAsked = 0, mFoldersReleased = 0, mSearchesClosed = 0;
    UINT mErrorModeOfLoad = 0;

    std::size_t mNextFile = 0;
};

} // namespace orvane::tests
