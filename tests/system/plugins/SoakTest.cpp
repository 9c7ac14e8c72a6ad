// Both threads of a host at once, for a long time: pulses on the service thread, drawing, artwork, tracks and stops
// on the main thread. The environment variable ORVANE_SOAK=1 asks for the long form.
#include "Counts.h"
#include "records/AudioRenderData.h"
#include "system/UsageByTenths.h"
#include "system/plugins/PluginsTest.h"

#include <cstdio>
#include <cstdlib>

namespace orvane::tests {
namespace {

using Kind = ModuleCall::Kind;

constexpr int kSamplesInTenth = 20;
constexpr std::size_t kImageBytes = 20'000;

int Pulses() {
    const char* wish = std::getenv("ORVANE_SOAK");
    return wish && std::string_view(wish) == "1" ? 100'000 : 5'000;
}

// What goes to the main thread among the pulses: one of its kind behind every so many of them. The spacings have
// no common factor, so that all orders of any two come about.
struct MixedIn {
    int every; // pulses
    std::uint32_t message;
    const char* reply;
    Bytes request;
};

std::vector<MixedIn> MixedInRequests() {
    return {
        { 3, ORVANE_MSG_DRAW, "OK", WireBuilder().Raw("DRAW").Get() },
        { 17, ORVANE_MSG_IDLE, "OK", WireBuilder().Raw("IDLE").Get() },
        { 49, ORVANE_MSG_ARTWORK, "OK", WireBuilder().Raw("AR13").Zeros(kImageBytes).Get() },
        { 50, ORVANE_MSG_ARTWORK, "OK", WireBuilder().Raw("AR14").Zeros(kImageBytes / 3).Get() },
        { 101, ORVANE_MSG_PLAY, "Start", SampleStartRequest() },
        { 103, ORVANE_MSG_STOP, "OK", WireBuilder().Raw("STOP").Get() },
    };
}

class PluginSoak : public PluginsTest {
protected:
    void SetUp() override {
        ASSERT_NO_FATAL_FAILURE(PluginsTest::SetUp());
        mFolders.Lay(Folder::kRoamingData, "counter");
        const std::string argument = "--usage-" + std::to_string(GetCurrentProcessId());
        ASSERT_NO_FATAL_FAILURE(ServeTestHost(std::wstring(argument.begin(), argument.end())));
        mUsage.emplace(*mHost, argument);
        ASSERT_EQ(AskAndSettle(ActivateRequest(u"counter")), "PRXY");
    }

    // The sound of a pulse begins and ends with its stamp's lowest byte, by which the module knows it.
    [[nodiscard]] static Bytes Pulse(std::uint32_t stamp) {
        const auto low = std::uint8_t(stamp);
        return WireBuilder()
            .Raw("PULS")
            .U32(stamp)
            .U32(stamp * 16)
            .U8(2)
            .U8(low)
            .Zeros(sizeof(records::AudioRenderData) - 3)
            .U8(low)
            .Get();
    }

    // What the module counted, once it has been deactivated.
    [[nodiscard]] CountsRecord Counts() const {
        CountsRecord counts = {};
        const auto calls = CallsOf(Calls(), Kind::Handler, ORVANE_MSG_DEACTIVATE);
        EXPECT_EQ(calls.size(), 1u);
        if (calls.size() == 1 && calls[0].data && calls[0].data->size() == sizeof(counts))
            std::memcpy(&counts, calls[0].data->data(), sizeof(counts));
        return counts;
    }

    std::optional<HostUsage> mUsage;
};

TEST_F(PluginSoak, BothThreadsAtOnceLoseNothingAndTakeNothing) {
    const int pulses = Pulses();
    const int sampleEvery = pulses / (kTenths * kSamplesInTenth);
    const auto mixedIn = MixedInRequests();
    const std::string nothingToTell(4, '\0');
    std::uint32_t sent[std::size(kCountedMessages)] = {};
    UsageByTenths usage(*mUsage);
    for (int i = 0; i < pulses; ++i) {
        for (const auto& request : mixedIn) {
            if (i % request.every != 0) continue;
            ASSERT_EQ(Ask(request.request), request.reply) << i;
            ++sent[IndexOfCount(request.message)];
        }
        ASSERT_EQ(Ask(Pulse(std::uint32_t(i) + 1)), nothingToTell) << i;
        if (i % sampleEvery == 0) usage.Sample(i * kTenths / pulses);
    }
    ASSERT_EQ(AskAndSettle(WireBuilder().Raw("DCTV").Get()), "OK");

    usage.Print();
    ASSERT_NO_FATAL_FAILURE(usage.ExpectFlat());

    // Every request reached the module once. A track that a stop overtook is said so and not played.
    const std::string text = mHost->Text();
    const auto tracks = sent[IndexOfCount(ORVANE_MSG_PLAY)];
    const auto notPlayed = std::uint32_t(Count(text, "Cannot Start track\n"));
    EXPECT_EQ(Count(text, "PluginPipeServer::StartVisualizerWithTrackParam called\n"), int(tracks));
    EXPECT_EQ(Count(text, "Could not post"), 0);
    const CountsRecord counts = Counts();
    sent[IndexOfCount(ORVANE_MSG_PULSE)] = std::uint32_t(pulses);
    sent[IndexOfCount(ORVANE_MSG_DRAW)] += std::uint32_t(pulses); // one behind each pulse
    sent[IndexOfCount(ORVANE_MSG_PLAY)] = tracks - notPlayed;
    for (const std::uint32_t message : { ORVANE_MSG_PULSE, ORVANE_MSG_DRAW, ORVANE_MSG_IDLE,
                                         ORVANE_MSG_ARTWORK, ORVANE_MSG_PLAY, ORVANE_MSG_STOP })
        EXPECT_EQ(counts.of[IndexOfCount(message)], sent[IndexOfCount(message)]) << std::hex << message;
    EXPECT_EQ(counts.foreignSound, 0u);
    std::printf("%d pulses, %u draws, %u images, %u tracks of which %u were stopped before they started\n",
                pulses, sent[IndexOfCount(ORVANE_MSG_DRAW)], sent[IndexOfCount(ORVANE_MSG_ARTWORK)], tracks,
                notPlayed);
}

} // namespace
} // namespace orvane::tests
