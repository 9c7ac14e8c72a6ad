// Which folders are scanned, and what is said when one can't be.
#include "plugins/external/Discovery.h"
#include "support/LogCapture.h"
#include "unit/plugins/external/ScriptedDiscoveryCalls.h"

#include <gtest/gtest.h>

#include <string>

namespace orvane::plugins {
namespace {

using tests::LogCapture;
using Texts = std::vector<std::wstring>;

constexpr wchar_t kFirst[] = L"C:\\PF\\Orvane\\Plug-ins\\*.dll";
constexpr wchar_t kSecond[] = L"C:\\App\\Plug-ins\\*.dll";
constexpr wchar_t kThird[] = L"C:\\Roam\\Kelbo Computer\\Orvane\\Orvane Plug-ins\\*.dll";

constexpr char kAppendFailed[] = "StringCchCat failed\n";
constexpr char kBaseTooLong[] = "StringCchCat(pathString, 1024, folderPath) failed\n";

class DiscoveryFolders : public testing::Test {
protected:
    void Run() {
        const Discovery discovery([](auto) { ADD_FAILURE() << "no module is there"; }, mScript.mTable);
        discovery.Run();
    }

    LogCapture mLog;
    tests::ScriptedDiscoveryCalls mScript;
};

TEST_F(DiscoveryFolders, AreSearchedInTheirOrderAndEmptyOnesAreNoFailure) {
    Run();
    EXPECT_EQ(mScript.mSearches, (Texts{ kFirst, kSecond, kThird }));
    EXPECT_EQ(mScript.mFoldersReleased, 2);
    EXPECT_EQ(mScript.mSearchesClosed, 0);
    EXPECT_EQ(mLog.Text(), "");
}

TEST_F(DiscoveryFolders, AnElevatedProcessOpensNone) {
    mScript.mElevationType = 2;
    Run();
    EXPECT_EQ(mScript.mSearches, Texts{});
    EXPECT_EQ(mScript.mFoldersAsked, 0);
    EXPECT_EQ(mScript.mTokensClosed, 1);
    EXPECT_EQ(mLog.Text(), "");
}

TEST_F(DiscoveryFolders, EveryOtherElevationTypeScansThem) {
    for (const std::uint32_t type : { 0u, 1u, 3u, 4u }) {
        mScript.mElevationType = type;
        mScript.mSearches.clear();
        mScript.mTokensClosed = 0;
        Run();
        EXPECT_EQ(mScript.mSearches.size(), 3u) << type;
        EXPECT_EQ(mScript.mTokensClosed, 1) << type;
    }
}

TEST_F(DiscoveryFolders, ATokenThatCannotBeOpenedScansThem) {
    mScript.mTokenOpens = false;
    mScript.mElevationType = 2;
    Run();
    EXPECT_EQ(mScript.mSearches.size(), 3u);
    EXPECT_EQ(mScript.mTokensClosed, 0);
}

TEST_F(DiscoveryFolders, ATokenThatCannotBeReadScansThemAndIsClosed) {
    mScript.mTokenReads = false;
    mScript.mElevationType = 2;
    Run();
    EXPECT_EQ(mScript.mSearches.size(), 3u);
    EXPECT_EQ(mScript.mTokensClosed, 1);
}

TEST_F(DiscoveryFolders, WithoutTheKnownFolderTheFirstIsBelowProgramW6432) {
    mScript.mProgramFiles.reset();
    mScript.mProgramW6432 = L"D:\\Pr\u00F6grams";
    Run();
    EXPECT_EQ(mScript.mSearches, (Texts{ L"D:\\Pr\u00F6grams\\Orvane\\Plug-ins\\*.dll", kSecond, kThird }));
    EXPECT_EQ(mLog.Text(), "GetEnvironmentVariable num characters = 11\n\n");
}

TEST_F(DiscoveryFolders, WithNoKnownFolderAndAnEmptyProgramW6432TheOtherTwoAreStillScanned) {
    mScript.mProgramFiles.reset();
    Run();
    EXPECT_EQ(mScript.mSearches, (Texts{ kSecond, kThird }));
    EXPECT_EQ(mLog.Lines(),
              (std::vector<std::string>{
                  "GetEnvironmentVariable num characters = 0\n\n",
                  "Looks like this machine is running a 32-bit OS. Nevertheless GetEnvironmentVariable "
                  "\"ProgramW6432\" returned zero characters so we can't find 3rd party plugins from the "
                  "Orvane plug-ins folder." }));
}

TEST_F(DiscoveryFolders, AProgramW6432ThatDoesNotFitIsGivenUp) {
    mScript.mProgramFiles.reset();
    mScript.mProgramW6432 = std::wstring(1024, L'x');
    Run();
    EXPECT_EQ(mScript.mSearches, (Texts{ kSecond, kThird }));
    EXPECT_EQ(mLog.Lines(), (std::vector<std::string>{ "GetEnvironmentVariable num characters = 1025\n\n",
                                                       kAppendFailed }));
}

TEST_F(DiscoveryFolders, AProgramW6432Of1023UnitsLeavesNoRoomForTheRest) {
    mScript.mProgramFiles.reset();
    mScript.mProgramW6432 = std::wstring(1023, L'x');
    Run();
    EXPECT_EQ(mScript.mSearches, (Texts{ kSecond, kThird }));
    EXPECT_EQ(mLog.Lines(), (std::vector<std::string>{ "GetEnvironmentVariable num characters = 1023\n\n",
                                                       kAppendFailed }));
}

TEST_F(DiscoveryFolders, AKnownFolderOf1023UnitsIsTakenAndTheTextBehindItFails) {
    mScript.mProgramFiles = std::wstring(1023, L'p');
    mScript.mRoamingData = std::wstring(1023, L'r');
    Run();
    EXPECT_EQ(mScript.mSearches, Texts{ kSecond });
    EXPECT_EQ(mLog.Lines(), (std::vector<std::string>{ kAppendFailed, kAppendFailed }));
    EXPECT_EQ(mScript.mFoldersReleased, 2);
}

TEST_F(DiscoveryFolders, AKnownFolderOf1024UnitsFailsByItself) {
    mScript.mProgramFiles = std::wstring(1024, L'p');
    mScript.mRoamingData = std::wstring(1024, L'r');
    Run();
    EXPECT_EQ(mScript.mSearches, Texts{ kSecond });
    EXPECT_EQ(mLog.Lines(), (std::vector<std::string>{ kBaseTooLong, kBaseTooLong }));
    EXPECT_EQ(mScript.mFoldersReleased, 2);
}

// "\Orvane\Plug-ins\" is 17 units long, "*.dll" 5.
TEST_F(DiscoveryFolders, APatternOf1023UnitsIsSearchedAndOneOf1024IsGivenUpInSilence) {
    mScript.mRoamingData = L"C:\\Roam";
    mScript.mProgramFiles = std::wstring(1023 - 17 - 5, L'p');
    Run();
    ASSERT_EQ(mScript.mSearches.size(), 3u);
    EXPECT_EQ(mScript.mSearches[0], *mScript.mProgramFiles + L"\\Orvane\\Plug-ins\\*.dll");
    EXPECT_EQ(mScript.mSearches[0].size(), 1023u);
    for (const std::size_t length : { 1023u - 17 - 4, 1023u - 17 }) {
        mScript.mSearches.clear();
        mScript.mProgramFiles = std::wstring(length, L'p');
        Run();
        EXPECT_EQ(mScript.mSearches, (Texts{ kSecond, kThird })) << length;
    }
    EXPECT_EQ(mLog.Text(), "");
    mScript.mProgramFiles = std::wstring(1024 - 17, L'p');
    Run();
    EXPECT_EQ(mLog.Text(), kAppendFailed);
}

TEST_F(DiscoveryFolders, TheSecondIsPassedOverInSilenceWhateverFails) {
    mScript.mExecutable = L"";
    Run();
    mScript.mExecutable = L"C:\\" + std::wstring(1021, L'f') + L"\\host.exe"; // cut off by the platform
    Run();
    mScript.mExecutable = L"C:\\" + std::wstring(1015, L'f') + L"\\a.e"; // no room for "\Plug-ins\"
    Run();
    mScript.mExecutable = L"C:\\App\\host.exe";
    mScript.mFileSpecIsRemoved = false;
    Run();
    EXPECT_EQ(mScript.mSearches, (Texts{ kFirst, kThird, kFirst, kThird, kFirst, kThird, kFirst, kThird }));
    EXPECT_EQ(mLog.Text(), "");
}

TEST_F(DiscoveryFolders, WithoutRoamingDataTheResultIsShownAndTheOthersWereScanned) {
    mScript.mRoamingData.reset();
    mScript.mRoamingFailure = HRESULT(0x80070002);
    Run();
    EXPECT_EQ(mScript.mSearches, (Texts{ kFirst, kSecond }));
    EXPECT_EQ(mLog.Text(), "SHGetKnownFolderPath(FOLDERID_RoamingAppData failed. HRESULT == 0x80070002\n\n");
}

// The machine's own folders, asked of the platform itself.
TEST_F(DiscoveryFolders, OfThisMachineAreFoundByThePlatformsOwnCalls) {
    const DiscoveryCalls platform;
    mScript.mTable.shGetKnownFolderPath = platform.shGetKnownFolderPath;
    mScript.mTable.coTaskMemFree = platform.coTaskMemFree;
    mScript.mTable.getModuleFileName = platform.getModuleFileName;
    mScript.mTable.pathRemoveFileSpec = platform.pathRemoveFileSpec;
    Run();
    ASSERT_EQ(mScript.mSearches.size(), 3u);
    const auto environment = [](const wchar_t* name) {
        wchar_t value[1024] = {};
        GetEnvironmentVariableW(name, value, 1024);
        return std::wstring(value);
    };
    std::wstring executable(1024, L'\0');
    executable.resize(GetModuleFileNameW(nullptr, executable.data(), 1024));
    executable.resize(executable.rfind(L'\\'));
    EXPECT_EQ(mScript.mSearches[0], environment(L"ProgramFiles") + L"\\Orvane\\Plug-ins\\*.dll");
    EXPECT_EQ(mScript.mSearches[1], executable + L"\\Plug-ins\\*.dll");
    EXPECT_EQ(mScript.mSearches[2],
              environment(L"APPDATA") + L"\\Kelbo Computer\\Orvane\\Orvane Plug-ins\\*.dll");
}

// The process's real token decides as its real elevation type says.
TEST_F(DiscoveryFolders, AreScannedExactlyIfThisProcessIsNotFullyElevated) {
    const DiscoveryCalls platform;
    mScript.mTable.openProcessToken = platform.openProcessToken;
    mScript.mTable.getTokenInformation = platform.getTokenInformation;
    mScript.mTable.closeHandle = platform.closeHandle;
    HANDLE token = nullptr;
    DWORD type = 0;
    DWORD length = 0;
    ASSERT_TRUE(OpenProcessToken(GetCurrentProcess(), TOKEN_QUERY, &token));
    ASSERT_TRUE(GetTokenInformation(token, TokenElevationType, &type, sizeof(type), &length));
    CloseHandle(token);
    Run();
    EXPECT_EQ(mScript.mSearches.size(), type == 2 ? 0u : 3u);
}

} // namespace
} // namespace orvane::plugins
