// A surface that is given up is the next one's of its size, and nothing of what was on it shows. Whether a surface was
// made is told by the imaging component, which is asked for a bitmap for each.
#include "render/draw2d/Factories.h"
#include "support/direct3d/Hook.h"
#include "unit/render/draw2d/Surface.h"

#include <gtest/gtest.h>

#include <cstring>
#include <list>

namespace orvane::render {
namespace {

using namespace tests;
using orvane::tests::Hook;

constexpr double kWhole[4] = { 0, 0, 40, 24 };

class SpareSurfaces : public testing::Test {
protected:
    SpareSurfaces()
        : mBitmaps(ImagingFactory(), [this](const auto& next, auto... arguments) {
            ++mMade;
            return next(arguments...);
        }) {
        PushOutTheOthers();
        mMade = 0;
    }

    // Tests before this one may have left surfaces; as many of sizes that no test here has take their places.
    static void PushOutTheOthers() {
        std::list<Surface> others;
        for (std::uint32_t height = 1; height <= 6; ++height) others.emplace_back(7, height);
    }

    int mMade = 0;
    Hook<&IWICImagingFactory::CreateBitmap> mBitmaps;
};

TEST_F(SpareSurfaces, ASecondSurfaceOfASizeIsTheFirstOnesAndAllZeroes) {
    Surface(40, 24).After([](IRenderer2D& canvas) { canvas.FillRectangle(kWhole); });
    EXPECT_EQ(mMade, 1);
    Surface second(40, 24);
    EXPECT_EQ(mMade, 1);
    EXPECT_TRUE(second.Read().IsAll(kClear));
    EXPECT_TRUE(second.After([](IRenderer2D&) {}).IsAll(kClear));
}

TEST_F(SpareSurfaces, ItsColoursAreTheFirstOnesAgain) {
    Surface(40, 24).After([](IRenderer2D& canvas) {
        canvas.SetFillColor(1, 0, 0, 1);
        canvas.SetStrokeColor(0, 1, 0, 1);
    });
    const Picture filled = Surface(40, 24).After([](IRenderer2D& canvas) { canvas.FillRectangle(kWhole); });
    EXPECT_TRUE(filled.IsAll(kWhite));
    const double level[4] = { 0, 10, 40, 10 };
    const Picture lined = Surface(40, 24).After([&](IRenderer2D& canvas) { canvas.DrawLines(level, 1, 4); });
    EXPECT_EQ(lined.At(20, 10), kBlack);
    EXPECT_EQ(mMade, 1);
}

TEST_F(SpareSurfaces, BytesThatWereWrittenIntoItAreGone) {
    class Writer final : public BitmapProcessingFunctor {
    public:
        void Process(void* pixels, int, int, int, std::size_t byteCount) override {
            std::memset(pixels, 0x7F, byteCount);
        }
    } writer;

    Surface(40, 24).canvas.ReadPixels(writer);
    EXPECT_TRUE(Surface(40, 24).Read().IsAll(kClear));
    EXPECT_EQ(mMade, 1);
}

TEST_F(SpareSurfaces, OneThatIsStillInUseIsNobodyElses) {
    const Surface first(40, 24), second(40, 24);
    EXPECT_EQ(mMade, 2);
}

TEST_F(SpareSurfaces, AnotherShapeIsAnotherSurface) {
    { const Surface surface(40, 24); }
    { const Surface turned(24, 40); }
    EXPECT_EQ(mMade, 2);
}

// Of a larger one the upper left is used: all of its rows and columns, and no more of them.
TEST_F(SpareSurfaces, ALargerOneServesAndShowsTheSizeAskedFor) {
    Surface(40, 24).After([](IRenderer2D& canvas) { canvas.FillRectangle(kWhole); });
    Surface smaller(30, 20);
    EXPECT_EQ(mMade, 1);
    EXPECT_TRUE(smaller.Read().IsAll(kClear));
    const double lowerRight[4] = { 29, 19, 100, 100 };
    const Picture picture = smaller.After([&](IRenderer2D& canvas) { canvas.FillRectangle(lowerRight); });
    EXPECT_EQ(picture.width, 30);
    EXPECT_EQ(picture.height, 20);
    EXPECT_EQ(picture.At(29, 19), kWhite);
    EXPECT_EQ(picture.At(28, 19), kClear);
    EXPECT_EQ(picture.At(29, 18), kClear);
}

TEST_F(SpareSurfaces, ALargerOneIsStillItsOwnSizeBehindASmallerUse) {
    { const Surface surface(40, 24); }
    { const Surface smaller(30, 20); }
    { const Surface surface(40, 24); }
    EXPECT_EQ(mMade, 1);
}

TEST_F(SpareSurfaces, TheSmallestThatFitsIsTaken) {
    { const Surface large(60, 40), small(40, 24); }
    const Surface third(36, 24); // the smaller of the two
    const Surface fourth(60, 40);
    EXPECT_EQ(mMade, 2);
}

TEST_F(SpareSurfaces, OneOfMoreThanFourTimesThePixelsIsNotTaken) {
    { const Surface surface(40, 40); }
    { const Surface quarter(20, 20); }
    EXPECT_EQ(mMade, 1);
    { const Surface less(20, 19); }
    EXPECT_EQ(mMade, 2);
}

TEST_F(SpareSurfaces, OneWithADrawingLeftOpenIsNotKept) {
    {
        Surface surface(40, 24);
        surface.canvas.BeginDraw();
    }
    const Picture picture = Surface(40, 24).After([](IRenderer2D&) {});
    EXPECT_EQ(mMade, 2);
    EXPECT_TRUE(picture.IsAll(kClear));
}

TEST_F(SpareSurfaces, SixAreKeptAndTheOldestGoesFirst) {
    // Each is wider and less high than the one before it, so that none stands in for another.
    const auto make = [](std::uint32_t i) { const Surface surface(40 + i, 40 - i); };
    for (std::uint32_t i = 0; i < 7; ++i) make(i);
    ASSERT_EQ(mMade, 7);
    for (std::uint32_t i = 1; i < 7; ++i) make(i);
    EXPECT_EQ(mMade, 7);
    make(0);
    EXPECT_EQ(mMade, 8);
}

} // namespace
} // namespace orvane::render
