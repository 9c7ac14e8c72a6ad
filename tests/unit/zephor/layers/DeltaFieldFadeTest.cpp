// The walk of the shadow field, and what it doesn't do to the picture.
#include "zephor/layers/DeltaFieldFade.h"

#include "LayerPixels.h"

#include <gtest/gtest.h>

#include <limits>
#include <vector>

namespace orvane::zephor {
namespace {

using tests::LayerPixels;
using tests::SetLayerPixel;

constexpr int kWidth = 5, kHeight = 3;

struct Scene {
    ZephorLayerSet layers;
    DeltaFieldFade fade;

    Scene() { layers.Resize(kWidth, kHeight); }

    // A field that names the same place everywhere.
    void NewField(float x, float y) {
        layers.nextDeltaField->ready = false;
        layers.nextDeltaField->WillWrite();
        for (int row = 0; row < kHeight; ++row)
            for (int column = 0; column < kWidth; ++column)
                layers.nextDeltaField->RowToWrite(row)[column] = { x, y };
        layers.nextDeltaField->ready = true;
        fade.FieldChanged();
    }

    void Frames(int count) {
        for (int i = 0; i < count; ++i) fade.StartFrame(layers);
    }

    // Of a fade that starts at a shadow field of zeros with a next field of (7, 14) everywhere.
    void StartFromZeros() {
        NewField(0, 0);
        Frames(1); // installed
        NewField(7, 14);
    }

    float ShadowX() { return layers.CurrentDeltaField().RowToWrite(1)[2].x; }

    float ShadowY() { return layers.CurrentDeltaField().RowToWrite(2)[4].y; }
};

TEST(DeltaFieldFade, TheFirstReadyFieldIsInstalledWithoutAFade) {
    Scene scene;
    EXPECT_FALSE(scene.fade.IsFieldInstalled());
    scene.NewField(3, 2);
    EXPECT_EQ(scene.fade.FramesLeft(), 40);
    scene.Frames(1);
    EXPECT_TRUE(scene.fade.IsFieldInstalled());
    EXPECT_EQ(scene.fade.FramesLeft(), 0);
    EXPECT_EQ(scene.ShadowX(), 3);
    EXPECT_EQ(scene.ShadowY(), 2);
}

TEST(DeltaFieldFade, AFieldThatIsNotReadyIsNotInstalled) {
    Scene scene;
    scene.layers.nextDeltaField->ready = false;
    scene.Frames(3);
    EXPECT_FALSE(scene.fade.IsFieldInstalled());
    EXPECT_EQ(scene.ShadowX(), 2); // the identity still
}

TEST(DeltaFieldFade, RunsSevenBlendsAndACopy) {
    Scene scene;
    scene.StartFromZeros();
    for (int left = 39; left > 0; --left) {
        scene.Frames(1);
        EXPECT_EQ(scene.fade.FramesLeft(), left);
        // In equal strides: a seventh of the way at 35, two at 30, and so on.
        const int blends = left > 35 ? 0 : (40 - left) / 5;
        EXPECT_NEAR(scene.ShadowX(), float(blends), 1e-5f) << left;
        EXPECT_NEAR(scene.ShadowY(), float(2 * blends), 2e-5f) << left;
    }
    scene.Frames(1);
    EXPECT_EQ(scene.fade.FramesLeft(), 0);
    EXPECT_EQ(scene.ShadowX(), 7);
    EXPECT_EQ(scene.ShadowY(), 14);
    scene.Frames(20);
    EXPECT_EQ(scene.fade.FramesLeft(), 0);
    EXPECT_EQ(scene.ShadowX(), 7);
}

// The blends in single precision, one after the other.
TEST(DeltaFieldFade, WhoLooksLateSeesTheSameBitsAsWhoLooksAtEveryFrame) {
    for (int looked = 1; looked <= 45; ++looked) {
        Scene scene;
        scene.NewField(0.1f, -3.3f);
        scene.Frames(1);
        scene.NewField(1234.567f, 0.7f);
        float x = 0.1f, y = -3.3f;
        for (int frame = 1; frame <= looked; ++frame) {
            scene.Frames(1);
            const int left = 40 - frame;
            if (left <= 0) {
                x = 1234.567f;
                y = 0.7f;
            } else if (left % 5 == 0) {
                const float part = 1.0f / float(left / 5);
                x = x + (1234.567f - x) * part;
                y = y + (0.7f - y) * part;
            }
        }
        EXPECT_EQ(scene.ShadowX(), x) << looked;
        EXPECT_EQ(scene.ShadowY(), y) << looked;
    }
}

TEST(DeltaFieldFade, ACellThatIsNoNumberIsGoneFromTheShadowWithTheCopy) {
    Scene scene;
    scene.NewField(std::numeric_limits<float>::quiet_NaN(), 0);
    scene.Frames(1);
    scene.NewField(4, 5);
    scene.Frames(39);
    EXPECT_NE(scene.ShadowX(), scene.ShadowX());
    scene.Frames(1);
    EXPECT_EQ(scene.ShadowX(), 4);
}

TEST(DeltaFieldFade, ANewFieldDuringAFadeRestartsTheCountdownAt40WithTheShadowAtItsBlendedState) {
    Scene scene;
    scene.StartFromZeros();
    scene.Frames(22); // 18 are left: blends at 35, 30, 25 and 20
    scene.NewField(100, 100);
    EXPECT_EQ(scene.fade.FramesLeft(), 40);
    EXPECT_NEAR(scene.ShadowX(), 4, 1e-5);
    scene.Frames(4);
    EXPECT_NEAR(scene.ShadowX(), 4, 1e-5);
    scene.Frames(1); // 35: a seventh of the way from 4 to 100
    EXPECT_NEAR(scene.ShadowX(), 4 + 96.0 / 7, 1e-4);
    scene.Frames(35);
    EXPECT_EQ(scene.ShadowX(), 100);
}

TEST(DeltaFieldFade, AFieldThatIsBeingComputedCutsTheFadeShortWithACopy) {
    Scene scene;
    scene.StartFromZeros();
    scene.Frames(12);
    scene.layers.nextDeltaField->ready = false;
    scene.Frames(1);
    EXPECT_EQ(scene.fade.FramesLeft(), 0);
    EXPECT_EQ(scene.ShadowX(), 7);
    EXPECT_TRUE(scene.fade.IsFieldInstalled());
}

TEST(DeltaFieldFade, AResizeInTheMiddleOfAFadeEndsItAndTheShadowTakesTheNewFieldAtOnce) {
    Scene scene;
    scene.StartFromZeros();
    scene.Frames(12);
    scene.layers.Resize(kWidth + 2, kHeight + 1);
    scene.fade.Resized();
    EXPECT_FALSE(scene.fade.IsFieldInstalled());
    EXPECT_NEAR(scene.ShadowX(), 2, 1e-5); // blends at 35 and 30; what was owed isn't lost in the resize
    scene.layers.nextDeltaField->WillWrite();
    for (int y = 0; y < kHeight + 1; ++y)
        for (int x = 0; x < kWidth + 2; ++x) scene.layers.nextDeltaField->RowToWrite(y)[x] = { 50, 60 };
    scene.Frames(1);
    EXPECT_TRUE(scene.fade.IsFieldInstalled());
    EXPECT_EQ(scene.fade.FramesLeft(), 0);
    for (int y = 0; y < kHeight + 1; ++y)
        for (int x = 0; x < kWidth + 2; ++x) {
            EXPECT_EQ(scene.layers.CurrentDeltaField().RowToWrite(y)[x].x, 50);
            EXPECT_EQ(scene.layers.CurrentDeltaField().RowToWrite(y)[x].y, 60);
        }
}

TEST(DeltaFieldFade, AChangeOfFieldShowsAtOnce) {
    Scene scene;
    scene.NewField(0, 0);
    scene.Frames(1);
    SetLayerPixel(*scene.layers.targetLayer, 0, 0, 40);
    SetLayerPixel(*scene.layers.targetLayer, 3, 2, 200);
    scene.layers.StepFeedback();
    EXPECT_EQ(LayerPixels(*scene.layers.targetLayer).bytes,
              std::vector<std::uint8_t>(15, 9)); // 40 / 4, less one
    SetLayerPixel(*scene.layers.targetLayer, 3, 2, 200);
    scene.NewField(3, 2);
    scene.Frames(1);
    scene.layers.StepFeedback();
    // Everything from the bottom row at column 3: (200 + 9) / 2, less one. Nothing of the field before.
    EXPECT_EQ(LayerPixels(*scene.layers.targetLayer).bytes, std::vector<std::uint8_t>(15, 103));
}

TEST(BlendInto, MovesTheCellsByOnePartInSoManyWithEachLayersOwnStride) {
    ZephorLayerSet layers;
    layers.Resize(4, 3);
    ZephorXYDeltaLayer wide(5);
    ASSERT_TRUE(wide.Resize(9, 3));
    layers.nextDeltaField->WillWrite();
    for (int y = 0; y < 3; ++y)
        for (int x = 0; x < 4; ++x) layers.nextDeltaField->RowToWrite(y)[x] = { float(8 * x), float(16 * y) };
    layers.nextDeltaField->BlendInto(wide, 4);
    for (int y = 0; y < 3; ++y)
        for (int x = 0; x < 9; ++x) {
            EXPECT_EQ(wide.RowToWrite(y)[x].x, x < 4 ? float(2 * x) : 0.0f);
            EXPECT_EQ(wide.RowToWrite(y)[x].y, x < 4 ? float(4 * y) : 0.0f);
        }
}

TEST(BlendInto, IsTheSameWhateverTheNumberOfSlices) {
    for (const int slices : { 1, 2, 8 }) {
        ZephorLayerNextDeltaField next(5);
        ZephorXYDeltaLayer shadow(5);
        ASSERT_TRUE(next.Resize(3, 5) && shadow.Resize(3, 5));
        next.SetSliceCount(slices);
        for (int y = 0; y < 5; ++y) next.RowToWrite(y)[2] = { 10, 20 };
        next.BlendInto(shadow, 2);
        for (int y = 0; y < 5; ++y) {
            EXPECT_EQ(shadow.RowToWrite(y)[2].x, 5);
            EXPECT_EQ(shadow.RowToWrite(y)[2].y, 10);
            EXPECT_EQ(shadow.RowToWrite(y)[1].x, 0);
        }
    }
}

// More than a fade has, two layers in turn, and no cells: what is owed is never lost.
TEST(ShadowDebt, IsPaidInOrderHoweverMuchItIs) {
    ZephorLayerNextDeltaField next(5);
    ZephorXYDeltaLayer first(5), second(5), empty(5);
    ASSERT_TRUE(next.Resize(1, 1) && first.Resize(1, 1) && second.Resize(1, 1));
    next.RowToWrite(0)[0] = { 1024, 0 };
    for (int i = 0; i < 20; ++i) next.OweBlend(first, 2);
    next.OweBlend(second, 4);
    next.OweBlend(empty, 2);
    next.SettleShadow();
    // Half of what is left, twenty times: 1024 - 1024 / 2^20, which a float holds.
    EXPECT_EQ(first.RowToWrite(0)[0].x, 1024.0f - 1.0f / 1024);
    EXPECT_EQ(second.RowToWrite(0)[0].x, 256);
    next.OweCopy(first);
    next.OweCopy(second);
    next.SettleShadow();
    EXPECT_EQ(first.RowToWrite(0)[0].x, 1024);
    EXPECT_EQ(second.RowToWrite(0)[0].x, 1024);
}

} // namespace
} // namespace orvane::zephor
