#include "demo/DemoScene.h"

#include "demo/DemoImages.h"
#include "demo/DemoPanel.h"

#include <cmath>
#include <cstring>
#include <numbers>

namespace orvane::demo {
namespace {

using namespace render;

constexpr int kColumns = 6, kRows = 5;
constexpr float kCell = 200; // units of the grid; the view is 1200 by 1000 of them, its origin in the middle
constexpr float kViewWidth = kCell * kColumns, kViewHeight = kCell * kRows;
constexpr float kShape = 62; // half side of a shape
constexpr int kSprites = 24, kLineSegments = 200, kPointCount = 300, kDistant = 120;
constexpr double kTurn = 2 * std::numbers::pi;

constexpr std::uint32_t kKinds[3][kColumns] = { { 0, 3, 6, 10, 13, 16 },
                                                { 1, 4, 7, 11, 14, 18 },
                                                { 2, 5, 8, 12, 15, 19 } };

constexpr float CentreX(int column) {
    return (static_cast<float>(column) + 0.5f - kColumns / 2.0f) * kCell;
}

constexpr float CentreY(int row) {
    return (kRows / 2.0f - static_cast<float>(row) - 0.5f) * kCell;
}

float F(double value) {
    return static_cast<float>(value);
}

void Add(std::vector<float>& vertices, std::initializer_list<float> values) {
    vertices.insert(vertices.end(), values);
}

// The unit square as a strip in the layout of that column's set.
std::vector<float> UnitSquare(int column) {
    std::vector<float> vertices;
    for (int corner = 0; corner < 4; ++corner) {
        const float x = corner % 2 ? 1.0f : -1.0f, y = corner / 2 ? 1.0f : -1.0f;
        const float u = (x + 1) / 2, v = (1 - y) / 2;
        const Rgba colour = ColourOfTurn(corner / 4.0, corner % 2 ? 0.9f : 0.4f);
        Add(vertices, { x, y, 0 });
        if (column == 2 || column == 3) vertices.insert(vertices.end(), colour.begin(), colour.end());
        if (column == 1 || column == 2) Add(vertices, { u, v });
    }
    return vertices;
}

// A square of the grid in clip space, as set F takes it.
std::vector<float> ClipSquare(float x, float y, float half) {
    std::vector<float> vertices;
    for (int corner = 0; corner < 4; ++corner) {
        const float right = corner % 2 ? 1.0f : 0.0f, top = corner / 2 ? 1.0f : 0.0f;
        Add(vertices, { (x + (2 * right - 1) * half) / (kViewWidth / 2),
                        (y + (2 * top - 1) * half) / (kViewHeight / 2), 0, right, 1 - top });
    }
    return vertices;
}

// Dark and darker checks with a line of space between the squares of the grid, so that blending shows.
std::vector<float> Ground() {
    constexpr int kChecks = 8;
    constexpr float kMargin = 4, kStep = (kCell - 2 * kMargin) / kChecks;
    std::vector<float> vertices;
    for (int cell = 0; cell < kColumns * kRows; ++cell)
        for (int check = 0; check < kChecks * kChecks; ++check) {
            const int i = check % kChecks, j = check / kChecks;
            const float x = CentreX(cell % kColumns) - kCell / 2 + kMargin + F(i) * kStep;
            const float y = CentreY(cell / kColumns) - kCell / 2 + kMargin + F(j) * kStep;
            const float shade = (i + j) % 2 ? 0.30f : 0.16f;
            for (const int corner : { 0, 1, 3, 0, 3, 2 }) // two counter-clockwise triangles
                Add(vertices, { x + (corner % 2 ? kStep : 0), y + (corner / 2 ? kStep : 0), 0, shade,
                                shade * 1.1f, shade * 1.4f, 1 });
        }
    return vertices;
}

// The twelve triangles of a cube, as lines they show its edges and diagonals.
std::vector<float> Cube() {
    constexpr int kFaces[6][4] = { { 0, 1, 3, 2 }, { 4, 6, 7, 5 }, { 0, 4, 5, 1 },
                                   { 2, 3, 7, 6 }, { 0, 2, 6, 4 }, { 1, 5, 7, 3 } };
    std::vector<float> vertices;
    for (const auto& face : kFaces)
        for (const int at : { 0, 1, 2, 0, 2, 3 }) {
            const int corner = face[at];
            Add(vertices,
                { corner & 1 ? 1.0f : -1.0f, corner & 2 ? 1.0f : -1.0f, corner & 4 ? 1.0f : -1.0f });
        }
    return vertices;
}

TexturePtr Texture(IRenderer& renderer, const std::vector<std::uint32_t>& image, const char* name) {
    constexpr bool kFixed = false;
    return TexturePtr(renderer.CreateTexture(image.data(), kImageSide, kImageSide, kImageSide * 4, 0,
                                             kPixelFormat_RGBA8, name, 0, kFixed));
}

} // namespace

DemoScene::DemoScene(IRenderer& renderer)
    : mRenderer(renderer) {
    MakeImages();
    MakeBuffers();
}

void DemoScene::MakeImages() {
    constexpr bool kDynamic = true;
    constexpr std::uint32_t kImageUnit = 0, kTableUnit = 1;
    mRings = Texture(mRenderer, RingsImage(), "rings");
    mGlow = Texture(mRenderer, GlowImage(), "glow");
    mTiles = Texture(mRenderer, TilesImage(), "tiles");
    mPanel = MakePanel(mRenderer);
    mWaves.reset(mRenderer.CreateTexture(nullptr, kImageSide, kImageSide, 0, 0, kPixelFormat_R8UInt, "waves",
                                         kImageUnit, kDynamic));
    mTable.reset(mRenderer.CreateBufferTexture(kTableEntries, "table", kTableUnit));
}

void DemoScene::MakeBuffers() {
    for (int row = 0; row < 3; ++row)
        for (int column = 0; column < kColumns; ++column) {
            const bool isSprites = column == 4, isTable = column == 5;
            const Vertices vertices = isSprites ? Vertices(kSprites * 8)
                                      : isTable ? ClipSquare(CentreX(column), CentreY(row), kShape)
                                                : UnitSquare(column);
            mShapes[kKinds[row][column]] = MakeBuffer(
                kKinds[row][column], isSprites ? kPrimitive_Points : kPrimitive_TriangleStrip, vertices);
        }
    const Vertices ground = Ground();
    mGround = MakeBuffer(kPos_Colr_BlendingOFF, kPrimitive_Triangles, ground);
    mGroundVertices = static_cast<int>(ground.size() / 7);
    mWire = MakeBuffer(kPos_BlendingOFF, kPrimitive_Triangles, Cube());
    mLines = MakeBuffer(kPos_Colr_SrcAlpha_DstAlphaOne, kPrimitive_Lines, Vertices(kLineSegments * 2 * 7));
    mPoints = MakeBuffer(kPos_Colr_BlendingOFF, kPrimitive_Points, Vertices(kPointCount * 7));
    mTriangles = MakeBuffer(kPos_Colr_BlendingOFF, kPrimitive_Triangles, Vertices(6 * 3 * 7));
    mTile = MakeBuffer(kPos_SrcAlpha_DstOneMinusSrcAlpha, kPrimitive_TriangleStrip, UnitSquare(0));
    mQuad = MakeBuffer(kPos_TexCoord_SrcAlpha_DstAlphaOne, kPrimitive_TriangleStrip, Vertices(4 * 5));
    mDistance = MakeBuffer(kPosition_Color_Normalized_PointSprite_SrcAlpha_DstAlphaOne, kPrimitive_Points,
                           Vertices(kDistant * 8));
    mMovingImage = MakeBuffer(kPosition_TextureCoord_CLUT_TexelFetch_BlendingOFF, kPrimitive_TriangleStrip,
                              ClipSquare(CentreX(5) + 46, CentreY(3) - 46, 42));
}

int DemoScene::MakeBuffer(std::uint32_t kind, std::uint32_t primitive, const Vertices& vertices) {
    constexpr std::uint32_t kFloats[] = { 3, 5, 9, 7, 8, 5 }; // of a vertex, by column
    std::uint32_t floats = 0;
    for (const auto& row : kKinds)
        for (int column = 0; column < kColumns; ++column)
            if (row[column] == kind) floats = kFloats[column];
    const auto count = static_cast<std::uint32_t>(vertices.size()) / floats;
    return static_cast<int>(mRenderer.CreateVertexBuffer("demo", primitive, mRenderer.GetPipeline(kind),
                                                         count, 1, vertices.data()));
}

void DemoScene::Rewrite(int buffer, const Vertices& vertices) {
    mRenderer.AccessVertexBuffer(buffer, [&vertices](void* memory) {
        std::memcpy(memory, vertices.data(), vertices.size() * sizeof(float));
    });
}

void DemoScene::Draw(double seconds, double width, double height) {
    constexpr float kBlack[4] = { 0, 0, 0, 1 };
    mRenderer.BeginFrame();
    mRenderer.Clear(kBlack);
    const std::vector<Rgba> table = WheelTable(seconds);
    mTable->UpdateData(table.data(), table.size() * sizeof(Rgba));
    mRenderer.PushOrthographicProjection(kViewWidth, kViewHeight);
    mRenderer.DrawVertexBuffer(nullptr, mGround, 0, mGroundVertices);
    DrawKinds(seconds);
    DrawLines(seconds);
    DrawPointsAndTriangles(seconds);
    DrawInstances(seconds);
    DrawQuads(seconds);
    DrawPanel();
    mRenderer.PopProjection();
    DrawWire(seconds);
    DrawDistance(seconds, width / height);
    DrawMovingImage(seconds);
}

void DemoScene::DrawKinds(double seconds) {
    const double size[2] = { kImageSide, kImageSide };
    const std::vector<std::uint8_t> waves = WavesImage(0); // only the table moves
    mWaves->UpdateContents(waves.data(), size, kImageSide, 0, kPixelFormat_R8UInt);
    for (int row = 0; row < 3; ++row)
        for (int column = 0; column < kColumns; ++column) {
            const std::uint32_t kind = kKinds[row][column];
            if (column == 4) {
                DrawSprites(kind, column, row, seconds);
                continue;
            }
            mRenderer.PushModelView(); // what is applied to a point first stands first
            mRenderer.Scale(kShape, kShape, 1);
            mRenderer.Rotate(0, 0, F(seconds * 0.4));
            mRenderer.Translate(CentreX(column), CentreY(row), 0);
            DrawShape(kind, seconds);
            mRenderer.PopModelView();
        }
}

// Under the modelview that stands; the tint counts in the first two sets, the texture where one is read.
void DemoScene::DrawShape(std::uint32_t kind, double seconds) {
    const bool isTable = kind >= kPosition_TextureCoord_CLUT_TexelFetch_BlendingOFF;
    const bool isTextured = kind >= kPos_TexCoord_BlendingOFF && kind < kPos_Colr_BlendingOFF;
    const Rgba tint = ColourOfTurn(seconds / 6, 0.6f);
    mRenderer.SetColor(tint.data(), tint[3]);
    if (isTable) mTable->Bind();
    ITexture* const texture = isTable ? mWaves.get() : isTextured ? mRings.get() : nullptr;
    mRenderer.DrawVertexBuffer(texture, mShapes[kind], 0, 4);
    if (isTable) mTable->Unbind();
}

void DemoScene::DrawSprites(std::uint32_t kind, int column, int row, double seconds) {
    Vertices vertices;
    for (int i = 0; i < kSprites; ++i) {
        const double share = double(i) / kSprites, angle = kTurn * share + seconds * (0.3 + share);
        const Rgba colour = ColourOfTurn(share, 0.9f);
        Add(vertices, { CentreX(column) + F(std::cos(angle) * 72 * (0.3 + 0.7 * share)),
                        CentreY(row) + F(std::sin(angle) * 72 * (0.3 + 0.7 * share)), 0, colour[0], colour[1],
                        colour[2], colour[3], F(0.03 + 0.03 * share) });
    }
    Rewrite(mShapes[kind], vertices);
    mRenderer.DrawVertexBuffer(mGlow.get(), mShapes[kind], 0, kSprites);
}

// A view straight ahead in which one unit at distance d is 1/d of half the height.
void DemoScene::DrawWire(double seconds) {
    constexpr float kRightAngle = std::numbers::pi_v<float> / 2, kDistance = 16, kFar = 100;
    constexpr float kGreen[4] = { 0.4f, 1, 0.5f, 1 };
    mRenderer.PushPerspectiveProjection(kRightAngle, kViewWidth / kViewHeight, 1, kFar);
    mRenderer.PushModelView();
    mRenderer.Rotate(F(seconds * 0.7), F(seconds), 0);
    mRenderer.Translate(CentreX(0) / (kViewHeight / 2) * kDistance,
                        CentreY(3) / (kViewHeight / 2) * kDistance, kDistance);
    mRenderer.SetColor(kGreen, 1);
    mRenderer.SetWireframe(true);
    mRenderer.DrawVertexBuffer(nullptr, mWire, 0, 36);
    mRenderer.SetWireframe(false);
    mRenderer.PopModelView();
    mRenderer.PopProjection();
}

void DemoScene::DrawLines(double seconds) {
    Vertices vertices;
    const auto add = [&](int i) {
        const double share = double(i) / kLineSegments, angle = kTurn * share;
        const Rgba colour = ColourOfTurn(share + seconds / 5, 0.8f);
        Add(vertices,
            { CentreX(1) + F(80 * std::sin(3 * angle + seconds)), CentreY(3) + F(80 * std::sin(4 * angle)), 0,
              colour[0], colour[1], colour[2], colour[3] });
    };
    for (int i = 0; i < kLineSegments; ++i) {
        add(i);
        add(i + 1);
    }
    Rewrite(mLines, vertices);
    mRenderer.DrawVertexBuffer(nullptr, mLines, 0, kLineSegments * 2);
}

void DemoScene::DrawPointsAndTriangles(double seconds) {
    Vertices points, triangles;
    for (int i = 0; i < kPointCount; ++i) { // a disc of equal spacing, turning
        const double radius = 84 * std::sqrt((i + 0.5) / kPointCount), angle = i * 2.39996 + seconds * 0.5;
        Add(points, { CentreX(2) + F(radius * std::cos(angle)), CentreY(3) + F(radius * std::sin(angle)), 0,
                      1, 1, 1, 1 });
    }
    Rewrite(mPoints, points);
    mRenderer.DrawVertexBuffer(nullptr, mPoints, 0, kPointCount);
    for (int i = 0; i < 6; ++i) // a fan of single triangles
        for (const double corner : { 0.0, 0.02, 0.12 }) {
            const double angle = kTurn * (i / 6.0 + corner) - seconds * 0.5, radius = corner == 0 ? 10 : 55;
            const Rgba colour = ColourOfTurn(i / 6.0 + corner, 1);
            Add(triangles,
                { CentreX(2) + F(radius * std::cos(angle)), CentreY(3) + F(radius * std::sin(angle)), 0,
                  colour[0], colour[1], colour[2], 1 });
        }
    Rewrite(mTriangles, triangles);
    mRenderer.DrawVertexBuffer(nullptr, mTriangles, 0, 18);
}

void DemoScene::DrawInstances(double seconds) {
    constexpr int kInstances = 12;
    constexpr float kOrange[4] = { 1, 0.6f, 0.2f, 1 };
    mRenderer.SetColor(kOrange, 0.6f);
    mRenderer.DrawVertexBufferInstances(mTile, 0, 4, kInstances, [&](int& index) {
        const double angle = kTurn * index / kInstances + seconds * 0.5;
        mRenderer.Scale2D(6.0f + F(index), 8);
        mRenderer.Rotate(0, 0, F(-angle)); // the z angle turns the other way: outward at every place
        mRenderer.Translate(CentreX(3) + F(60 * std::cos(angle)), CentreY(3) + F(60 * std::sin(angle)), 0);
    });
}

// Parts of one picture at quarters of their square, one of them fading; and the whole, small, in the middle.
void DemoScene::DrawQuads(double seconds) {
    constexpr double kLeft = 4.0 / kColumns, kBottom = 1.0 / kRows, kWide = 1.0 / kColumns,
                     kHigh = 1.0 / kRows;
    mRenderer.PushIdentityProjection();
    mRenderer.PushIdentityModelView();
    for (int part = 0; part < 5; ++part) {
        const bool isWhole = part == 4;
        const double u = part % 2 * 0.5, v = part / 2 % 2 * 0.5;
        const double x = isWhole ? 0.35 : 0.08 + part % 2 * 0.46, y = isWhole ? 0.35 : 0.54 - part / 2 * 0.46;
        const double side = isWhole ? 0.3 : 0.38, span = isWhole ? 1 : 0.5;
        const double destination[4] = { kLeft + x * kWide, kBottom + y * kHigh, side * kWide, side * kHigh };
        const double source[4] = { isWhole ? 0 : u, isWhole ? 0 : v, span, span };
        const float alpha = part == 0 ? F(0.5 + 0.5 * std::sin(2 * seconds)) : 1;
        mRenderer.DrawTexturedQuad(mTiles.get(), mQuad, destination, source, alpha, kColorMode_White);
    }
    mRenderer.PopModelView();
    mRenderer.PopProjection();
}

// The lowest row, as panels are drawn over a picture.
void DemoScene::DrawPanel() {
    constexpr double kLowestRow[4] = { 0, 0, 1, 1.0 / kRows }, kWhole[4] = { 0, 0, 1, 1 };
    mRenderer.PushIdentityProjection();
    mRenderer.PushIdentityModelView();
    mRenderer.DrawTexturedQuad(mPanel.get(), mQuad, kLowestRow, kWhole, 1, kColorMode_White);
    mRenderer.PopModelView();
    mRenderer.PopProjection();
}

// A tube of sprites that come nearer, in the upper left of the last square.
void DemoScene::DrawDistance(double seconds, double aspect) {
    constexpr float kRightAngle = std::numbers::pi_v<float> / 2, kFar = 100;
    mRenderer.PushPerspectiveProjection(kRightAngle, F(aspect), 1, kFar);
    Vertices vertices;
    for (int i = kDistant - 1; i >= 0; --i) {
        const double depth = 3 + std::fmod(i * 0.25 + 30 - std::fmod(seconds * 3, 30), 30);
        const double angle = i * 0.5;
        const Rgba colour = ColourOfTurn(i / 30.0, F(1.2 - depth / 33));
        const double x = (CentreX(5) - 20) / (kViewHeight / 2) * depth + 0.35 * std::cos(angle);
        const double y = (CentreY(3) + 30) / (kViewHeight / 2) * depth + 0.35 * std::sin(angle);
        Add(vertices, { F(x), F(y), F(depth), colour[0], colour[1], colour[2], colour[3], 0.12f });
    }
    Rewrite(mDistance, vertices);
    mRenderer.DrawVertexBuffer(mGlow.get(), mDistance, 0, kDistant);
    mRenderer.PopProjection();
}

void DemoScene::DrawMovingImage(double seconds) {
    const double size[2] = { kImageSide, kImageSide };
    const std::vector<std::uint8_t> waves = WavesImage(seconds);
    mWaves->UpdateContents(waves.data(), size, kImageSide, 0, kPixelFormat_R8UInt);
    mTable->Bind();
    mRenderer.DrawVertexBuffer(mWaves.get(), mMovingImage, 0, 4);
    mTable->Unbind();
}

} // namespace orvane::demo
