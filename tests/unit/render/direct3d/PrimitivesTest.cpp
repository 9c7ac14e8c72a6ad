// What vertices make: strips, triangles, lines, points, wire, parts of a buffer, instances.
#include "support/LogCapture.h"
#include "support/direct3d/Direct3DTest.h"

#include "render/PipelineKind.h"

#include <cstring>

namespace orvane::tests {
namespace {

using namespace render;

constexpr auto kKind = kPos_BlendingOFF;
constexpr Area kMiddle = { 16, 16, 48, 48 };
constexpr Colour kWhite = { 255, 255, 255, 255 };

// A position in pixels of the target of 64, y downward.
float ClipX(float pixel) {
    return pixel / 32 - 1;
}

float ClipY(float pixel) {
    return 1 - pixel / 32;
}

class Primitives : public Direct3DTest {
protected:
    void SetUp() override {
        Direct3DTest::SetUp();
        mRenderer.SetColor(kFloatWhite, 1);
    }

    const Floats mMiddle = StripOf(-0.5f, -0.5f, 0.5f, 0.5f);
    // Along the middle of row 20, out of the diamonds of pixels 16 to 47.
    const Floats mLine = { ClipX(16.25f), ClipY(20.5f), 0, ClipX(48.25f), ClipY(20.5f), 0 };
};

TEST_F(Primitives, AStripFillsItsRectangle) {
    Draw(kKind, kPrimitive_TriangleStrip, mMiddle);
    EXPECT_TRUE(Read().IsFilled(kMiddle, kWhite));
    EXPECT_EQ(Read().Count(kWhite), 32 * 32);
}

TEST_F(Primitives, TrianglesAreDrawnCounterClockwiseAndCulledClockwise) {
    const Floats ccw = { -1, -1, 0, 1, -1, 0, -1, 1, 0 }, cw = { -1, -1, 0, -1, 1, 0, 1, -1, 0 };
    Draw(kKind, kPrimitive_Triangles, cw);
    EXPECT_EQ(Read().DrawnArea(), Area{});
    Draw(kKind, kPrimitive_Triangles, ccw);
    EXPECT_EQ(Read().At(1, 62), kWhite); // left and below
    EXPECT_EQ(Read().At(62, 1), kBlack);
}

TEST_F(Primitives, TrianglesTakeThreeVerticesEach) {
    Floats two = { -1, -1, 0, 0, -1, 0, -1, 0, 0, 0, 0, 0, 1, 0, 0, 0, 1, 0 };
    Draw(kKind, kPrimitive_Triangles, two);
    const Picture picture = Read();
    EXPECT_EQ(picture.At(4, 59), kWhite);
    EXPECT_EQ(picture.At(36, 27), kWhite);
    EXPECT_EQ(picture.At(36, 36), kBlack);
    EXPECT_EQ(picture.At(27, 27), kBlack);
}

TEST_F(Primitives, ALineIsOnePixelWide) {
    Draw(kKind, kPrimitive_Lines, mLine);
    EXPECT_EQ(Read().DrawnArea(), (Area{ 16, 20, 48, 21 }));
    EXPECT_EQ(Read().Count(kWhite), 32);
}

TEST_F(Primitives, APointIsOnePixel) {
    Draw(kKind, kPrimitive_Points,
         { ClipX(3.5f), ClipY(5.5f), 0, ClipX(40.5f), ClipY(5.5f), 0, ClipX(63.5f), ClipY(63.5f), 0 });
    const Picture picture = Read();
    EXPECT_EQ(picture.Count(kWhite), 3);
    EXPECT_EQ(picture.At(3, 5), kWhite);
    EXPECT_EQ(picture.At(40, 5), kWhite);
    EXPECT_EQ(picture.At(63, 63), kWhite);
}

TEST_F(Primitives, TheUnassignedKindDrawsAsTheDrawBeforeIt) {
    constexpr std::uint32_t kUnassigned = 2;
    Draw(kKind, kPrimitive_Lines, { 0, 0, 0, 0, 0, 0 });
    mRenderer.Clear(kFloatBlack);
    Draw(kKind, kUnassigned, mLine);
    EXPECT_EQ(Read().DrawnArea(), (Area{ 16, 20, 48, 21 }));
    Draw(kKind, kPrimitive_TriangleStrip, StripOf(0, 0, 0, 0));
    mRenderer.Clear(kFloatBlack);
    Draw(kKind, kUnassigned, mMiddle);
    EXPECT_EQ(Read().Count(kWhite), 32 * 32);
}

TEST_F(Primitives, WireDrawsTheEdgesAndSolidTheInside) {
    mRenderer.SetWireframe(true);
    Draw(kKind, kPrimitive_TriangleStrip, mMiddle);
    const Picture wire = Read();
    EXPECT_EQ(wire.At(26, 37), kBlack); // the middles of the two triangles
    EXPECT_EQ(wire.At(37, 26), kBlack);
    const Area edges = wire.DrawnArea();
    EXPECT_NEAR(edges.left, 16, 1);
    EXPECT_NEAR(edges.top, 16, 1);
    EXPECT_NEAR(edges.right, 48, 1);
    EXPECT_NEAR(edges.bottom, 48, 1);
    EXPECT_NEAR(wire.Count(kWhite), 5 * 32, 8); // four sides and the diagonal

    mRenderer.SetWireframe(false);
    Draw(kKind, kPrimitive_TriangleStrip, mMiddle);
    EXPECT_TRUE(Read().IsFilled(kMiddle, kWhite));
}

TEST_F(Primitives, ABufferOf120960VerticesOf36BytesIsMadeInOnePieceAndDrawnInPart) {
    constexpr std::uint32_t kCount = 120960, kFloatsEach = 9;
    Floats vertices(std::size_t(kCount) * kFloatsEach, 0.0f);
    const Floats last = StripOf(-0.5f, -0.5f, 0.5f, 0.5f, [](int) { return Floats{ 1, 1, 1, 1, 0, 0 }; });
    std::copy(last.begin(), last.end(), vertices.end() - 4 * kFloatsEach);
    // What lies before them covers the whole target.
    const Floats whole = StripOf(-1, -1, 1, 1, [](int) { return Floats{ 1, 0, 0, 1, 0, 0 }; });
    std::copy(whole.begin(), whole.end(), vertices.begin());
    const int buffer = Buffer(kPos_Colr_TexCoord_BlendingOFF, kPrimitive_TriangleStrip, vertices);
    ASSERT_NE(buffer, 0);
    const Colour white[] = { kWhite };
    const TexturePtr texture = MakeTexture(mRenderer, 1, white);
    EXPECT_TRUE(mRenderer.DrawVertexBuffer(texture.get(), buffer, kCount - 4, 4));
    EXPECT_EQ(Read().DrawnArea(), kMiddle);
    EXPECT_EQ(Read().Count(kWhite), 32 * 32);
}

TEST_F(Primitives, AccessVertexBufferGivesTheWholeBufferAndTheDrawShowsWhatWasWritten) {
    const auto buffer = static_cast<int>(mRenderer.CreateVertexBuffer(
        "", kPrimitive_TriangleStrip, mRenderer.GetPipeline(kKind), 4, 1, nullptr));
    EXPECT_EQ(buffer, 1);
    int calls = 0;
    EXPECT_TRUE(mRenderer.AccessVertexBuffer(buffer, [&](void* vertices) {
        ++calls;
        std::memcpy(vertices, mMiddle.data(), mMiddle.size() * sizeof(float));
    }));
    EXPECT_EQ(calls, 1);
    EXPECT_TRUE(mRenderer.DrawVertexBuffer(nullptr, buffer, 0, 4));
    EXPECT_EQ(Read().DrawnArea(), kMiddle);
}

TEST_F(Primitives, IdZeroAndTheCountPlusOneDrawNothingAndAccessNothingAndPrintNothing) {
    const LogCapture log;
    ASSERT_EQ(Buffer(kKind, kPrimitive_TriangleStrip, mMiddle), 1);
    for (const int id : { 0, 2, -1 }) {
        EXPECT_FALSE(mRenderer.DrawVertexBuffer(nullptr, id, 0, 4)) << id;
        EXPECT_FALSE(mRenderer.DrawVertexBufferInstances(id, 0, 4, 1, [](int&) { FAIL(); })) << id;
        EXPECT_FALSE(mRenderer.AccessVertexBuffer(id, [](void*) { FAIL(); })) << id;
    }
    EXPECT_EQ(Read().DrawnArea(), Area{});
    EXPECT_EQ(log.Text(), "");
}

TEST_F(Primitives, InstancesAreDrawnEachUnderItsOwnTransform) {
    // Squares of 4 by 4 pixels with their centres 16 pixels apart, the first 16 left of the middle.
    const int buffer = Buffer(kKind, kPrimitive_TriangleStrip, StripOf(-2, -2, 2, 2));
    mRenderer.PushOrthographicProjection(64, 64);
    mRenderer.PushModelView();
    mRenderer.Translate(-16, 8, 0);
    std::vector<int> indices;
    EXPECT_TRUE(mRenderer.DrawVertexBufferInstances(buffer, 0, 4, 3, [&](int& index) {
        indices.push_back(index);
        mRenderer.Translate(16.0f * static_cast<float>(index), 0, 0);
    }));
    EXPECT_EQ(indices, (std::vector{ 0, 1, 2 }));
    const Picture picture = Read();
    EXPECT_EQ(picture.Count(kWhite), 3 * 16);
    for (const int centre : { 16, 32, 48 })
        EXPECT_TRUE(picture.IsFilled({ centre - 2, 22, centre + 2, 26 }, kWhite)) << centre;
    EXPECT_EQ(mRenderer.ModelViewDepth(), 2u);
}

TEST_F(Primitives, InstancesOfNoVerticesAreTrueWithNothingDrawn) {
    EXPECT_TRUE(mRenderer.DrawVertexBufferInstances(99, 0, 0, 5, [](int&) { FAIL(); }));
    EXPECT_EQ(Read().DrawnArea(), Area{});
}

} // namespace
} // namespace orvane::tests
