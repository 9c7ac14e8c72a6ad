// Each test module by itself in a host: what comes of it, by the table of Outcomes.cpp.
#include "system/plugins/Outcomes.h"
#include "Modes.h"
#include "system/plugins/PluginsTest.h"

#include <algorithm>
#include <fstream>
#include <iterator>

namespace orvane::tests {
namespace {

using Kind = ModuleCall::Kind;

class ModuleOutcomes : public PluginsTest, public testing::WithParamInterface<Outcome> {
protected:
    // The whole life but for the activation: a track, a pulse, an image, idling, drawing, the end of playback,
    // deactivation.
    void LiveThrough() {
        EXPECT_EQ(AskAndSettle(SampleStartRequest()), "Start");
        EXPECT_EQ(Ask(PulseRequest(1, 2)), std::string(4, '\0'));
        for (const char* tag : { "AR13", "IDLE", "DRAW", "STOP", "DCTV" })
            EXPECT_EQ(AskAndSettle(WireBuilder().Raw(tag).Get()), "OK") << tag;
    }

    [[nodiscard]] std::string Messages() const {
        std::string messages;
        for (const auto& call : Calls()) {
            if (call.kind != Kind::Handler) continue;
            const char code[] = { char(call.message >> 24), char(call.message >> 16), char(call.message >> 8),
                                  char(call.message), 0 };
            messages.append(messages.empty() ? "" : " ").append(code);
        }
        return messages;
    }
};

// What is printed behind the activation. The module that calls the host does so again when it is deactivated:
// here, on another thread, and some time later.
std::string LinesOfLife(const Outcome& outcome) {
    std::string afterwards;
    if (std::string_view(outcome.mode) == "calls-host") {
        const std::string activation = outcome.activation;
        afterwards = activation.substr(activation.find('\n') + 1);
    }
    return std::string("PluginPipeServer::StartVisualizerWithTrackParam called\n") + afterwards +
           "Plugin deactivated.\n"
           "SetCurrentPluginNoLock::Setting current valid plugin to null\n" +
           afterwards.substr(0, afterwards.size() / 2);
}

TEST_P(ModuleOutcomes, IsAsItsRowSays) {
    const Outcome& row = GetParam();
    const auto path = mFolders.Lay(Folder::kRoamingData, row.mode);
    ASSERT_NO_FATAL_FAILURE(ServeTestHost());
    std::string text =
        kBuiltInsLine + Replaced(row.console, "<path>", Shown(path)) + std::string(kWaitingForClient);

    const auto list = List();
    ASSERT_EQ(list.plugins.size(), row.listedAs ? 1u : 0u);
    const std::u16string name = row.listedAs ? row.listedAs : std::u16string(row.mode, row.mode + 3);
    if (row.listedAs) {
        EXPECT_EQ(list.plugins[0].displayName, name);
        EXPECT_EQ(list.plugins[0].kind, player::kExternalPlugin);
    }
    EXPECT_EQ(AskAndSettle(ActivateRequest(name)), row.activation ? "PRXY" : "FAIL");
    if (row.activation) {
        text += row.activation;
        ASSERT_NO_FATAL_FAILURE(LiveThrough());
        text += LinesOfLife(row);
    } else {
        if (row.listedAs) text += "NameIs: inNameLength is 0\n"; // no name is never a match
        text += "SetCurrentPlugin::Setting null plugin to null\n";
    }
    EXPECT_TRUE(mHost->WaitForText(text)) << "some lines come late";
    EXPECT_EQ(QuitAndRead(), text + kExitLine);
    EXPECT_EQ(Messages(), row.messages);
}

std::string NameOfRow(const testing::TestParamInfo<Outcome>& row) {
    std::string name = row.param.mode;
    std::replace(name.begin(), name.end(), '-', '_');
    return name;
}

INSTANTIATE_TEST_SUITE_P(Modules, ModuleOutcomes, testing::ValuesIn(Outcomes().begin(), Outcomes().end()),
                         NameOfRow);

TEST(OutcomesTable, HasARowForEachTestModule) {
    const auto has = [](std::string_view mode) {
        return std::count_if(Outcomes().begin(), Outcomes().end(),
                             [&](const Outcome& row) { return row.mode == mode; }) == 1;
    };
    for (const Mode& mode : kModes) EXPECT_TRUE(has(mode.name)) << mode.name;
    EXPECT_TRUE(has("missing-dependency"));
    EXPECT_EQ(Outcomes().size(), std::size(kModes) + 1);
}

TEST(OutcomesTable, TheReadmeHasTheSameRowsInTheSameOrder) {
    std::ifstream file(std::filesystem::path(ORVANE_SOURCE_FOLDER) / "tests/system/plugins/README.md",
                       std::ios::binary);
    const std::string page{ std::istreambuf_iterator<char>(file), {} };
    ASSERT_FALSE(page.empty());
    std::string rows;
    for (const Outcome& row : Outcomes()) rows += ReadmeRow(row) + "\n";
    EXPECT_NE(page.find(rows), std::string::npos) << rows;
}

} // namespace
} // namespace orvane::tests
