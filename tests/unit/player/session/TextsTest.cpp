// The texts of a session: tracks, progress, visualizers, help, and what goes wrong.
#include "player/session/HelpTexts.h"
#include "player/session/Messages.h"
#include "player/session/Progress.h"
#include "player/session/Track.h"
#include "player/session/Visualizers.h"

#include <gtest/gtest.h>

#include <bit>
#include <set>
#include <string>
#include <vector>

namespace orvane::player {
namespace {

TEST(TrackTexts, MakeALine) {
    EXPECT_EQ(TrackLine({ u"T", u"A", u"B" }), "T - A (B)");
    EXPECT_EQ(TrackLine({ u"T", u"", u"B" }), "T (B)");
    EXPECT_EQ(TrackLine({ u"", u"A", u"" }), "A");
    EXPECT_EQ(TrackLine({ u"", u"", u"B" }), "(B)");
    EXPECT_EQ(TrackLine({}), "");
    EXPECT_EQ(TrackLine({ u"\u00DC", u"", u"" }), "\xC3\x9C");
}

TEST(TrackTexts, GiveWayToTheOptions) {
    PlayOptions options;
    options.artist = "B\xC3\xA9";
    EXPECT_EQ(TextsWithOptions({ u"T", u"A", u"" }, options), (TrackTexts{ u"T", u"B\u00E9", u"" }));
    options.title = "\xFF"; // no UTF-8
    EXPECT_EQ(TextsWithOptions({ u"T", u"A", u"" }, options).title, u"T");
}

TEST(TrackRecord, HoldsTextsRateAndStart) {
    const auto record = MakeTrackRecord({ u"Name", u"Artist", u"Album" }, 48000, 12.5);
    ASSERT_TRUE(record);
    EXPECT_EQ(record->mTrackName.View(), u"Name");
    EXPECT_EQ(record->mTrackArtist.View(), u"Artist");
    EXPECT_EQ(record->mTrackAlbum.View(), u"Album");
    EXPECT_EQ(record->mInfoString2.View(), u"");
    EXPECT_EQ(record->mTrackStartA, 12500);
    EXPECT_EQ(record->mTrackStartB, 0u);
    // The last two words are the halves of 48000.0, which is 0x40E77000'00000000.
    EXPECT_EQ(record->mAudioFormat.words1[6], 0u);
    EXPECT_EQ(record->mAudioFormat.word8, 0x40E77000u);
}

TEST(TrackRecord, CutsLongTexts) {
    const auto record = MakeTrackRecord({ std::u16string(300, u'x'), u"", u"" }, 44100, 0);
    ASSERT_TRUE(record);
    EXPECT_EQ(record->mTrackName.View(), std::u16string(255, u'x'));
}

TEST(Progress, TellsTime) {
    EXPECT_EQ(TimeText(0), "0:00");
    EXPECT_EQ(TimeText(59.99), "0:59");
    EXPECT_EQ(TimeText(60), "1:00");
    EXPECT_EQ(TimeText(3599), "59:59");
    EXPECT_EQ(TimeText(3600), "1:00:00");
    EXPECT_EQ(TimeText(36061), "10:01:01");
    EXPECT_EQ(TimeText(-3), "0:00");
}

TEST(Progress, MakesALine) {
    EXPECT_EQ(ProgressLine({ 12, 225, false, "Title", 720 }), "0:12 / 3:45  Title  720 frames");
    EXPECT_EQ(ProgressLine({ 12, 225, true, "Title", 1 }), "0:12 / 3:45  paused  Title  1 frame");
    EXPECT_EQ(ProgressLine({ 12, 0, false, "", 0 }), "0:12  0 frames");
}

TEST(Progress, SumsUp) {
    EXPECT_EQ(SummaryLine(3.04, 180), "Played 3.0 s: 180 frames, 59.2 a second.");
    EXPECT_EQ(SummaryLine(0, 0), "Played 0.0 s: 0 frames, 0.0 a second.");
    EXPECT_EQ(SummaryLine(2, 1), "Played 2.0 s: 1 frame, 0.5 a second.");
}

PluginEntry Plugin(const std::u16string& name, std::uint32_t kind, const std::u16string& path) {
    PluginEntry entry;
    entry.displayName = name;
    entry.kind = kind;
    entry.path = path;
    return entry;
}

TEST(Visualizers, AreThoseWithANameEachOnce) {
    const PluginEntry plugins[] = { Plugin(u"Particles", kQuellspirePlugin, u"Built-In"),
                                    Plugin(u"", kExternalPlugin, u"C:\\x.dll"),
                                    Plugin(u"Scope", kExternalPlugin, u"C:\\scope.dll"),
                                    Plugin(u"Scope", kExternalPlugin, u"C:\\scope.dll"),
                                    Plugin(u"scope", kExternalPlugin, u"D:\\other.dll") };
    EXPECT_EQ(SelectableVisualizers(plugins),
              (std::vector<Visualizer>{
                  { u"Particles", u"" }, { u"Scope", u"C:\\scope.dll" }, { u"scope", u"D:\\other.dll" } }));
}

TEST(Visualizers, AreFoundByTheirNameOrAPartOfIt) {
    const Visualizer visualizers[] = { { u"Orvane Visualizer", u"" },
                                       { u"Orvane Classic Visualizer", u"" },
                                       { u"Classic", u"x" },
                                       { u"\u00C4ra", u"y" } };
    EXPECT_EQ(FindVisualizer(visualizers, ""), 0u);
    EXPECT_EQ(FindVisualizer(visualizers, "orvane"), 0u);
    EXPECT_EQ(FindVisualizer(visualizers, "CLASSIC V"), 1u);
    EXPECT_EQ(FindVisualizer(visualizers, "classic"), 2u); // the whole name before a part of another
    EXPECT_EQ(FindVisualizer(visualizers, "\xC3\x84r"), 3u);
    EXPECT_EQ(FindVisualizer(visualizers, "nothing"), std::nullopt);
    EXPECT_EQ(FindVisualizer({}, ""), std::nullopt);
}

TEST(Visualizers, AreListedInColumns) {
    const Visualizer visualizers[] = { { u"Orvane Visualizer", u"" }, { u"Scope", u"C:\\s.dll" } };
    EXPECT_EQ(VisualizerLines(visualizers),
              (std::vector<std::string>{ "Orvane Visualizer  built-in", "Scope              C:\\s.dll" }));
    EXPECT_EQ(VisualizerLines({}), std::vector<std::string>());
}

// The title is the last entry and has no key; every other has one of those that its visualizer takes.
void ExpectHelp(std::span<const LocalizedText> texts, const std::string& title, const std::string& keys) {
    constexpr std::size_t kRows = 9;         // of the help panel
    constexpr std::size_t kLongestText = 40; // characters that fit into a row
    ASSERT_EQ(texts.size(), kRows);
    EXPECT_EQ(texts.back().text, title);
    EXPECT_EQ(texts.back().key, "");
    std::set<std::string> seen;
    for (const LocalizedText& text : texts.first(kRows - 1)) {
        EXPECT_EQ(text.key.size(), 1u) << text.text;
        EXPECT_NE(keys.find(text.key), std::string::npos) << text.key;
        EXPECT_TRUE(seen.insert(text.key).second) << text.key << " comes twice";
        EXPECT_LE(text.text.size(), kLongestText) << text.text;
        EXPECT_NE(text.text, "");
    }
}

TEST(HelpTexts, TellTheKeysOfEachBuiltIn) {
    ExpectHelp(QuellspireTexts(), "Orvane Visualizer", "+=-/?ASCEFILMNPRX");
    ExpectHelp(ZephorTexts(), "Orvane Classic Visualizer", "/HASQWZXCFILMORT");
}

// Entry 0 stands in both panels of the classic visualizer, so it is the one that turns them.
TEST(HelpTexts, BeginWithTheKeyOfTheHelpItself) {
    EXPECT_EQ(QuellspireTexts()[0].key, "?");
    EXPECT_EQ(ZephorTexts()[0].key, "H");
}

TEST(Messages, QuoteNames) {
    EXPECT_EQ(messages::NoSuchFile("x.wav"), "There is no file \"x.wav\": check its name.");
    EXPECT_EQ(messages::NoSound("x.txt"),
              "\"x.txt\" holds no sound that this system can decode: try a WAV, MP3 or FLAC file.");
    EXPECT_EQ(messages::NoSuchPicture("x.png"),
              "There is no picture \"x.png\": check the name behind --artwork.");
    EXPECT_EQ(messages::PictureTooLarge("x.png"),
              "The picture \"x.png\" is larger than 1 MiB: make it smaller.");
    EXPECT_EQ(messages::NoSuchVisualizer("x"), "There is no visualizer \"x\": see orvane-player --list.");
    EXPECT_EQ(messages::NoSuchMonitor(3), "There is no monitor 3: the window stays where it is.");
}

TEST(Messages, TellWhyThereIsNoHost) {
    struct Row {
        HostOpening opening;
        ExitCode exitCode;
        const char* text;
    };

    const Row rows[] = {
        { { HostStart::kFound, 0 }, kExitOk, "" },
        { { HostStart::kStarted, 0 }, kExitOk, "" },
        { { HostStart::kNoProgram, 0 },
          kExitHostNotFound,
          "There is no visualizer host: put orvane-visualizer.exe into the folder of orvane-player.exe." },
        { { HostStart::kNotStarted, 1260 },
          kExitHostNotFound,
          "The visualizer host can't be started (system error 1260): run orvane-visualizer.exe by hand." },
        { { HostStart::kNoPipe, 0 },
          kExitNoReply,
          "The visualizer host was started and doesn't answer: see what orvane-visualizer.exe -c says." },
        { { HostStart::kForeignServer, 0 },
          kExitSystem,
          "Another program answers in the visualizer host's place: close it, then try again." },
        { { HostStart::kPipeBusy, 231 },
          kExitPipeBusy,
          "The visualizer host serves another player: close that player, then try again." },
        { { HostStart::kSystem, 5 },
          kExitSystem,
          "The visualizer host can't be reached (system error 5): end orvane-visualizer.exe, then try "
          "again." },
    };
    for (const Row& row : rows) {
        EXPECT_EQ(ExplainOpening(row.opening), row.text);
        EXPECT_EQ(ExitCodeOf(row.opening), row.exitCode) << row.text;
    }
}

} // namespace
} // namespace orvane::player
