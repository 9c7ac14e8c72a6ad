// Frames of the whole set: two images, the field in force, and the step between them.
#include "zephor/layers/ZephorLayerSet.h"

#include "zephor/layers/FeedbackFunctors.h"

#include "AllocationCount.h"
#include "LayerPixels.h"

#include <gtest/gtest.h>

#include <functional>
#include <string>
#include <vector>

namespace orvane::zephor {
namespace {

using tests::LayerPixels;
using tests::SetLayerPixel;

using CellOf = std::function<DeltaCell(int x, int y)>;

void FillField(ZephorLayerNextDeltaField& field, const CellOf& cellOf) {
    field.WillWrite();
    for (int y = 0; y < field.Height(); ++y)
        for (int x = 0; x < field.Width(); ++x) field.RowToWrite(y)[x] = cellOf(x, y);
}

void FillImage(ZephorIndexLayer& layer, std::uint8_t value) {
    for (int y = 0; y < layer.Height(); ++y)
        for (int x = 0; x < layer.Width(); ++x) SetLayerPixel(layer, x, y, value);
}

// The field that ResetToIdentity makes.
void FillWithIdentity(ZephorLayerNextDeltaField& field) {
    field.WillWrite();
    field.ResetToIdentity();
}

TEST(ZephorLayerSet, BeforeItsFirstSizeNothingHappens) {
    ZephorLayerSet layers;
    layers.StepFeedback();
    EXPECT_EQ(layers.sourceLayer->Surface(), nullptr);
    EXPECT_EQ(layers.targetLayer->Surface(), nullptr);
    EXPECT_EQ(layers.CurrentDeltaField().Field().cells, nullptr);
    ASSERT_NE(layers.xyDeltaLayer, nullptr);
    EXPECT_EQ(layers.xyDeltaLayer->Field().cells, nullptr);
}

TEST(ZephorLayerSet, AResizeSizesFourLayersAndTheFirstOneMakesTheShadowFieldTheIdentity) {
    ZephorLayerSet layers;
    layers.Resize(6, 4);
    for (const ZephorLayer* layer : std::initializer_list<const ZephorLayer*>{
             layers.sourceLayer.get(), layers.targetLayer.get(), &layers.CurrentDeltaField(),
             layers.nextDeltaField.get() }) {
        EXPECT_EQ(layer->Width(), 6);
        EXPECT_EQ(layer->Height(), 4);
    }
    EXPECT_EQ(layers.xyDeltaLayer->Width(), 0);
    EXPECT_EQ(layers.CurrentDeltaField().RowToWrite(1)[3].x, 3);
    EXPECT_EQ(layers.CurrentDeltaField().RowToWrite(3)[5].x, 4);
    EXPECT_EQ(layers.CurrentDeltaField().RowToWrite(3)[5].y, 2);
    EXPECT_EQ(layers.nextDeltaField->RowToWrite(3)[5].x, 0); // zeros until a functor fills it
    layers.Resize(3, 4);
    EXPECT_EQ(layers.CurrentDeltaField().RowToWrite(0)[1].x, 2); // scaled, and not the identity again
}

TEST(ZephorLayerSet, AStepExchangesTheImagesEvenWithoutAField) {
    ZephorLayerSet layers;
    const ZephorIndexLayer* const source = layers.sourceLayer.get();
    layers.StepFeedback();
    EXPECT_EQ(layers.targetLayer.get(), source);
}

TEST(ZephorLayerSet, TheZeroFieldOfTheStartSpreadsTheTopLeftBlock) {
    ZephorLayerSet layers;
    layers.Resize(5, 4);
    SetLayerPixel(*layers.targetLayer, 0, 0, 100);
    SetLayerPixel(*layers.targetLayer, 1, 1, 60);
    SetLayerPixel(*layers.targetLayer, 4, 3, 255);
    layers.StepFeedback();
    EXPECT_EQ(LayerPixels(*layers.targetLayer).bytes, std::vector<std::uint8_t>(20, 39)); // 160 / 4, less one
}

TEST(ZephorLayerSet, TheIdentityFieldBlursTwoByTwoShiftsUpLeftByHalfAPixelAndDecays) {
    ZephorLayerSet layers;
    layers.Resize(8, 6);
    FillWithIdentity(*layers.nextDeltaField);
    SetLayerPixel(*layers.targetLayer, 4, 3, 200);
    layers.StepFeedback();
    std::vector<std::uint8_t> expected(48, 0);
    for (const int at : { 2 * 8 + 3, 2 * 8 + 4, 3 * 8 + 3, 3 * 8 + 4 })
        expected[std::size_t(at)] = 49; // 200 / 4 - 1
    EXPECT_EQ(LayerPixels(*layers.targetLayer).bytes, expected);
}

TEST(ZephorLayerSet, UnderTheIdentityTheLastColumnAndRowReadTheOneNextToThem) {
    ZephorLayerSet layers;
    layers.Resize(4, 3);
    FillWithIdentity(*layers.nextDeltaField);
    SetLayerPixel(*layers.targetLayer, 3, 2, 200);
    layers.StepFeedback();
    // Cells (2, 1) stand at columns 2 and 3 of rows 1 and 2; their block ends in the bottom right pixel.
    EXPECT_EQ(LayerPixels(*layers.targetLayer).bytes,
              (std::vector<std::uint8_t>{ 0, 0, 0, 0, 0, 0, 49, 49, 0, 0, 49, 49 }));
}

TEST(ZephorLayerSet, APixelOf255IsAtMost239AfterOneStepAndThenFallsBy1PerStep) {
    ZephorLayerSet layers;
    layers.Resize(6, 5);
    FillWithIdentity(*layers.nextDeltaField);
    FillImage(*layers.targetLayer, 255);
    for (int expected = 239; expected > 230; --expected) {
        layers.StepFeedback();
        EXPECT_EQ(LayerPixels(*layers.targetLayer).bytes,
                  std::vector<std::uint8_t>(30, std::uint8_t(expected)));
    }
}

TEST(ZephorLayerSet, AnImageFadesToBlackAndStaysThere) {
    ZephorLayerSet layers;
    layers.Resize(6, 5);
    FillWithIdentity(*layers.nextDeltaField);
    FillImage(*layers.targetLayer, 255);
    for (int step = 0; step < 240; ++step) layers.StepFeedback(); // 239 after the first, 0 after the 240th
    EXPECT_EQ(LayerPixels(*layers.targetLayer).bytes, std::vector<std::uint8_t>(30, 0));
    layers.StepFeedback();
    EXPECT_EQ(LayerPixels(*layers.targetLayer).bytes, std::vector<std::uint8_t>(30, 0));
}

// What follows the last column lies in the surface and holds zeros.
TEST(ZephorLayerSet, ACellAtWidthLess1AveragesWithTheZeroPastTheLastColumn) {
    ZephorLayerSet layers;
    layers.Resize(6, 5);
    FillField(*layers.nextDeltaField, [](int, int) { return DeltaCell{ 5, 0 }; });
    FillImage(*layers.targetLayer, 200);
    layers.StepFeedback();
    EXPECT_EQ(LayerPixels(*layers.targetLayer).bytes, std::vector<std::uint8_t>(30, 99)); // 400 / 4, less one
}

TEST(ZephorLayerSet, ThreadsDoNotShow) {
    std::vector<std::uint8_t> first;
    for (const int threads : { 1, 2, 5 }) {
        ZephorLayerSet layers(threads);
        layers.Resize(61, 47);
        FillField(*layers.nextDeltaField, [](int x, int y) {
            return DeltaCell{ float(60 - x), float(y) * 0.9f };
        });
        for (int y = 0; y < 47; ++y)
            for (int x = 0; x < 61; ++x)
                SetLayerPixel(*layers.targetLayer, x, y, std::uint8_t(x * 7 ^ y * 13));
        for (int step = 0; step < 5; ++step) layers.StepFeedback();
        const std::vector<std::uint8_t> bytes = LayerPixels(*layers.targetLayer).bytes;
        if (first.empty()) first = bytes;
        EXPECT_EQ(bytes, first) << threads;
    }
}

TEST(ZephorLayerSet, AStepOfASetWhoseSourceHasNoSurfaceWritesNothing) {
    ZephorLayerSet layers;
    layers.Resize(4, 4);
    FillImage(*layers.sourceLayer, 9); // the next target
    {
        const tests::NoMemory noMemory;
        static_cast<void>(layers.targetLayer->Resize(5, 5)); // the next source
    }
    ASSERT_EQ(layers.targetLayer->Surface(), nullptr);
    layers.StepFeedback();
    EXPECT_EQ(LayerPixels(*layers.targetLayer).bytes, std::vector<std::uint8_t>(16, 9));
}

TEST(ZephorLayerSet, AStepOfASetWhoseTargetHasNoSurfaceIsSkipped) {
    ZephorLayerSet layers;
    layers.Resize(4, 4);
    FillImage(*layers.targetLayer, 9);
    {
        const tests::NoMemory noMemory;
        static_cast<void>(layers.sourceLayer->Resize(5, 5));
    }
    layers.StepFeedback();
    EXPECT_EQ(LayerPixels(*layers.sourceLayer).bytes, std::vector<std::uint8_t>(16, 9));
    EXPECT_EQ(layers.targetLayer->Surface(), nullptr);
}

TEST(FeedbackFunctors, ImagesOfDifferentSizesAreLeftAlone) {
    const int sizes[][2] = { { 5, 4 }, { 3, 4 }, { 4, 5 }, { 4, 3 } };
    for (const auto& [width, height] : sizes) {
        ZephorLayerSet layers;
        layers.Resize(4, 4);
        layers.sourceLayer->Resize(width, height);
        FillImage(*layers.sourceLayer, 9);
        layers.StepFeedback();
        EXPECT_EQ(LayerPixels(*layers.targetLayer).bytes,
                  std::vector<std::uint8_t>(std::size_t(width * height), 9));
    }
}

// A surface that tells when it is locked.
class LockedSurface final : public render::IRenderer2D {
public:
    LockedSurface(std::string name, std::string& log)
        : mName(std::move(name))
        , mLog(log) {}

    void ReadPixels(render::BitmapProcessingFunctor& functor) override {
        mLog += "+" + mName;
        functor.Process(mBytes, 2, 1, 8, sizeof mBytes);
        mLog += "-" + mName;
    }

    void Resize(std::uint32_t, std::uint32_t) override {}

    void SetStrokeColor(double, double, double, double) override {}

    void SetFillColor(double, double, double, double) override {}

    void DrawLines(const double[], int, float) override {}

    void StrokeRectangle(const double[4]) override {}

    void FillRectangle(const double[4]) override {}

    void FillEllipse(const double[4]) override {}

    void StrokeEllipse(const double[4]) override {}

    void BeginDraw() override {}

    bool EndDraw() override { return false; }

    void DrawText(const char16_t*, std::uint32_t, render::ITextFormat*, const double[4]) override {}

    render::IBitMap2D* CreateBitmapFromPackedRows(const char* const[], std::uint64_t) override {
        return nullptr;
    }

    render::IBitMap2D* CreateBitmapFromImageData(const void*, std::uint32_t) override { return nullptr; }

    void DrawBitmap(render::IBitMap2D*, float, const double[4]) override {}

    std::uint8_t mBytes[8] = {};

private:
    std::string mName;
    std::string& mLog;
};

TEST(FeedbackFunctors, TheTargetIsLockedAroundTheSource) {
    std::string log;
    LockedSurface target("target", log), source("source", log);
    source.mBytes[0] = 21;
    source.mBytes[1] = 41;
    FeedbackEngine engine;
    const DeltaCell cells[2] = { { 0, 0 }, { 1, 0 } };
    const FieldInForce field{ 2, { cells, sizeof cells, 2, 1 }, 1 };
    DstRenderBitMapProcessingFunctor functor(engine, field, &source);
    target.ReadPixels(functor);
    EXPECT_EQ(log, "+target+source-source-target");
    EXPECT_EQ(target.mBytes[0], 30); // (21 + 41) / 2 = 31
    EXPECT_EQ(target.mBytes[1], 19); // (41 + 0) / 2 = 20
    EXPECT_EQ(target.mBytes[2], 0);
}

TEST(FeedbackFunctors, WithoutASourceNothingIsWritten) {
    std::string log;
    LockedSurface target("target", log);
    target.mBytes[0] = 5;
    FeedbackEngine engine;
    const DeltaCell cells[2] = {};
    const FieldInForce field{ 2, { cells, sizeof cells, 2, 1 }, 1 };
    DstRenderBitMapProcessingFunctor functor(engine, field, nullptr);
    target.ReadPixels(functor);
    EXPECT_EQ(log, "+target-target");
    EXPECT_EQ(target.mBytes[0], 5);
}

} // namespace
} // namespace orvane::zephor
