// Things in the plug-in folders that are no modules, and modules in odd places.
#include "support/NotModules.h"
#include "system/plugins/PluginsTest.h"
#include "system/plugins/host/TestHost.h"

#include <psapi.h>

#include <algorithm>

namespace orvane::tests {
namespace {

namespace fs = std::filesystem;

std::u16string UnitsOf(const fs::path& path) {
    const std::wstring text = path.wstring();
    return { text.begin(), text.end() };
}

struct NotAModule {
    const char* name;
    void (*make)(const fs::path& path);
};

// For GoogleTest, which otherwise shows the bytes.
[[maybe_unused]] void PrintTo(const NotAModule& row, std::ostream* to) {
    *to << row.name;
}

constexpr NotAModule kNotModules[] = {
    { "an_empty_file", &MakeEmptyFile },
    { "a_text", &MakeTextFile },
    { "the_head_of_a_32_bit_image", &Make32BitImage },
    { "a_folder", &MakeFolder },
    { "a_missing_dependency",
      [](const fs::path& path) { fs::copy_file(BuiltModule("missing-dependency"), path); } },
};

class NotModules : public PluginsTest, public testing::WithParamInterface<NotAModule> {};

TEST_P(NotModules, HaveTheirLineAndTheScanGoesOn) {
    const fs::path folder = mFolders.Make(Folder::kRoamingData);
    GetParam().make(folder / "m.dll");
    mFolders.Lay(Folder::kRoamingData, "recorder", "a.dll");
    mFolders.Lay(Folder::kRoamingData, "idle-on", "z.dll");
    std::string lines;
    for (const fs::path& file : ModulesIn(folder))
        lines += file.filename() == "m.dll" ? LoadFailedLine(file) : RegisteringLine(file);

    ASSERT_NO_FATAL_FAILURE(ServeHost());
    EXPECT_EQ(List().plugins.size(), 2u);
    EXPECT_EQ(QuitAndRead(), kBuiltInsLine + lines + std::string(kWaitingForClient) + kExitLine);
    EXPECT_EQ(Count(lines, "LoadLibraryExW failed"), 1);
}

INSTANTIATE_TEST_SUITE_P(Kinds, NotModules, testing::ValuesIn(kNotModules),
                         [](const auto& row) { return std::string(row.param.name); });

class ModulePlaces : public PluginsTest {
protected:
    // A folder inside the temporary one whose full path has so many units, with a backslash at its end.
    fs::path MakeDeepFolder(std::size_t units) const {
        constexpr std::size_t kLongestName = 200;
        std::wstring path = mFolders.Temporary().wstring();
        while (path.size() + 1 < units) {
            const std::size_t left = units - path.size() - 2; // without its two backslashes
            // No name of nothing may be left over for the last step.
            const std::size_t name = left <= kLongestName ? left : std::min(kLongestName, left - 2);
            path += L"\\" + std::wstring(name, L'd');
            EXPECT_TRUE(CreateDirectoryW((LR"(\\?\)" + path).c_str(), nullptr)) << path.size();
        }
        return path + L"\\";
    }
};

TEST_F(ModulePlaces, TwoHundredModulesInOneFolderAreAllListedInOrder) {
    constexpr int kModules = 200;
    for (int i = 0; i < kModules; ++i)
        mFolders.Lay(Folder::kRoamingData, "recorder", std::to_string(i * 7919 % kModules) + ".dll");
    const auto files = ModulesIn(mFolders.Of(Folder::kRoamingData));
    ASSERT_EQ(files.size(), std::size_t(kModules));
    ASSERT_NO_FATAL_FAILURE(ServeHost());

    const auto list = List();
    ASSERT_EQ(list.plugins.size(), files.size());
    std::string lines;
    for (std::size_t i = 0; i < files.size(); ++i) {
        EXPECT_EQ(list.plugins[i].path, UnitsOf(files[i])) << i;
        EXPECT_EQ(list.plugins[i].displayName, u"recorder") << i;
        lines += RegisteringLine(files[i]);
    }
    EXPECT_EQ(QuitAndRead(), kBuiltInsLine + lines + std::string(kWaitingForClient) + kExitLine);
}

TEST_F(ModulePlaces, NamesOutsideAsciiAreListedAsTheyAreAndPrintedAsUtf8) {
    for (const wchar_t* name :
         { L"\u00FCberblick.dll", L"\u97F3\u697D.dll", L"\U0001F3B5.dll", L"a b'c!.dll" })
        mFolders.Lay(Folder::kRoamingData, "recorder", name);
    const auto files = ModulesIn(mFolders.Of(Folder::kRoamingData));
    ASSERT_EQ(files.size(), 4u);
    ASSERT_NO_FATAL_FAILURE(ServeHost());
    const auto list = List();
    ASSERT_EQ(list.plugins.size(), 4u);
    for (std::size_t i = 0; i < 4; ++i) EXPECT_EQ(list.plugins[i].path, UnitsOf(files[i]));
    const std::string text = QuitAndRead();
    const std::string folder = Shown(mFolders.Of(Folder::kRoamingData));
    for (const char* name : { "\xC3\xBC"
                              "berblick.dll",
                              "\xE9\x9F\xB3\xE6\xA5\xBD.dll", "\xF0\x9F\x8E\xB5.dll", "a b'c!.dll" })
        EXPECT_EQ(Count(text, "Registering \"" + folder + "\\" + name + "\"\n"), 1) << name;
}

// The folder that is scanned is given to the test host: a program can't itself stand so deep on every system.
TEST_F(ModulePlaces, APathOf1023UnitsIsRegisteredAndOneOf1024IsPassedOverInSilence) {
    constexpr std::size_t kLongestPath = 1023;
    constexpr std::size_t kFolderUnits = 900;
    const fs::path folder = MakeDeepFolder(kFolderUnits);
    ASSERT_EQ(folder.wstring().size(), kFolderUnits);
    const auto lay = [&](std::size_t units) {
        const std::wstring name = std::wstring(units - kFolderUnits - 4, L'm') + L".dll";
        const std::wstring path = folder.wstring() + name;
        EXPECT_TRUE(CopyFileW(BuiltModule("recorder").c_str(), (LR"(\\?\)" + path).c_str(), TRUE)) << units;
        return fs::path(path);
    };
    const fs::path fits = lay(kLongestPath);
    lay(kLongestPath + 1);
    ASSERT_NO_FATAL_FAILURE(ServeTestHost(std::wstring(kScanArgument) + L" " + folder.wstring()));

    const auto list = List();
    ASSERT_EQ(list.plugins.size(), 1u);
    EXPECT_EQ(list.plugins[0].path.size(), kLongestPath);
    EXPECT_EQ(list.plugins[0].path, UnitsOf(fits));
    // Cut at the console's 255 bytes, newline and all.
    const std::string line = RegisteringLine(fits);
    EXPECT_EQ(line.size(), 255u);
    EXPECT_EQ(QuitAndRead(), line + kBuiltInsLine + std::string(kWaitingForClient) + kExitLine);
}

TEST_F(ModulePlaces, AFolderTooDeepForThePatternIsGivenUpInSilence) {
    const fs::path folder = MakeDeepFolder(1019); // with "*.dll" behind it 1,024
    const std::wstring module = folder.wstring() + L"m.dll";
    ASSERT_TRUE(CopyFileW(BuiltModule("recorder").c_str(), (LR"(\\?\)" + module).c_str(), TRUE));
    ASSERT_NO_FATAL_FAILURE(ServeTestHost(std::wstring(kScanArgument) + L" " + folder.wstring()));
    EXPECT_EQ(List().plugins.size(), 0u);
    EXPECT_EQ(QuitAndRead(), kBuiltInsLine + std::string(kWaitingForClient) + kExitLine);
}

// Whether the host has a module of that name in its memory.
bool HasLoaded(HANDLE process, const wchar_t* name) {
    HMODULE modules[512] = {};
    DWORD bytes = 0;
    EnumProcessModules(process, modules, sizeof(modules), &bytes);
    return std::any_of(modules, modules + bytes / sizeof(HMODULE), [&](HMODULE module) {
        wchar_t base[MAX_PATH] = {};
        GetModuleBaseNameW(process, module, base, MAX_PATH);
        return std::wstring_view(base) == name;
    });
}

TEST_F(ModulePlaces, AModuleWithoutTheEntryIsReportedLeavesNoEntryInTheListAndStaysLoaded) {
    const fs::path module = mFolders.Lay(Folder::kRoamingData, "no-entry");
    ASSERT_NO_FATAL_FAILURE(ServeHost());
    EXPECT_EQ(Ask("UPVM"), std::string(4, '\0'));
    EXPECT_TRUE(HasLoaded(mHost->Process(), L"no-entry.dll"));
    EXPECT_FALSE(HasLoaded(mHost->Process(), L"recorder.dll"));
    EXPECT_EQ(QuitAndRead(), kBuiltInsLine + RegisteringLine(module) +
                                 "Could not find proc address for OrvanePluginMain in this plugin.\n"
                                 "Initialize failed when registering \"" +
                                 Shown(module) +
                                 "\"\n"
                                 "Cannot deactivate plugin. mVisualPluginProcPtr == null\n" +
                                 std::string(kWaitingForClient) + kExitLine);
}

TEST_F(ModulePlaces, AModuleThatChangesFolderAndLocaleAndRoundingLeavesTheNextOnesAsTheyWere) {
    mFolders.Lay(Folder::kProgramFiles, "changes-state");
    const fs::path recorder = mFolders.Lay(Folder::kBesideProgram, "recorder");
    const fs::path idle = mFolders.Lay(Folder::kRoamingData, "idle-off");
    ASSERT_NO_FATAL_FAILURE(ServeTestHost());
    AskAndSettle(ActivateRequest(u"changes-state"));
    Ask(PulseRequest(1, 2));
    ASSERT_NO_FATAL_FAILURE(Reconnect());
    const auto list = List();
    ASSERT_EQ(list.plugins.size(), 6u);
    EXPECT_EQ(list.plugins[4].path, UnitsOf(recorder));
    EXPECT_EQ(list.plugins[5].path, UnitsOf(idle));
    EXPECT_EQ(AskAndSettle(ActivateRequest(u"recorder")), "PRXY");
}

int ChildrenOf(HWND window) {
    int count = 0;
    for (HWND child = GetWindow(window, GW_CHILD); child; child = GetWindow(child, GW_HWNDNEXT)) ++count;
    return count;
}

TEST_F(ModulePlaces, WindowsThatAModuleOpensGoInTheirTimeWhileTheHostServesOn) {
    mFolders.Lay(Folder::kRoamingData, "opens-windows");
    ASSERT_NO_FATAL_FAILURE(ServeTestHost());
    AskAndSettle(ActivateRequest(u"opens-windows"));
    EXPECT_EQ(ChildrenOf(Window()), 2);
    AskAndSettle(WireBuilder().Raw("DCTV").Get());
    EXPECT_TRUE(WaitUntil([&] { return Ask("DRAW") == "OK" && ChildrenOf(Window()) == 0; }));
    EXPECT_EQ(AskAndSettle(ActivateRequest(u"opens-windows")), "PRXY");
    EXPECT_EQ(ChildrenOf(Window()), 2);
}

} // namespace
} // namespace orvane::tests
