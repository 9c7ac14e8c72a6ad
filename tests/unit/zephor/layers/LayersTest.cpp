// Sizes, cells and surfaces of the layers.
#include "zephor/layers/ZephorIndexLayer.h"
#include "zephor/layers/ZephorLayerNextDeltaField.h"
#include "zephor/layers/ZephorXYDeltaLayer.h"

#include "AllocationCount.h"
#include "LayerPixels.h"

#include "support/SlotOrder.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <vector>

namespace orvane::zephor {
namespace {

constexpr int kStorageKind = 5;

TEST(ZephorLayerSlots, TheOperationsStandInTheirOrder) {
    tests::ExpectSlotOrder(
        {
            ORVANE_SLOT(1, ZephorLayer, BeginDraw),
            ORVANE_SLOT(2, ZephorLayer, EndDraw),
            ORVANE_SLOT(3, ZephorLayer, Resize),
            ORVANE_SLOT(4, ZephorLayer, ResetToIdentity),
            ORVANE_SLOT(5, ZephorLayer, FillEllipse),
            ORVANE_SLOT(6, ZephorLayer, Reserved6),
            ORVANE_SLOT(7, ZephorLayer, StrokeRectangle),
            ORVANE_SLOT(8, ZephorLayer, SetFillColor),
            ORVANE_SLOT(9, ZephorLayer, SetStrokeColor),
            ORVANE_SLOT(10, ZephorLayer, StrokeEllipse),
            ORVANE_SLOT(11, ZephorLayer, DrawLines),
            ORVANE_SLOT(12, ZephorLayer, GetRowBytes),
            ORVANE_SLOT(13, ZephorLayer, AllocateSurface),
            ORVANE_SLOT(14, ZephorLayer, ComputeRowBytes),
            ORVANE_SLOT(15, ZephorLayerNextDeltaField, BlendInto),
        },
        0, 0);
}

// ---- Index layers.

TEST(ZephorIndexLayer, ASizeGivesABlackSurfaceOfIt) {
    ZephorIndexLayer layer(kStorageKind);
    EXPECT_EQ(layer.Surface(), nullptr);
    EXPECT_TRUE(layer.Resize(5, 3));
    ASSERT_NE(layer.Surface(), nullptr);
    const tests::LayerPixels pixels(layer);
    EXPECT_EQ(pixels.width, 5);
    EXPECT_EQ(pixels.height, 3);
    EXPECT_EQ(pixels.bytes, std::vector<std::uint8_t>(15, 0));
}

TEST(ZephorIndexLayer, ASideBelow1IsRefusedAndAnUnchangedSizeKeepsTheImage) {
    ZephorIndexLayer layer(kStorageKind);
    EXPECT_FALSE(layer.Resize(0, 3));
    EXPECT_FALSE(layer.Resize(3, 0));
    EXPECT_FALSE(layer.Resize(-1, 3));
    EXPECT_EQ(layer.Surface(), nullptr);
    ASSERT_TRUE(layer.Resize(4, 4));
    tests::SetLayerPixel(layer, 1, 2, 77);
    EXPECT_TRUE(layer.Resize(4, 4));
    EXPECT_EQ(tests::LayerPixels(layer).At(1, 2), 77);
}

TEST(ZephorIndexLayer, TheImageDoesNotSurviveAnotherSize) {
    ZephorIndexLayer layer(kStorageKind);
    ASSERT_TRUE(layer.Resize(4, 4));
    tests::SetLayerPixel(layer, 1, 2, 77);
    ASSERT_TRUE(layer.Resize(5, 4));
    EXPECT_EQ(tests::LayerPixels(layer).bytes, std::vector<std::uint8_t>(20, 0));
}

TEST(ZephorIndexLayer, WithoutASurfaceEveryDrawingOperationDoesNothing) {
    ZephorIndexLayer layer(kStorageKind);
    ASSERT_TRUE(layer.Resize(4, 4));
    bool hasResized = true;
    {
        const tests::NoMemory noMemory;
        hasResized = layer.Resize(6, 6);
    }
    EXPECT_FALSE(hasResized);
    EXPECT_EQ(layer.Surface(), nullptr);
    EXPECT_TRUE(layer.Resize(6, 6)); // the size is stored, and unchanged
    EXPECT_EQ(layer.Surface(), nullptr);
    const double rect[4] = { 0, 0, 3, 3 };
    const float grey[3] = { 1, 1, 1 };
    layer.BeginDraw();
    layer.FillEllipse(rect);
    layer.StrokeRectangle(rect);
    layer.StrokeEllipse(rect);
    layer.SetFillColor(grey);
    layer.SetStrokeColor(grey);
    layer.DrawLines(rect, 1, 1);
    layer.EndDraw();
    EXPECT_TRUE(layer.Resize(4, 4));
    EXPECT_EQ(tests::LayerPixels(layer).bytes, std::vector<std::uint8_t>(16, 0));
}

// On the coverage canvas a colour is its alpha, which a layer always gives as 1.
TEST(ZephorIndexLayer, DrawingReachesTheSurfaceOpaqueWhateverTheColour) {
    ZephorIndexLayer layer(kStorageKind);
    ASSERT_TRUE(layer.Resize(20, 12));
    const float dark[3] = { 0, 0, 0 };
    layer.BeginDraw();
    layer.SetStrokeColor(dark);
    layer.SetFillColor(dark);
    const double line[4] = { 0, 1.5, 20, 1.5 };
    layer.DrawLines(line, 1, 1);
    const double ellipse[4] = { 1, 4, 8, 8 };
    layer.FillEllipse(ellipse);
    const double frame[4] = { 12.5, 4.5, 6, 6 };
    layer.StrokeRectangle(frame);
    layer.EndDraw();
    const tests::LayerPixels pixels(layer);
    for (int x = 0; x < 20; ++x) {
        EXPECT_EQ(pixels.At(x, 0), 0);
        EXPECT_EQ(pixels.At(x, 1), 255);
        EXPECT_EQ(pixels.At(x, 2), 0);
    }
    EXPECT_EQ(pixels.At(4, 8), 255); // within the ellipse
    EXPECT_EQ(pixels.At(10, 8), 0);
    EXPECT_EQ(pixels.At(12, 7), 255); // the frame's left side
    EXPECT_EQ(pixels.At(15, 7), 0);   // and its inside
    const double ring[4] = { 12.5, 4.5, 6, 6 };
    layer.Resize(21, 12);
    layer.StrokeEllipse(ring);
    EXPECT_EQ(tests::LayerPixels(layer).At(15, 7), 0);
    EXPECT_GT(tests::LayerPixels(layer).At(12, 7), 200);
}

TEST(ZephorIndexLayer, RowBytesAreAPowerOfTwoFrom64UpOrPlainForKind4) {
    ZephorIndexLayer layer(kStorageKind);
    const int rows[][2] = { { 1, 64 }, { 64, 64 }, { 65, 128 }, { 1000, 1024 }, { 1024, 1024 }, { -5, 64 } };
    for (const auto& [width, rowBytes] : rows) {
        EXPECT_EQ(layer.ComputeRowBytes(width), rowBytes);
        EXPECT_EQ(layer.GetRowBytes(), rowBytes);
    }
    ZephorIndexLayer plain(ZephorIndexLayer::kPlainRows);
    EXPECT_EQ(plain.ComputeRowBytes(65), 65);
    EXPECT_EQ(plain.GetRowBytes(), 65);
}

// ---- Delta layers.

TEST(ZephorXYDeltaLayer, TheFirstCellsAreZerosOfEightBytesEach) {
    ZephorXYDeltaLayer layer(kStorageKind);
    EXPECT_EQ(layer.Field().cells, nullptr);
    EXPECT_EQ(layer.RowToWrite(0), nullptr);
    EXPECT_TRUE(layer.Resize(5, 3));
    EXPECT_EQ(layer.GetRowBytes(), 40);
    for (int y = 0; y <= 3; ++y) // the block has one row more than the field
        for (int x = 0; x < 5; ++x) {
            EXPECT_EQ(layer.RowToWrite(y)[x].x, 0);
            EXPECT_EQ(layer.RowToWrite(y)[x].y, 0);
        }
}

TEST(ZephorXYDeltaLayer, ASideBelow1IsRefusedAndAnUnchangedSizeIsTrueAtOnce) {
    ZephorXYDeltaLayer layer(kStorageKind);
    EXPECT_FALSE(layer.Resize(0, 1));
    EXPECT_FALSE(layer.Resize(1, -1));
    ASSERT_TRUE(layer.Resize(2, 2));
    const DeltaCell* const cells = layer.Field().cells;
    EXPECT_TRUE(layer.Resize(2, 2));
    EXPECT_EQ(layer.Field().cells, cells);
}

// Each cell holds where it stands.
void NameCells(ZephorXYDeltaLayer& layer) {
    for (int y = 0; y < layer.Height(); ++y)
        for (int x = 0; x < layer.Width(); ++x) layer.RowToWrite(y)[x] = { float(x), float(y) };
}

TEST(ZephorXYDeltaLayer, HalvingTheWidthKeepsEverySecondCellWithValuesOfTheOldWidth) {
    ZephorXYDeltaLayer layer(kStorageKind);
    ASSERT_TRUE(layer.Resize(8, 4));
    NameCells(layer);
    ASSERT_TRUE(layer.Resize(4, 4));
    EXPECT_EQ(layer.GetRowBytes(), 32);
    for (int y = 0; y < 4; ++y)
        for (int x = 0; x < 4; ++x) {
            EXPECT_EQ(layer.RowToWrite(y)[x].x, float(2 * x));
            EXPECT_EQ(layer.RowToWrite(y)[x].y, float(y));
        }
}

TEST(ZephorXYDeltaLayer, AResizeTakesTheCellBeforeEachPlaceIn16Point16FixedPoint) {
    ZephorXYDeltaLayer layer(kStorageKind);
    ASSERT_TRUE(layer.Resize(3, 3));
    NameCells(layer);
    ASSERT_TRUE(layer.Resize(7, 2));
    // Step 3 * 65536 / 7 = 28086: 0, 28086, 56172, 84258, 112344, 140430, 168516. Rows: 98304, so 0 and 1.
    const float columns[] = { 0, 0, 0, 1, 1, 2, 2 };
    for (int y = 0; y < 2; ++y)
        for (int x = 0; x < 7; ++x) {
            EXPECT_EQ(layer.RowToWrite(y)[x].x, columns[x]);
            EXPECT_EQ(layer.RowToWrite(y)[x].y, float(y));
        }
}

TEST(ZephorXYDeltaLayer, TheFixedPointStepIsRoundedDownSoACellCanComeOneColumnLate) {
    ZephorXYDeltaLayer layer(kStorageKind);
    ASSERT_TRUE(layer.Resize(1, 1));
    ASSERT_TRUE(layer.Resize(2, 1));
    NameCells(layer);
    ASSERT_TRUE(layer.Resize(6, 1));
    // Step 131072 / 6 = 21845; three of them make 65535, one short of the second cell.
    const float columns[] = { 0, 0, 0, 0, 1, 1 };
    for (int x = 0; x < 6; ++x) EXPECT_EQ(layer.RowToWrite(0)[x].x, columns[x]) << x;
}

TEST(ZephorXYDeltaLayer, AFailedResizeKeepsCellsAndSize) {
    ZephorXYDeltaLayer layer(kStorageKind);
    bool hasResized = true;
    {
        const tests::NoMemory noMemory;
        hasResized = layer.Resize(4, 4);
    }
    EXPECT_FALSE(hasResized);
    EXPECT_EQ(layer.Width(), 0);
    ASSERT_TRUE(layer.Resize(4, 4));
    NameCells(layer);
    {
        const tests::NoMemory noMemory;
        hasResized = layer.Resize(9, 9);
    }
    EXPECT_FALSE(hasResized);
    EXPECT_EQ(layer.Width(), 4);
    EXPECT_EQ(layer.Height(), 4);
    EXPECT_EQ(layer.GetRowBytes(), 32);
    EXPECT_EQ(layer.RowToWrite(3)[2].x, 2);
    EXPECT_FALSE(layer.Resize(INT32_MAX, 2)); // rows longer than an int tells
    EXPECT_EQ(layer.Width(), 4);
}

TEST(ZephorXYDeltaLayer, TheIdentityNamesEachCellAndAtTheLastColumnAndRowTheOneBefore) {
    ZephorXYDeltaLayer layer(kStorageKind);
    layer.ResetToIdentity(); // without cells
    ASSERT_TRUE(layer.Resize(4, 3));
    layer.ResetToIdentity();
    const float columns[] = { 0, 1, 2, 2 }, rows[] = { 0, 1, 1 };
    for (int y = 0; y < 3; ++y)
        for (int x = 0; x < 4; ++x) {
            EXPECT_EQ(layer.RowToWrite(y)[x].x, columns[x]);
            EXPECT_EQ(layer.RowToWrite(y)[x].y, rows[y]);
        }
}

TEST(ZephorXYDeltaLayer, TheIdentityOfASingleCellNamesTheOneBefore) {
    ZephorXYDeltaLayer layer(kStorageKind);
    ASSERT_TRUE(layer.Resize(1, 1));
    layer.ResetToIdentity();
    EXPECT_EQ(layer.RowToWrite(0)[0].x, -1);
    EXPECT_EQ(layer.RowToWrite(0)[0].y, -1);
}

TEST(ZephorXYDeltaLayer, DrawingDoesNothing) {
    ZephorXYDeltaLayer layer(kStorageKind);
    ASSERT_TRUE(layer.Resize(2, 2));
    const double rect[4] = { 0, 0, 2, 2 };
    layer.BeginDraw();
    layer.FillEllipse(rect);
    layer.DrawLines(rect, 1, 1);
    layer.EndDraw();
    for (int x = 0; x < 2; ++x) EXPECT_EQ(layer.RowToWrite(0)[x].x, 0);
}

TEST(ZephorLayerNextDeltaField, StartsReadyAndWithAPowerOfTwoOfSlices) {
    const ZephorLayerNextDeltaField field(kStorageKind);
    EXPECT_TRUE(field.ready);
    EXPECT_GE(field.SliceCount(), 2);
    EXPECT_EQ(field.SliceCount() & (field.SliceCount() - 1), 0);
}

TEST(ZephorLayerNextDeltaField, ItsVersionGrowsWithEachChangeAndResize) {
    ZephorLayerNextDeltaField field(kStorageKind);
    std::uint64_t version = field.Version();
    ASSERT_TRUE(field.Resize(2, 2));
    EXPECT_GT(field.Version(), version);
    version = field.Version();
    field.WillWrite();
    EXPECT_GT(field.Version(), version);
}

} // namespace
} // namespace orvane::zephor
