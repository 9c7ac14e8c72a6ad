// Localized strings that are cut off, miscounted, too long or far too many, over the real pipe.
#include "system/HostUsage.h"
#include "system/plugins/PluginsTest.h"
#include "system/plugins/host/TestHost.h"

#include <cstdio>

namespace orvane::tests {
namespace {

constexpr char kNoStrings[] = "No localized strings to park with Quellspire.\n";
constexpr std::size_t kQuellspire = 0; // places in the list of a host with built-ins
constexpr std::size_t kZephor = 1;

class LocalizedStrings : public PluginsTest {
protected:
    void SetUp() override {
        ASSERT_NO_FATAL_FAILURE(PluginsTest::SetUp());
        ASSERT_NO_FATAL_FAILURE(ServeTestHost(kBuiltInsArgument));
    }

    // The titles of the two built-ins, after a request with that payload.
    std::pair<std::u16string, std::u16string> TitlesAfter(std::string_view payload) {
        const auto reply = mClient.Exchange(WireBuilder().Raw("UPVM").Raw(payload).Get(), kPatience);
        const auto list = player::DecodePluginList(reply.bytes);
        EXPECT_TRUE(list.whole);
        if (list.plugins.size() != 2) return {};
        return { list.plugins[kQuellspire].displayName, list.plugins[kZephor].displayName };
    }

    using Titles = std::pair<std::u16string, std::u16string>;
};

TEST_F(LocalizedStrings, AreTakenAsFarAsTheyAreWholeAtEveryLength) {
    // A text, and the title that stands from its end on; the built-in whose it is.
    struct Piece {
        std::string bytes;
        std::size_t whose;
        std::u16string title;
    };

    std::vector<Piece> pieces = { { "junk in front ", kQuellspire, u"" }, { "Q\x12", kQuellspire, u"" } };
    for (int i = 0; i < 18; ++i)
        pieces.push_back({ "<Help " + std::string(1, char('a' + i)) + "> is on key <" + char('A' + i) + ">",
                           kQuellspire, u"Help " + std::u16string(1, char16_t(u'a' + i)) });
    pieces.push_back({ "Z\x02", kZephor, u"" });
    pieces.push_back({ "<H\xC3\xB6he><h>", kZephor, u"H\u00F6he" });
    pieces.push_back({ "<Zephor's title><>", kZephor, u"Zephor's title" });
    pieces.push_back({ " and behind", kZephor, u"Zephor's title" });

    std::string payload;
    std::u16string titles[2];
    int without = 0; // requests without a whole string for Quellspire
    std::size_t lengths = 0;
    for (const auto& piece : pieces) {
        for (std::size_t taken = 0; taken < piece.bytes.size(); ++taken, ++lengths) {
            ASSERT_EQ(TitlesAfter(payload + piece.bytes.substr(0, taken)), Titles(titles[0], titles[1]))
                << payload.size() + taken;
            without += titles[kQuellspire].empty() ? 1 : 0;
        }
        payload += piece.bytes;
        if (!piece.title.empty()) titles[piece.whose] = piece.title;
    }
    EXPECT_GT(lengths, 400u);
    EXPECT_EQ(TitlesAfter(payload), Titles(u"Help r", u"Zephor's title"));
    EXPECT_EQ(Count(QuitAndRead(), kNoStrings), without);
}

TEST_F(LocalizedStrings, AnEmptyPayloadLeavesTheNamesAndHasALineForEachParticlePlugIn) {
    EXPECT_EQ(TitlesAfter("Q\x01<One><>Z\x01<Two><>"), Titles(u"One", u"Two"));
    EXPECT_EQ(TitlesAfter(""), Titles(u"One", u"Two"));
    ASSERT_NO_FATAL_FAILURE(Reconnect()); // two of each now
    EXPECT_EQ(List().plugins.size(), 4u);
    EXPECT_EQ(Count(QuitAndRead(), kNoStrings), 1 + 2);
}

TEST_F(LocalizedStrings, ACountOf0RunsToTheEndOfTheRequest) {
    const std::string_view payload("Z\0<One><>Q\1<Two><>", 18);
    EXPECT_EQ(TitlesAfter(payload), Titles(u"", u"Two")) << "the letter is passed over inside the group";
}

TEST_F(LocalizedStrings, ACountOf255TakesWhatIsThereAndNoMoreThanThat) {
    EXPECT_EQ(TitlesAfter("Z\xFF<One><><Two><>Q\x01<Three><>"), Titles(u"", u"Three"));
    std::string full = "Z\xFF";
    for (int i = 0; i < 255; ++i) full.append("<").append(std::to_string(i)).append("><>");
    EXPECT_EQ(TitlesAfter(full + "Q\x01<Behind><>"), Titles(u"Behind", u"254"));
}

TEST_F(LocalizedStrings, AKeyOf300BytesKeepsItsLast44InFrontAndTheMiddleOfItInTheRest) {
    std::string key;
    std::u16string title;
    for (int i = 0; i < 300; ++i) key += char('a' + i % 26);
    for (int i = 0; i < 255; ++i) title += char16_t(key[std::size_t(i < 44 ? i + 256 : i)]);
    EXPECT_EQ(TitlesAfter("Z\x01<" + key + "><>"), Titles(u"", title));
    const std::string value(100'000, 'v');
    EXPECT_EQ(TitlesAfter("Z\x01<short><" + value + ">"), Titles(u"", u"short"));
    EXPECT_EQ(TitlesAfter("Z\x01<" + std::string(1'000'000, 'k') + "><>"),
              Titles(u"", std::u16string(255, u'k')));
}

// What a whole megabyte may cost: the memory that the system counts, and the processor's own time, so that other
// programs' hunger doesn't show.
class Megabyte : public PluginsTest, public testing::WithParamInterface<const char*> {};

TEST_P(Megabyte, OfEmptyEntriesTakesLessThanTwoSecondsAnd300Megabytes) {
    constexpr std::size_t kLongestRequest = 1 << 20;
    constexpr std::size_t kMostMemory = 300 << 20;
    constexpr double kMostSeconds = 2;
    const std::string argument = "--usage-" + std::to_string(GetCurrentProcessId());
    ASSERT_NO_FATAL_FAILURE(ServeTestHost(std::wstring(kBuiltInsArgument) + L" " +
                                          std::wstring(argument.begin(), argument.end())));
    const HostUsage usage(*mHost, argument);
    std::string payload = std::string(GetParam()) + '\0';
    while (payload.size() + 8 <= kLongestRequest) payload += "<><>";
    const Bytes request = WireBuilder().Raw("UPVM").Raw(payload).Get();

    const std::size_t before = usage.MostMemoryBytes();
    const double start = usage.ProcessorSeconds();
    const auto reply = mClient.Exchange(request, kPatience);
    const double seconds = usage.ProcessorSeconds() - start;
    const std::size_t grown = usage.MostMemoryBytes() - before;
    ASSERT_GT(before, 0u);
    EXPECT_TRUE(player::DecodePluginList(reply.bytes).whole);
    EXPECT_LT(seconds, kMostSeconds);
    EXPECT_LT(grown, kMostMemory);
    std::printf("%zu bytes of %s: %.2f s of processor time, memory grew from %zu by %zu KiB\n",
                request.size(), GetParam(), seconds, before / 1024, grown / 1024);
    EXPECT_EQ(List().plugins.size(), 2u) << "the next request is served";
}

INSTANTIATE_TEST_SUITE_P(Groups, Megabyte, testing::Values("Q", "Z"),
                         [](const auto& row) { return std::string(row.param); });

} // namespace
} // namespace orvane::tests
