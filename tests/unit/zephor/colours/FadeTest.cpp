#include "ManagerFixture.h"

#include <cmath>

namespace orvane::zephor {
namespace {

constexpr std::int32_t kSlotOfMap16 = 0, kSlotOfMap18 = 2, kSlotOfTable0 = 7;

// `level` of 255 parts of the old channel and the rest of the new one, to the nearest. It's never halfway.
int Rounded(int from, int to, int level) {
    return int(std::lround((from * level + to * (255 - level)) / 255.0));
}

// The same as tables with a buffer have it: d is the difference's part and a half, and d + d / 256 is divided by
// 256, both rounded down. That's the nearest but for a few rising channels, which get half and a hair more.
int Blended(int from, int to, int level) {
    const double d = (from - to) * level + 128;
    return int(to + std::floor((std::floor(d / 256) + d) / 256));
}

class Fade : public ManagerTest {
protected:
    Fade() {
        GiveBuffer();
        for (std::size_t i = 0; i < kColourEntries; ++i)
            mClut.table[i] = PackColour({ std::uint8_t(i), std::uint8_t(255 - i), 40 });
    }

    // What entry i shows, as its table, its floats and the last upload say.
    ColourBytes Shown(std::size_t i) {
        const ColourBytes bytes = UnpackColour(mClut.table[i]);
        for (std::size_t c = 0; c < 3; ++c) {
            EXPECT_EQ(mClut.floatTable[i][c], float(bytes[c]) * 0.003921569f);
            EXPECT_EQ(mUploads.back()[i][c], mClut.floatTable[i][c]);
        }
        EXPECT_EQ(mUploads.back()[i][3], 1.0f);
        return bytes;
    }
};

TEST_F(Fade, TheFrameOfTheLoadLeavesTheTableAsItIsAndTheFadeShowsFromTheNextOn) {
    const auto before = mClut.table;
    Choose(kSlotOfMap16); // (16, 116, 7)
    Step();
    EXPECT_EQ(mClut.table, before);
    EXPECT_EQ(mUploads.size(), 1u);
    EXPECT_EQ(mClut.newTable[0], (ColourBytes{ 16, 116, 7 }));
    EXPECT_EQ(mClut.oldTable[200], (ColourBytes{ 200, 55, 40 }));
    EXPECT_EQ(Shown(200), (ColourBytes{ 200, 55, 40 }));
    Step();
    EXPECT_NE(mClut.table, before);
    EXPECT_EQ(mUploads.size(), 2u);
    // Level 252: 200 - 184 * 3 / 255 = 197.8; 55 + 61 * 3 / 255 = 55.7; 40 - 33 * 3 / 255 = 39.6.
    EXPECT_EQ(Shown(200), (ColourBytes{ 198, 56, 40 }));
}

TEST_F(Fade, RunsFromTheOldToTheNewTableByTheLevel) {
    Choose(kSlotOfMap16);
    Step();
    const ColourTable from = mClut.oldTable;
    while (mClut.fadeLevel != 0) {
        const int level = mClut.fadeLevel;
        mClut.StepColors(0);
        for (const std::size_t i : { 0u, 1u, 15u, 16u, 17u, 128u, 254u, 255u })
            for (std::size_t c = 0; c < 3; ++c)
                ASSERT_EQ(Shown(i)[c], Blended(from[i][c], ColourBytes{ 16, 116, 7 }[c], level))
                    << level << ", entry " << i;
        mClut.AdvanceFade(0);
    }
}

TEST_F(Fade, EveryPairOfChannelsBlendsToTheByteOfItsSum) {
    ColourTable from{}, to{};
    for (int newByte = 0; newByte < 256; newByte += 3) {
        for (std::size_t i = 0; i < kColourEntries; ++i) {
            from[i] = { std::uint8_t(i), std::uint8_t(255 - i), 0 };
            to[i] = { std::uint8_t(newByte), std::uint8_t(newByte), std::uint8_t(newByte) };
        }
        for (int level = 0; level <= 255; ++level) {
            mClut.fadeLevel = level;
            mClut.BlendStep(from, to);
            for (std::size_t i = 0; i < kColourEntries; ++i) {
                const ColourBytes shown = UnpackColour(mClut.table[i]);
                ASSERT_EQ(shown, (ColourBytes{ std::uint8_t(Blended(int(i), newByte, level)),
                                               std::uint8_t(Blended(255 - int(i), newByte, level)),
                                               std::uint8_t(Blended(0, newByte, level)) }))
                    << newByte << " level " << level << " entry " << i;
                ASSERT_LT(std::abs(shown[0] - (newByte + (int(i) - newByte) * level / 255.0)), 0.51);
            }
            mUploads.clear();
        }
    }
}

TEST_F(Fade, TheFirstTakes85FramesAndAllOthers255) {
    mClut.changePeriod = 17.0;
    for (const int expected : { 85, 255, 255 }) {
        Choose(kSlotOfMap16);
        int frames = 0;
        for (; mClut.fadeLevel != 0; ++frames) Step(100.0 + frames);
        EXPECT_EQ(frames, expected);
        EXPECT_EQ(mClut.fadeStep, 1);
        EXPECT_EQ(mClut.changeTime, 100.0 + frames - 1 + 17.0); // from the fade's last frame
    }
}

TEST_F(Fade, AForcedRequestDuringAFadeRestartsAt255WithTheTableAsItStands) {
    Choose(kSlotOfMap16);
    for (int frame = 0; frame < 40; ++frame) Step();
    const auto midway = mClut.table;
    ASSERT_NE(UnpackColour(midway[200])[0], 200);
    ASSERT_NE(UnpackColour(midway[200])[0], 16);
    mClut.request = 2; // preset row 0: slot 2
    mClut.SelectColorMap(0.0, 17, 1);
    EXPECT_EQ(mClut.fadeLevel, 255);
    Step();
    EXPECT_EQ(mClut.table, midway);
    for (std::size_t i = 0; i < kColourEntries; ++i)
        ASSERT_EQ(mClut.oldTable[i], UnpackColour(midway[i])) << i;
    EXPECT_EQ(mClut.newTable[200], (ColourBytes{ 18, 118, 7 }));
}

TEST_F(Fade, AtRestAStepDoesNothing) {
    mClut.changeTime = 5.0;
    Step(100.0);
    EXPECT_TRUE(mUploads.empty());
    EXPECT_EQ(mClut.fadeLevel, 0);
    EXPECT_EQ(mClut.fadeStep, 3);
    EXPECT_EQ(mClut.changeTime, 5.0);
}

TEST_F(Fade, AFixedTableIsCopiedAndNothingIsUploadedOnTheFrameOfTheLoad) {
    const auto before = mClut.table;
    Choose(kSlotOfTable0);
    Step();
    EXPECT_EQ(mClut.newTable, mFixed[0]);
    EXPECT_EQ(mClut.oldTable[200], (ColourBytes{ 200, 55, 40 }));
    EXPECT_EQ(mClut.table, before);
    EXPECT_TRUE(mUploads.empty());
    Step();
    EXPECT_EQ(mUploads.size(), 1u);
    // Level 252: 200 - 200 * 3 / 255 = 197.6; 55 + 145 * 3 / 255 = 56.7; 40 + 15 * 3 / 255 = 40.2.
    EXPECT_EQ(Shown(200), (ColourBytes{ 198, 57, 40 }));
}

TEST_F(Fade, AFixedTableHasNoNameAndAComputedMapItsOwn) {
    Choose(kSlotOfMap16);
    Step();
    EXPECT_EQ(mClut.MapName(), "map 16");
    Choose(kSlotOfTable0);
    Step();
    EXPECT_EQ(mClut.MapName(), "");
    EXPECT_EQ(mClut.proc, nullptr);
}

TEST_F(Fade, TheMapIsResetToTheClockBeforeItIsLoaded) {
    Choose(kSlotOfMap18);
    Step(1234.5);
    EXPECT_EQ(mComputed[18]->time, 1234.5f);
    Step(1300.0);
    EXPECT_EQ(mComputed[18]->time, 1234.5f) << "a table is a still picture";
}

TEST_F(Fade, ASliceCountOfTwoGivesTwoHalvesAndTheSecondRestartsItsValue) {
    Choose(kSlotOfMap16);
    Step();
    const std::vector<float>& values = mComputed[16]->values;
    ASSERT_EQ(values.size(), 256u);
    EXPECT_EQ(values[0], 0.0f);
    EXPECT_EQ(values[128], 128.0f / 255.0f);
    float first = 0.0f, second = 128.0f / 255.0f;
    for (std::size_t i = 0; i < 128; ++i, first += 0.003921569f, second += 0.003921569f) {
        ASSERT_EQ(values[i], first) << i;
        ASSERT_EQ(values[128 + i], second) << i;
    }
}

TEST_F(Fade, TheLastEntryIsTakenWithAnAccumulatedValue) {
    mClut.sliceCount = 1;
    Choose(kSlotOfMap16);
    Step();
    EXPECT_EQ(mUploads.size(), 1u);
    const std::vector<float>& values = mComputed[16]->values;
    ASSERT_EQ(values.size(), 256u);
    float value = 0.0f;
    int strayed = 0; // from the quotient
    for (std::size_t i = 0; i < 256; ++i, value += 0.003921569f) {
        ASSERT_EQ(values[i], value) << i;
        strayed += values[i] != float(i) / 255.0f;
    }
    EXPECT_GT(strayed, 0);
    EXPECT_NEAR(values[255], 255 * 0.003921569, 1e-6);
}

TEST_F(Fade, WithoutABufferTheTableFadesInIntegersAndNothingIsUploaded) {
    mClut.clutBuffer = nullptr;
    Choose(kSlotOfTable0);
    Step();
    for (int frame = 0; mClut.fadeLevel != 0; ++frame) {
        const int level = mClut.fadeLevel;
        Step();
        for (const std::size_t i : { 0u, 77u, 200u, 255u })
            for (std::size_t c = 0; c < 3; ++c)
                ASSERT_EQ(UnpackColour(mClut.table[i])[c],
                          Rounded(mClut.oldTable[i][c], mFixed[0][i][c], level))
                    << level;
    }
    EXPECT_TRUE(mUploads.empty());
    EXPECT_EQ(mClut.floatTable, Floats{});
}

TEST_F(Fade, WithoutABufferAComputedMapIsResetButNotLoaded) {
    mClut.clutBuffer = nullptr;
    Choose(kSlotOfMap16);
    Step(9.0);
    EXPECT_EQ(mComputed[16]->time, 9.0f);
    EXPECT_TRUE(mComputed[16]->values.empty());
    EXPECT_EQ(mClut.newTable, ColourTable{});
    EXPECT_EQ(mClut.MapName(), "map 16");
}

TEST_F(Fade, AnIdWithoutAMapLeavesTheTablesAsTheyAre) {
    const ColourMaps none({});
    WCLUTManager clut(none);
    clut.fadeLevel = kFadeStart;
    clut.StepColors(0);
    EXPECT_EQ(clut.newTable, ColourTable{});
    EXPECT_EQ(clut.proc, nullptr);
}

} // namespace
} // namespace orvane::zephor
