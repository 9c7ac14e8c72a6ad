// What becomes of the files in a plug-in folder.
#include "platform/Text.h"
#include "plugins/external/Discovery.h"
#include "plugins/external/ModuleMessages.h"
#include "support/LogCapture.h"
#include "support/Wire.h"
#include "unit/plugins/external/FakeModule.h"
#include "unit/plugins/external/ScriptedDiscoveryCalls.h"

#include <gtest/gtest.h>

#include <xmmintrin.h>

#include <filesystem>
#include <fstream>
#include <string>

namespace orvane::plugins {
namespace {

using tests::Bytes;
using tests::FakeModule;
using tests::LogCapture;
using tests::WireBuilder;
using Lines = std::vector<std::string>;

// The least module that the system loads: one empty section, no entry point, no exports. A 32-bit one has
// the headers of its kind.
Bytes LeastModule(bool is64Bit) {
    constexpr std::uint16_t kAmd64 = 0x8664;
    constexpr std::uint16_t kI386 = 0x014C;
    constexpr std::uint32_t kDirectories = 16;
    const std::uint16_t optionalHeaderSize = is64Bit ? 240 : 224;
    WireBuilder pe;
    pe.Raw("MZ").Zeros(58).U32(64).Raw(std::string_view("PE\0\0", 4));
    pe.U16(is64Bit ? kAmd64 : kI386).U16(1).Zeros(12).U16(optionalHeaderSize).U16(0x2022); // a DLL
    pe.U16(is64Bit ? 0x20B : 0x10B).U16(0).U32(0x200).Zeros(8).U32(0).U32(0x1000); // sizes, no entry point
    if (is64Bit)
        pe.U64(0x4F0000000);
    else
        pe.U32(0).U32(0x4F000000);
    pe.U32(0x1000).U32(0x200).U32(6).U32(0).U32(6).U32(0).U32(0x2000).U32(0x200).U32(0).U16(2).U16(0x100);
    pe.Zeros(is64Bit ? 32 : 16).U32(0).U32(kDirectories).Zeros(8 * kDirectories);
    pe.Raw(std::string_view(".data\0\0\0", 8)).U32(0x200).U32(0x1000).U32(0x200).U32(0x200);
    pe.Zeros(12).U32(0xC0000040);
    Bytes file = pe.Get();
    file.resize(0x400);
    return file;
}

// A folder of its own, with its name as discovery wants it, and gone afterwards.
class TemporaryFolder {
public:
    TemporaryFolder()
        : mPath(std::filesystem::temp_directory_path() /
                (L"orvane-discovery-" + std::to_wstring(GetCurrentProcessId()))) {
        std::filesystem::remove_all(mPath);
        std::filesystem::create_directories(mPath);
    }

    ~TemporaryFolder() {
        std::error_code ignored;
        std::filesystem::remove_all(mPath, ignored);
    }

    TemporaryFolder(const TemporaryFolder&) = delete;
    TemporaryFolder& operator=(const TemporaryFolder&) = delete;

    [[nodiscard]] std::wstring Name() const { return mPath.wstring() + L"\\"; }

    void Write(const std::wstring& name, const Bytes& bytes) const {
        std::ofstream file(mPath / name, std::ios::binary);
        file.write(reinterpret_cast<const char*>(bytes.data()), std::streamsize(bytes.size()));
    }

    void MakeFolder(const std::wstring& name) const { std::filesystem::create_directory(mPath / name); }

private:
    std::filesystem::path mPath;
};

std::string Utf8(const std::wstring& text) {
    return platform::Utf8FromUtf16(std::u16string(text.begin(), text.end()));
}

std::string LoadFailure(const std::wstring& path) {
    return "LoadLibraryExW failed when registering \"" + Utf8(path) + "\"\n";
}

// Discovery of scripted files: each of them is the test program itself, which is the fake module.
class DiscoveryModules : public testing::Test {
protected:
    DiscoveryModules() { mScript.mLoaded = static_cast<HMODULE>(FakeModule::Handle()); }

    Discovery Make() {
        return Discovery([this](auto plugIn) { mAdopted.push_back(std::move(plugIn)); }, mScript.mTable);
    }

    LogCapture mLog;
    FakeModule mModule;
    tests::ScriptedDiscoveryCalls mScript;
    std::vector<PlugInOwner<VisualPlugIn>> mAdopted;
};

TEST_F(DiscoveryModules, AGoodOneIsHandedOverWithItsPathAndItsRegisteredName) {
    mModule.mRegistration.SetName(u"Waves");
    Make().RegisterPlugin(L"C:\\P\\w\u00E4ves.dll");
    ASSERT_EQ(mAdopted.size(), 1u);
    EXPECT_EQ(mAdopted[0]->Kind(), PlugInKind::kExternal);
    EXPECT_EQ(mAdopted[0]->Path().View(), u"C:\\P\\w\u00E4ves.dll");
    EXPECT_EQ(mAdopted[0]->DisplayName().View(), u"Waves");
    EXPECT_EQ(FindLivePlugIn(mModule.mHostCookie).get(), mAdopted[0].get());
    EXPECT_EQ(mLog.Text(), "Registering \"C:\\P\\w\xC3\xA4ves.dll\"\n");
}

TEST_F(DiscoveryModules, OneThatReturns0WithoutRegisteringIsHandedOverToo) {
    mModule.mOnEntry = [] { return 0; };
    Make().RegisterPlugin(L"C:\\x.dll");
    ASSERT_EQ(mAdopted.size(), 1u);
    EXPECT_EQ(mAdopted[0]->DisplayName().count, 0);
}

TEST_F(DiscoveryModules, AreTakenInTheFileSystemsOrder) {
    mScript.mFoundFiles = { L"b.dll", L"a.dll", L"c.dll" };
    Make().RegisterPluginsInFolder(L"C:\\P\\");
    EXPECT_EQ(mScript.mSearches, std::vector<std::wstring>{ L"C:\\P\\*.dll" });
    EXPECT_EQ(mScript.mLoads,
              (std::vector<std::wstring>{ L"C:\\P\\b.dll", L"C:\\P\\a.dll", L"C:\\P\\c.dll" }));
    EXPECT_EQ(mAdopted.size(), 3u);
    EXPECT_EQ(mScript.mSearchesClosed, 1);
}

TEST_F(DiscoveryModules, TheSameOneInTwoFoldersIsRegisteredTwiceAsTwoObjects) {
    mModule.mRegistration.SetName(u"Twin");
    mScript.mFoundFiles = { L"twin.dll" };
    mScript.mProgramFiles.reset();
    Make().Run();
    ASSERT_EQ(mAdopted.size(), 2u);
    EXPECT_NE(mAdopted[0], mAdopted[1]);
    EXPECT_EQ(mAdopted[0]->Path().View(), u"C:\\App\\Plug-ins\\twin.dll");
    EXPECT_EQ(mAdopted[1]->Path().View(), u"C:\\Roam\\Kelbo Computer\\Orvane\\Orvane Plug-ins\\twin.dll");
    for (const auto& plugIn : mAdopted) EXPECT_EQ(plugIn->DisplayName().View(), u"Twin");
}

TEST_F(DiscoveryModules, OneThatFailsAfterRegisteringIsDeactivatedAndFreedAndItsCookieIsDead) {
    mModule.mRegistration.refCon = 0x77;
    mModule.mOnEntry = [&] {
        EXPECT_EQ(mModule.Register(mModule.mRegistration), 0);
        return -1;
    };
    Make().RegisterPlugin(L"C:\\f.dll");
    EXPECT_TRUE(mAdopted.empty());
    EXPECT_EQ(mModule.HandlerMessages(), "init Vdct");
    EXPECT_EQ(mModule.HandlerCalls()[1].record, nullptr);
    EXPECT_EQ(mModule.HandlerCalls()[1].lastArgument, 0x77u);
    EXPECT_EQ(mLog.Lines(),
              (Lines{ "Registering \"C:\\f.dll\"\n", "Initialize failed when registering \"C:\\f.dll\"\n",
                      "Plugin deactivated.\n" }));
    mLog.Clear();
    EXPECT_EQ(mModule.CallHost(0x72617274, nullptr), -50);
    EXPECT_EQ(mLog.Text(), "");
}

TEST_F(DiscoveryModules, OneThatFailsAndDoesNotDeactivateEitherIsFreedInSilence) {
    mModule.mOnEntry = [&] {
        EXPECT_EQ(mModule.Register(mModule.mRegistration), 0);
        mModule.mOnMessage = [](std::uint32_t, std::uint8_t*) { return -2; };
        return -1;
    };
    Make().RegisterPlugin(L"C:\\f.dll");
    EXPECT_EQ(mLog.Lines(),
              (Lines{ "Registering \"C:\\f.dll\"\n", "Initialize failed when registering \"C:\\f.dll\"\n" }));
}

TEST_F(DiscoveryModules, OneThatFailsWithoutAHandlerSaysSo) {
    mModule.mOnEntry = [] { return -1; };
    Make().RegisterPlugin(L"C:\\f.dll");
    EXPECT_TRUE(mAdopted.empty());
    EXPECT_EQ(mLog.Lines(),
              (Lines{ "Registering \"C:\\f.dll\"\n", "Initialize failed when registering \"C:\\f.dll\"\n",
                      "Cannot deactivate plugin. mVisualPluginProcPtr == null\n" }));
}

TEST_F(DiscoveryModules, ABadOneIsPassedOverAndTheScanGoesOn) {
    mScript.mFoundFiles = { L"1.dll", L"2.dll", L"3.dll" };
    int calls = 0;
    mModule.mOnEntry = [&] { return ++calls == 2 ? -1 : mModule.Register(mModule.mRegistration); };
    Make().RegisterPluginsInFolder(L"C:\\P\\");
    ASSERT_EQ(mAdopted.size(), 2u);
    EXPECT_EQ(mAdopted[1]->Path().View(), u"C:\\P\\3.dll");
}

TEST_F(DiscoveryModules, APathOf1023UnitsIsLoadedAndOneOf1024IsPassedOverInSilence) {
    const std::wstring folder = L"C:\\" + std::wstring(896, L'f') + L"\\"; // 900 units
    mScript.mFoundFiles = { std::wstring(124, L'x'), std::wstring(123, L'y'), std::wstring(259, L'z') };
    Make().RegisterPluginsInFolder(folder);
    ASSERT_EQ(mScript.mLoads.size(), 1u);
    EXPECT_EQ(mScript.mLoads[0], folder + std::wstring(123, L'y'));
    EXPECT_EQ(mScript.mLoads[0].size(), 1023u);
    ASSERT_EQ(mAdopted.size(), 1u);
    EXPECT_EQ(mAdopted[0]->Path().count, 1023);
    ASSERT_EQ(mLog.Lines().size(), 1u);
}

TEST_F(DiscoveryModules, LinesAreCutAtTheirBufferOf256Bytes) {
    const std::wstring path = L"C:\\" + std::wstring(300, L'\u00E9');
    mModule.mOnEntry = [] { return -1; };
    Make().RegisterPlugin(path.c_str());
    mScript.mLoaded = nullptr;
    Make().RegisterPlugin(path.c_str());
    EXPECT_EQ(mLog.Lines(),
              (Lines{ ("Registering \"" + Utf8(path)).substr(0, 255),
                      ("Initialize failed when registering \"" + Utf8(path)).substr(0, 255),
                      "Cannot deactivate plugin. mVisualPluginProcPtr == null\n",
                      ("LoadLibraryExW failed when registering \"" + Utf8(path)).substr(0, 255) }));
}

TEST_F(DiscoveryModules, NoErrorBoxComesUpDuringALoadAndTheOldModeIsPutBack) {
    const UINT before = GetErrorMode();
    SetErrorMode(SEM_NOGPFAULTERRORBOX);
    Make().RegisterPlugin(L"C:\\x.dll");
    EXPECT_EQ(mScript.mErrorModeOfLoad,
              UINT(SEM_FAILCRITICALERRORS | SEM_NOGPFAULTERRORBOX | SEM_NOOPENFILEERRORBOX));
    EXPECT_EQ(GetErrorMode(), UINT(SEM_NOGPFAULTERRORBOX));
    SetErrorMode(before);
}

TEST_F(DiscoveryModules, WhatAModulesStartDoesToTheFloatingPointStateEndsWithTheLoad) {
    const unsigned before = _mm_getcsr();
    mScript.mTable.loadLibrary = [](const wchar_t*, HANDLE, DWORD) -> HMODULE {
        _mm_setcsr(_mm_getcsr() | 0x8040); // flush to zero, denormals are zero
        return nullptr;
    };
    Make().RegisterPlugin(L"C:\\x.dll");
    EXPECT_EQ(_mm_getcsr(), before);
}

// Real files, loaded by the platform.
class DiscoveryFiles : public testing::Test {
protected:
    void Scan(const std::wstring& folder) const {
        const Discovery discovery([](auto) { ADD_FAILURE() << "no module here is good"; });
        discovery.RegisterPluginsInFolder(folder);
    }

    TemporaryFolder mFolder;
    LogCapture mLog;
};

TEST_F(DiscoveryFiles, AFolderThatDoesNotExistIsNoFailure) {
    Scan(mFolder.Name() + L"missing\\");
    EXPECT_EQ(mLog.Text(), "");
}

TEST_F(DiscoveryFiles, AnEmptyFolderAndFilesOfOtherNamesAreLeftAlone) {
    Scan(mFolder.Name());
    mFolder.Write(L"readme.txt", { 'x' });
    mFolder.Write(L"dll", { 'x' });
    Scan(mFolder.Name());
    EXPECT_EQ(mLog.Text(), "");
}

TEST_F(DiscoveryFiles, AnEmptyFileIsReported) {
    mFolder.Write(L"x.dll", {});
    Scan(mFolder.Name());
    EXPECT_EQ(mLog.Text(), LoadFailure(mFolder.Name() + L"x.dll"));
}

TEST_F(DiscoveryFiles, AFolderNamedLikeAModuleIsReported) {
    mFolder.MakeFolder(L"x.dll");
    Scan(mFolder.Name());
    EXPECT_EQ(mLog.Text(), LoadFailure(mFolder.Name() + L"x.dll"));
}

TEST_F(DiscoveryFiles, AFileThatIsNoModuleIsReported) {
    mFolder.Write(L"x.dll", Bytes(5000, 'x'));
    Scan(mFolder.Name());
    EXPECT_EQ(mLog.Text(), LoadFailure(mFolder.Name() + L"x.dll"));
}

TEST_F(DiscoveryFiles, A32BitModuleIsReported) {
    mFolder.Write(L"x.dll", LeastModule(false));
    Scan(mFolder.Name());
    EXPECT_EQ(mLog.Text(), LoadFailure(mFolder.Name() + L"x.dll"));
}

TEST_F(DiscoveryFiles, ANameOutsideAsciiIsPrintedAsUtf8) {
    mFolder.Write(L"\u017Bar \u97F3.dll", {});
    Scan(mFolder.Name());
    const std::string text = mLog.Text();
    EXPECT_EQ(text, LoadFailure(mFolder.Name() + L"\u017Bar \u97F3.dll"));
    EXPECT_NE(text.find("\xC5\xBB"
                        "ar \xE9\x9F\xB3.dll\"\n"),
              std::string::npos);
}

TEST_F(DiscoveryFiles, AModuleWithoutTheEntryIsReportedLeavesNoEntryInTheListAndStaysLoaded) {
    mFolder.Write(L"noentry.dll", LeastModule(true));
    Scan(mFolder.Name());
    const std::string path = Utf8(mFolder.Name() + L"noentry.dll");
    EXPECT_EQ(mLog.Lines(), (Lines{ "Registering \"" + path + "\"\n",
                                    "Could not find proc address for OrvanePluginMain in this plugin.\n",
                                    "Initialize failed when registering \"" + path + "\"\n",
                                    "Cannot deactivate plugin. mVisualPluginProcPtr == null\n" }));
    const HMODULE module = GetModuleHandleW((mFolder.Name() + L"noentry.dll").c_str());
    ASSERT_NE(module, nullptr);
    FreeLibrary(module); // so that its file can be removed
}

TEST_F(DiscoveryFiles, AModuleThatCannotBeReadDoesNotStopTheNextOne) {
    mFolder.Write(L"a.dll", {});
    mFolder.MakeFolder(L"b.dll");
    mFolder.Write(L"c.dll", LeastModule(false));
    Scan(mFolder.Name());
    auto lines = mLog.Lines();
    std::sort(lines.begin(), lines.end()); // the order is the file system's
    EXPECT_EQ(lines, (Lines{ LoadFailure(mFolder.Name() + L"a.dll"), LoadFailure(mFolder.Name() + L"b.dll"),
                             LoadFailure(mFolder.Name() + L"c.dll") }));
}

} // namespace
} // namespace orvane::plugins
