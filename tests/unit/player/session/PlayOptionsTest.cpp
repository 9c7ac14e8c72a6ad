#include "player/session/PlayOptions.h"

#include <CLI/CLI.hpp>

#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <vector>

namespace orvane::player {
namespace {

using Words = std::vector<std::string>;

struct Parsed {
    PlayOptions options;
    std::string error; // empty: it was understood
};

Parsed Parse(Words words) {
    Parsed parsed;
    CLI::App app;
    AddPlayOptions(app, parsed.options);
    std::reverse(words.begin(), words.end()); // as the parser takes them
    try {
        app.parse(words);
    } catch (const CLI::Error& error) {
        parsed.error = error.what();
    }
    return parsed;
}

TEST(PlayOptions, NeedNothing) {
    const Parsed parsed = Parse({});
    EXPECT_EQ(parsed.error, "");
    EXPECT_EQ(parsed.options.songs, Words());
    EXPECT_EQ(parsed.options.seconds, std::nullopt);
    EXPECT_EQ(parsed.options.monitor, 0);
    EXPECT_EQ(LiveSourceOf(parsed.options), LiveSource::kNone);
    EXPECT_FALSE(parsed.options.list || parsed.options.fullScreen || parsed.options.silent);
}

TEST(PlayOptions, TakeEverything) {
    const Parsed parsed = Parse(
        { "a.wav",     "--visualizer", "classic",    "--full-screen", "--artwork", "x.png",   "--title",
          "T",         "--artist",     "A",          "--album",       "B",         "--start", "1.5",
          "--seconds", "2.25",         "--delay-ms", "-40",           "--monitor", "2",       "--silent",
          "b c.mp3" });
    EXPECT_EQ(parsed.error, "");
    EXPECT_EQ(parsed.options.songs, (Words{ "a.wav", "b c.mp3" }));
    EXPECT_EQ(parsed.options.visualizer, "classic");
    EXPECT_TRUE(parsed.options.fullScreen);
    EXPECT_EQ(parsed.options.artwork, "x.png");
    EXPECT_EQ(parsed.options.title, "T");
    EXPECT_EQ(parsed.options.artist, "A");
    EXPECT_EQ(parsed.options.album, "B");
    EXPECT_EQ(parsed.options.startSeconds, 1.5);
    EXPECT_EQ(parsed.options.seconds, 2.25);
    EXPECT_EQ(parsed.options.delayMilliseconds, -40);
    EXPECT_EQ(parsed.options.monitor, 2);
    EXPECT_TRUE(parsed.options.silent);
}

TEST(PlayOptions, KnowLiveSound) {
    EXPECT_EQ(LiveSourceOf(Parse({ "--live" }).options), LiveSource::kOutput);
    EXPECT_EQ(LiveSourceOf(Parse({ "--live", "output" }).options), LiveSource::kOutput);
    EXPECT_EQ(LiveSourceOf(Parse({ "--live", "input" }).options), LiveSource::kInput);
    const Parsed between = Parse({ "--live", "--seconds", "3" });
    EXPECT_EQ(between.error, "");
    EXPECT_EQ(LiveSourceOf(between.options), LiveSource::kOutput);
}

TEST(PlayOptions, RefuseWhatMakesNoSense) {
    for (const Words& words :
         { Words{ "--live", "song.wav" }, Words{ "song.wav", "--live" }, Words{ "--live", "--silent" },
           Words{ "--live", "--start", "3" }, Words{ "--seconds", "-1" }, Words{ "--seconds", "x" },
           Words{ "--start", "-0.5" }, Words{ "--monitor", "0" }, Words{ "--delay-ms", "2001" },
           Words{ "--delay-ms", "-251" }, Words{ "--title" }, Words{ "--nonsense" } })
        EXPECT_NE(Parse(words).error, "") << words.front() << " " << words.back();
}

} // namespace
} // namespace orvane::player
