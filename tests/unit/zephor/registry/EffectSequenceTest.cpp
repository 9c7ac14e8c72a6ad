#include "zephor/registry/EffectSequence.h"

#include <gtest/gtest.h>

#include <array>
#include <cstdint>
#include <limits>
#include <memory>
#include <string>
#include <vector>

namespace orvane::zephor {
namespace {

// Names stand for waveforms; the lists have the lengths of the product's.
class Waveforms : public testing::Test {
protected:
    Waveforms() {
        for (int i = 0; i < 106; ++i) {
            mNames.push_back(std::make_unique<std::string>("waveform " + std::to_string(i)));
            (i < 3 ? mList1 : i < 7 ? mList2 : mList3).push_back(mNames.back().get());
        }
    }

    [[nodiscard]] WaveformSequence<std::string> All() const {
        return WaveformSequence<std::string>({ mList1, mList2, mList3 });
    }

    std::vector<std::unique_ptr<std::string>> mNames;
    std::vector<std::string*> mList1, mList2, mList3;
};

TEST_F(Waveforms, AnEntrysPositionInTheConcatenationIsStable) {
    EXPECT_EQ(ResolveWaveform(All(), 0), mList1[0]);
    EXPECT_EQ(ResolveWaveform(All(), 2), mList1[2]);
    EXPECT_EQ(ResolveWaveform(All(), 3), mList2[0]);
    EXPECT_EQ(ResolveWaveform(All(), 6), mList2[3]);
    EXPECT_EQ(ResolveWaveform(All(), 7), mList3[0]);
    EXPECT_EQ(ResolveWaveform(All(), 105), mList3[98]);
}

TEST_F(Waveforms, AListThatGrowsAtItsEndMovesTheListsBehindIt) {
    std::string added = "added";
    mList3.push_back(&added);
    EXPECT_EQ(ResolveWaveform(All(), 105), mNames[105].get());
    EXPECT_EQ(ResolveWaveform(All(), 106), &added);
    mList1.push_back(&added);
    EXPECT_EQ(ResolveWaveform(All(), 3), &added);
    EXPECT_EQ(ResolveWaveform(All(), 4), mList2[0]);
}

TEST_F(Waveforms, NegativeIndicesAndThosePastTheEndResolveToNothing) {
    for (const std::int32_t index : { -1, -10, std::numeric_limits<std::int32_t>::min(), 106, 107,
                                      std::numeric_limits<std::int32_t>::max() })
        EXPECT_EQ(ResolveWaveform(All(), index), nullptr) << index;
}

TEST_F(Waveforms, AnOverlaysIndexFallsBackToTheFirstOfListOne) {
    EXPECT_EQ(ResolveOverlayWaveform(All(), 105), mList3[98]);
    EXPECT_EQ(ResolveOverlayWaveform(All(), 106), mList1[0]);
    EXPECT_EQ(ResolveOverlayWaveform(All(), -1), mList1[0]);
}

TEST_F(Waveforms, WithoutAnyWaveformNothingIsRead) {
    const WaveformSequence<std::string> none({});
    EXPECT_EQ(ResolveWaveform(none, 0), nullptr);
    EXPECT_EQ(ResolveOverlayWaveform(none, 0), nullptr);
}

TEST_F(Waveforms, EmptyListsInBetweenTakeNoIndex) {
    const WaveformSequence<std::string> sequence({ mList1, {}, mList3 });
    EXPECT_EQ(ResolveWaveform(sequence, 3), mList3[0]);
    EXPECT_EQ(sequence.ListLengths(), (std::array<std::size_t, 3>{ 3, 0, 99 }));
}

template <int Value>
std::unique_ptr<int> Make() {
    return std::make_unique<int>(Value);
}

TEST(ResolveDelta, CountsThroughTheFourListsAndGivesNothingPastTheEnd) {
    constexpr FactoryOf<int> kList1[] = { Make<10>, Make<11> }, kList2[] = { Make<20> },
                             kList3[] = { Make<30> }, kList4[] = { Make<40>, Make<41> };
    const DeltaSequence<int> deltas({ kList1, kList2, kList3, kList4 });
    const int expected[] = { 10, 11, 20, 30, 40, 41 };
    for (std::size_t i = 0; i < std::size(expected); ++i) {
        const FactoryOf<int> make = ResolveDelta(deltas, i);
        ASSERT_NE(make, nullptr) << i;
        EXPECT_EQ(*make(), expected[i]);
    }
    EXPECT_EQ(ResolveDelta(deltas, 6), nullptr);
    EXPECT_EQ(ResolveDelta(deltas, std::numeric_limits<std::size_t>::max()), nullptr);
}

} // namespace
} // namespace orvane::zephor
