// The list that the player gets, of real modules in the real folders.
#include "ModuleFigures.h"
#include "system/LimitedToken.h"
#include "system/plugins/PluginsTest.h"
#include "system/plugins/host/TestHost.h"

#include "support/NotModules.h"

namespace orvane::tests {
namespace {

using Kind = ModuleCall::Kind;

// The plug-in list, made by hand. All is big-endian there.
class ListBuilder {
public:
    ListBuilder& U8(unsigned value) {
        mBytes.push_back(char(value));
        return *this;
    }

    ListBuilder& U16(unsigned value) { return U8(value >> 8 & 0xFF).U8(value & 0xFF); }

    ListBuilder& U32(std::uint32_t value) { return U16(value >> 16).U16(value & 0xFFFF); }

    ListBuilder& Text(const std::wstring& text) {
        U16(unsigned(text.size()));
        for (const wchar_t unit : text) U16(unit);
        return *this;
    }

    // A module's entry with the figures that every test module registers.
    ListBuilder& Module(std::uint32_t options, const std::wstring& name, const std::filesystem::path& path) {
        U32(0x01020304).U32(options).U32(30).U32(0x11121314).U32(0x21222324);
        U32(101).U32(102).U32(103).U32(104).U32(0);
        U8(0xA1).U8(0xB2).U8(0xC3).U8(0xD4);
        return Text(name).Text(path.wstring());
    }

    [[nodiscard]] const std::string& Get() const { return mBytes; }

private:
    std::string mBytes;
};

std::vector<std::u16string> PathsOf(const player::PluginList& list) {
    std::vector<std::u16string> paths;
    for (const auto& plugin : list.plugins) paths.push_back(plugin.path);
    return paths;
}

std::vector<std::u16string> Units(const std::vector<std::filesystem::path>& paths) {
    std::vector<std::u16string> units;
    for (const auto& path : paths) {
        const std::wstring text = path.wstring();
        units.emplace_back(text.begin(), text.end());
    }
    return units;
}

// The handler that a module gave with its registration: where its code lies in the host's memory.
std::uint64_t HandlerOf(const ModuleCall& registration) {
    const auto record = registration.RecordAs<OrvaneRegisterRecord>();
    std::uint64_t address = 0;
    std::memcpy(&address, &record.handler, sizeof(address));
    return address;
}

class PluginList : public PluginsTest {};

TEST_F(PluginList, EveryFieldOfAModuleStandsInItsPlaceBigEndian) {
    const auto recorder = mFolders.Lay(Folder::kRoamingData, "recorder");
    ASSERT_NO_FATAL_FAILURE(ServeHost());
    EXPECT_EQ(Ask("UPVM"), ListBuilder().U32(1).Module(0x0001000A, L"recorder", recorder).Get());
    EXPECT_EQ(QuitAndRead(),
              kBuiltInsLine + RegisteringLine(recorder) + std::string(kWaitingForClient) + kExitLine);
}

TEST_F(PluginList, FoldersAreSearchedInTheirOrder) {
    // Laid, and named, against the order of the folders.
    const auto third = mFolders.Lay(Folder::kRoamingData, "idle-on", "a.dll");
    const auto second = mFolders.Lay(Folder::kBesideProgram, "minor-8", "b.dll");
    const auto first = mFolders.Lay(Folder::kProgramFiles, "recorder", "c.dll");
    ASSERT_NO_FATAL_FAILURE(ServeHost());
    EXPECT_EQ(Ask("UPVM"), ListBuilder()
                               .U32(3)
                               .Module(0x0001000A, L"recorder", first)
                               .Module(0x00010002, L"minor-8", second)
                               .Module(0x0001000A, L"idle-on", third)
                               .Get());
    EXPECT_EQ(QuitAndRead(), kBuiltInsLine + RegisteringLine(first) + RegisteringLine(second) +
                                 "Minor version (8) expected to be kOrvanePluginMinorMessageVersion(9)\n" +
                                 RegisteringLine(third) + std::string(kWaitingForClient) + kExitLine);
}

TEST_F(PluginList, InAFolderTheOrderIsTheFileSystems) {
    for (const char* name : { "m.dll", "B.dll", "z.dll", "a.DLL", "10.dll", "9.dll" })
        mFolders.Lay(Folder::kRoamingData, "recorder", name);
    ASSERT_NO_FATAL_FAILURE(ServeHost());
    const auto files = ModulesIn(mFolders.Of(Folder::kRoamingData));
    ASSERT_EQ(files.size(), 6u);
    EXPECT_EQ(PathsOf(List()), Units(files));
}

TEST_F(PluginList, FoldersThatDoNotExistAreNoFailure) {
    ASSERT_NO_FATAL_FAILURE(ServeHost());
    EXPECT_EQ(Ask("UPVM"), std::string(4, '\0'));
    EXPECT_EQ(QuitAndRead(), kBuiltInsLine + std::string(kWaitingForClient) + kExitLine);
}

TEST_F(PluginList, FilesOfOtherNamesAndFoldersBelowAreLeftAlone) {
    const auto folder = mFolders.Make(Folder::kRoamingData);
    std::filesystem::copy_file(BuiltModule("recorder"), folder / "recorder.vis");
    std::filesystem::copy_file(BuiltModule("recorder"), folder / "recorder.dll.off");
    std::filesystem::create_directory(folder / "below");
    std::filesystem::copy_file(BuiltModule("recorder"), folder / "below" / "recorder.dll");
    ASSERT_NO_FATAL_FAILURE(ServeHost());
    EXPECT_EQ(Ask("UPVM"), std::string(4, '\0'));
    EXPECT_EQ(QuitAndRead(), kBuiltInsLine + std::string(kWaitingForClient) + kExitLine);
}

TEST_F(PluginList, TheSameModuleFoundInTwoFoldersIsLoadedOnceAndRegisteredTwiceAsTwoObjects) {
    const auto first = mFolders.Lay(Folder::kProgramFiles, "recorder");
    const auto second = mFolders.LayAgain(Folder::kRoamingData, first);
    ASSERT_NO_FATAL_FAILURE(ServeHost());
    EXPECT_EQ(Ask("UPVM"), ListBuilder()
                               .U32(2)
                               .Module(0x0001000A, L"recorder", first)
                               .Module(0x0001000A, L"recorder", second)
                               .Get());
    EXPECT_EQ(QuitAndRead(), kBuiltInsLine + RegisteringLine(first) + RegisteringLine(second) +
                                 std::string(kWaitingForClient) + kExitLine);

    const auto entries = CallsOf(Calls(), Kind::Entry, ORVANE_MSG_INIT);
    ASSERT_EQ(entries.size(), 2u);
    EXPECT_NE(entries[0].RecordAs<OrvaneEntryRecord>().hostCookie,
              entries[1].RecordAs<OrvaneEntryRecord>().hostCookie)
        << "two objects";
    const auto registrations = CallsOf(Calls(), Kind::Host, ORVANE_HOST_REGISTER);
    ASSERT_EQ(registrations.size(), 2u);
    EXPECT_EQ(HandlerOf(registrations[0]), HandlerOf(registrations[1])) << "loaded once";
}

TEST_F(PluginList, CopiesOfAModuleInTwoFoldersAreTwoModules) {
    const auto first = mFolders.Lay(Folder::kProgramFiles, "recorder");
    const auto second = mFolders.Lay(Folder::kBesideProgram, "recorder");
    ASSERT_NO_FATAL_FAILURE(ServeHost());
    EXPECT_EQ(PathsOf(List()), Units({ first, second }));
    const auto registrations = CallsOf(Calls(), Kind::Host, ORVANE_HOST_REGISTER);
    ASSERT_EQ(registrations.size(), 2u);
    EXPECT_NE(HandlerOf(registrations[0]), HandlerOf(registrations[1]));
}

TEST_F(PluginList, TwoDisconnectsInARowLeaveThreeEntriesForEachPlugInOfTheFirstScan) {
    const auto first = mFolders.Lay(Folder::kProgramFiles, "recorder");
    const auto second = mFolders.Lay(Folder::kRoamingData, "idle-off");
    ASSERT_NO_FATAL_FAILURE(ServeHost());
    EXPECT_EQ(PathsOf(List()), Units({ first, second }));
    ASSERT_NO_FATAL_FAILURE(Reconnect());
    EXPECT_EQ(PathsOf(List()), Units({ first, second, first, second }));
    ASSERT_NO_FATAL_FAILURE(Reconnect());
    EXPECT_EQ(PathsOf(List()), Units({ first, second, first, second, first, second }));

    const std::string scan =
        kBuiltInsLine + RegisteringLine(first) + RegisteringLine(second) + std::string(kWaitingForClient);
    const std::string again = kBrokenLine + scan;
    mClient.Disconnect();
    ASSERT_TRUE(mHost->WaitForText(kWaitingForClient, 4));
    EXPECT_EQ(QuitAndRead(), scan + again + again + again + kExitLine);

    // One loaded module, entered once on the main thread and then each time on the service thread.
    const auto calls = CallsOf(Calls(), "recorder");
    const auto entries = CallsOf(calls, Kind::Entry, ORVANE_MSG_INIT);
    const auto registrations = CallsOf(calls, Kind::Host, ORVANE_HOST_REGISTER);
    ASSERT_EQ(entries.size(), 4u);
    ASSERT_EQ(registrations.size(), 4u);
    EXPECT_EQ(entries[0].thread, mHost->MainThreadId());
    for (std::size_t i = 1; i < 4; ++i) {
        EXPECT_NE(entries[i].thread, mHost->MainThreadId());
        EXPECT_EQ(entries[i].thread, entries[1].thread);
        EXPECT_NE(entries[i].RecordAs<OrvaneEntryRecord>().hostCookie,
                  entries[i - 1].RecordAs<OrvaneEntryRecord>().hostCookie);
        EXPECT_EQ(HandlerOf(registrations[i]), HandlerOf(registrations[0]));
    }
}

TEST_F(PluginList, AModuleThatComesLaterIsFoundAtTheNextReconnection) {
    const auto first = mFolders.Lay(Folder::kRoamingData, "recorder");
    ASSERT_NO_FATAL_FAILURE(ServeHost());
    const auto second = mFolders.Lay(Folder::kProgramFiles, "idle-off");
    EXPECT_EQ(PathsOf(List()), Units({ first }));
    ASSERT_NO_FATAL_FAILURE(Reconnect());
    EXPECT_EQ(PathsOf(List()), Units({ first, second, first }));
}

TEST_F(PluginList, TheBuiltInsStandInFrontOfAllExternalPlugIns) {
    const auto recorder = mFolders.Lay(Folder::kProgramFiles, "recorder");
    ASSERT_NO_FATAL_FAILURE(ServeTestHost(kBuiltInsArgument));
    ASSERT_NO_FATAL_FAILURE(Reconnect());
    const auto list = List();
    std::vector<std::uint32_t> kinds;
    for (const auto& plugin : list.plugins) kinds.push_back(plugin.kind);
    using player::PluginKind;
    const std::vector<std::uint32_t> scan = { PluginKind::kQuellspirePlugin, PluginKind::kZephorPlugin,
                                              PluginKind::kExternalPlugin };
    EXPECT_EQ(std::vector(kinds.begin(), kinds.begin() + 3), scan);
    // The list grows by a whole scan: the built-ins of the second stand behind the modules of the first.
    EXPECT_EQ(std::vector(kinds.begin() + 3, kinds.end()), scan);
}

// Everything a scan could trip over, in all three folders: any folder that is opened leaves a line.
class ElevatedProcess : public PluginsTest {
protected:
    void SetUp() override {
        ASSERT_NO_FATAL_FAILURE(PluginsTest::SetUp());
        ASSERT_EQ(OwnElevationType(), TokenElevationTypeFull) << "needs to be run by an elevated user";
        for (const Folder folder : kAllFolders) {
            mFolders.Lay(folder, "recorder");
            MakeEmptyFile(mFolders.Of(folder) / "empty.dll");
        }
    }
};

TEST_F(ElevatedProcess, OpensNoFolderAndListsNoModule) {
    ASSERT_NO_FATAL_FAILURE(ServeHost(Token::kFull));
    EXPECT_EQ(Ask("UPVM"), std::string(4, '\0'));
    ASSERT_NO_FATAL_FAILURE(Reconnect());
    EXPECT_EQ(Ask("UPVM"), std::string(4, '\0'));
    const std::string scan = kBuiltInsLine + std::string(kWaitingForClient);
    EXPECT_EQ(QuitAndRead(), scan + kBrokenLine + scan + kExitLine);
    EXPECT_TRUE(Calls().empty());
}

TEST_F(ElevatedProcess, ListsExactlyTheTwoBuiltIns) {
    ASSERT_NO_FATAL_FAILURE(ServeTestHost(kBuiltInsArgument, Token::kFull));
    const auto list = List();
    ASSERT_EQ(list.plugins.size(), 2u);
    EXPECT_EQ(list.plugins[0].path, u"Built-In");
    EXPECT_EQ(list.plugins[1].path, u"Built-In");
    EXPECT_TRUE(Calls().empty());
}

TEST_F(ElevatedProcess, TheSameFoldersAreScannedWithALimitedToken) {
    ASSERT_NO_FATAL_FAILURE(ServeHost(Token::kLimited));
    EXPECT_EQ(List().plugins.size(), 3u);
    const std::string text = QuitAndRead();
    EXPECT_EQ(Count(text, "LoadLibraryExW failed when registering"), 3);
    EXPECT_EQ(Count(text, "Registering \""), 3);
}

} // namespace
} // namespace orvane::tests
