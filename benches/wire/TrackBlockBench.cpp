// A track block into its record: one of everyday texts, and one whose every text is full.
#include "shell/protocol/TrackBlock.h"

#include "SameAnswer.h"
#include "support/Wire.h"

#include <benchmark/benchmark.h>

#include <string>

namespace {

using namespace orvane;
using benches::RequireSameAnswer;
using tests::Bytes;

Bytes FullTrackBlock() {
    const std::u16string full(255, u'x');
    tests::WireBuilder block;
    block.Raw("FNIT").Zeros(8);
    for (int i = 0; i < 8; ++i) block.String(full);
    block.Zeros(4 + 4 + 2 + 2 + 11 * 4).String(full).Zeros(2 + 3 * 2 + 2 * 4 + 2 * 2);
    block.String(full).F32(0).String(full).U64(0).Raw("MFUA").Zeros(9 * 4).U32(0).U32(7);
    return block.Get();
}

void ParseTrackBlock(benchmark::State& state, const Bytes& block, std::uint32_t lastValue) {
    const records::TrackParamRef track = records::MakeTrackParam();
    shell::BufferReader reader = { block.data(), block.size(), 0 };
    RequireSameAnswer(shell::ParseTrackBlock(reader, *track) && track->mTrackStartB == lastValue &&
                          reader.Remaining() == 0,
                      "track block");
    for ([[maybe_unused]] auto _ : state) {
        reader.mPosition = 0;
        benchmark::DoNotOptimize(shell::ParseTrackBlock(reader, *track));
        benchmark::ClobberMemory();
    }
    state.SetBytesProcessed(state.iterations() * std::int64_t(block.size()));
}

BENCHMARK_CAPTURE(ParseTrackBlock, everyday, tests::SampleTrackBlock(), 0x1030);
BENCHMARK_CAPTURE(ParseTrackBlock, full, FullTrackBlock(), 7);

} // namespace
