// Writes the seeds of fuzz_request into the folder that is given: requests as a player sends them, and a few
// that are nearly so.
#include "SeedFolder.h"
#include "records/AudioRenderData.h"
#include "support/Wire.h"

namespace {

using namespace orvane::tests;

struct RequestSeed {
    const char* name;
    Bytes request;
};

WireBuilder Tag(const char* tag) {
    return WireBuilder().Raw(tag);
}

// A track whose texts are all empty but its name, to leave room for changes.
Bytes ShortTrackBlock() {
    WireBuilder block;
    block.Raw("FNIT").Zeros(8).String(u"Song");
    for (int i = 0; i < 7; ++i) block.String(u"");
    block.Zeros(4 + 4 + 2 + 2 + 11 * 4).String(u"").Zeros(2 + 3 * 2 + 2 * 4 + 2 * 2);
    block.String(u"").F32(1).String(u"").U64(2).Raw("MFUA").Zeros(9 * 4).U32(0).U32(0);
    return block.Get();
}

Bytes Pulse(std::uint32_t stamp) {
    using orvane::records::kSamplesPerChannel;
    WireBuilder pulse = Tag("PULS");
    pulse.U32(stamp).U32(1000);
    for (const std::uint8_t level : { orvane::records::kWaveformSilence, std::uint8_t(8) }) {
        pulse.U8(2);
        for (std::size_t i = 0; i < 2 * kSamplesPerChannel; ++i) pulse.U8(level);
    }
    return pulse.Get();
}

Bytes Cut(const Bytes& request, std::size_t length) {
    return { request.begin(), request.begin() + std::ptrdiff_t(length) };
}

std::vector<RequestSeed> Seeds() {
    const std::string track = AsText(SampleTrackBlock()), shortTrack = AsText(ShortTrackBlock());
    const Bytes start = Tag("STRT").Raw(track).Get();
    std::vector<RequestSeed> seeds = {
        { "upvm-groups", Tag("UPVM")
                             .Raw("Q\x03<Cycle camera><C><Help><?><Orvane Visualizer><>"
                                  "Z\x02<Next><N><Orvane Classic Visualizer><>")
                             .Get() },
        { "upvm-count-0", Tag("UPVM").Raw({ "Z\0<a><b><c><d", 14 }).Get() },
        { "upvm-two-of-a-letter", Tag("UPVM").Raw("Q\x01<a><b>Q\x02<c><d>").Get() },
        { "upvm-long-key", Tag("UPVM").Raw("Q\x01<").Raw(std::string(300, 'k')).Raw("><123456789>").Get() },
        { "upvm-beyond-ascii", Tag("UPVM").Raw("Z\x01<\xC3\x84ndern \xF0\x9F\x8E\xB5><\xC3\x84>").Get() },
        { "puls-audio", Pulse(1) },
        { "puls-no-audio", Tag("PULS").U32(0).U32(0).Get() },
        { "puls-close", Tag("PULS").U32(1).U32(0).Get() },
        { "puls-track", Tag("PULS").U32(2).U32(0).Get() },
        { "puls-key", Tag("PULS").U32(8).U32(0).Get() },
        { "keyi-two", Tag("KEYI").U32(1).U32(2).Raw("ab").Get() },
        { "swsv-name", Tag("SWSV").String(u"Orvane Visualizer").U8(0).Get() },
        { "swsv-track", Tag("SWSV").String(u"Zephor").U8(1).Raw("TALF").Raw(shortTrack).Get() },
        { "swsv-no-marker", Tag("SWSV").String(u"Zephor").U8(1).Raw("FLAT").Raw(shortTrack).Get() },
        { "swsv-empty-name", Tag("SWSV").String(u"").U8(0).Get() },
        { "swsv-256-units", Tag("SWSV").Raw(" RTS").U16(256).Zeros(512).Get() },
        { "pm2c-text", Tag("PM2C").Raw({ "hello\n", 7 }).Get() },
        { "strt-track", start },
        { "strt-short", Tag("STRT").Raw(shortTrack).Get() },
        { "strt-cut", Cut(start, start.size() / 2) },
        { "strt-no-track-key", Tag("STRT").Raw("xxxxMFUA").Zeros(44).Get() },
        { "strt-no-keys", Tag("STRT").Zeros(16).Get() },
        { "rshp-values", Tag("RSHP").U32(1).U32(2).U32(640).U32(480).Get() },
        { "actv-name", Tag("ACTV").String(u"Orvane Classic Visualizer").Get() },
        { "ar13-image", Tag("AR13").Raw("\xFF\xD8\xFF\xE0 and so on").Get() },
        { "ar14-image", Tag("AR14").Raw("\x89PNG and so on").Get() },
        { "unknown", Tag("ABCD").Get() },
        { "three-bytes", Tag("PUL").Get() },
        { "empty", {} },
    };
    for (const char* tag : { "UPVM", "PULS", "KEYI", "SWND", "SWSV", "HWND", "NTFS", "XTFS", "PM2C", "DCTV",
                             "STRT", "DRAW", "IDLE", "STOP", "MOVW", "RSHP", "ACTV", "NOAR", "AR13", "AR14" })
        seeds.push_back({ tag, Tag(tag).Get() });
    return seeds;
}

} // namespace

int main(int count, char** arguments) {
    std::vector<orvane::fuzz::Seed> seeds;
    for (const auto& seed : Seeds()) seeds.push_back({ seed.name, AsText(seed.request) });
    return orvane::fuzz::WriteSeeds(count, arguments, seeds);
}
