#include "demo/DemoPanel.h"

#include "demo/DemoImages.h"
#include "render/draw2d/LayerBacked2DRenderer.h"
#include "render/draw2d/WTextFormat.h"

#include <cmath>
#include <iterator>
#include <memory>
#include <numbers>
#include <string_view>
#include <utility>
#include <vector>

namespace orvane::demo {
namespace {

using namespace render;

constexpr double kCell = 200; // pixels

// Text within (x, y, width, height).
struct Line {
    std::u16string_view text;
    float size;
    TextAlignment alignment;
    double rect[4];
};

constexpr Line kLines[] = {
    { u"Text of a panel", 40, kTextAlignmentLeading, { 20, 16, 360, 50 } },
    { u"leading", 18, kTextAlignmentLeading, { 20, 78, 360, 24 } },
    { u"centred", 18, kTextAlignmentCentred, { 20, 78, 360, 24 } },
    { u"trailing", 18, kTextAlignmentTrailing, { 20, 78, 360, 24 } },
    { u"\u0391\u03B2\u03B3 \u0416\u0443\u043A \u00C9t\u00E9 \u00DF\u00F8\u0142",
      24,
      kTextAlignmentLeading,
      { 20, 108, 360, 32 } },
    { u"A line too long for its rectangle goes on below in the next one",
      18,
      kTextAlignmentLeading,
      { 20, 146, 360, 48 } },
};

void DrawTexts(IRenderer2D& canvas) {
    canvas.SetFillColor(1, 1, 1, 1);
    for (const Line& line : kLines) {
        const std::unique_ptr<ITextFormat> format = CreateTextFormat(line.size);
        if (!format) continue;
        format->SetTextAlignment(line.alignment);
        canvas.DrawText(line.text.data(), static_cast<std::uint32_t>(line.text.size()), format.get(),
                        line.rect);
    }
}

// The third square: a fan of lines, a disc, a ring and a frame.
void DrawShapes(IRenderer2D& canvas) {
    constexpr int kRays = 16;
    constexpr double kX = 2.5 * kCell, kY = 0.5 * kCell;
    constexpr double kFrame[4] = { kX - 88.5, kY - 88.5, 177, 177 },
                     kRing[4] = { kX - 80, kY - 80, 160, 160 };
    constexpr double kDisc[4] = { kX - 30, kY - 20, 60, 40 };
    for (int ray = 0; ray < kRays; ++ray) {
        const double angle = 2 * std::numbers::pi * ray / kRays;
        const Rgba colour = ColourOfTurn(double(ray) / kRays, 1);
        const double segment[4] = { kX + 36 * std::cos(angle), kY + 36 * std::sin(angle),
                                    kX + 74 * std::cos(angle), kY + 74 * std::sin(angle) };
        canvas.SetStrokeColor(colour[0], colour[1], colour[2], 1);
        canvas.DrawLines(segment, 1, 1 + static_cast<float>(ray) / 4);
    }
    canvas.SetStrokeColor(1, 1, 1, 1);
    canvas.StrokeRectangle(kFrame);
    canvas.StrokeEllipse(kRing);
    canvas.SetFillColor(1, 0.7, 0.2, 1);
    canvas.FillEllipse(kDisc);
}

// The fourth square: a file in memory, whole and at less opacity.
void DrawDecodedImage(IRenderer2D& canvas) {
    const std::vector<std::uint8_t> file = RingsFile();
    const std::unique_ptr<IBitMap2D> image(
        canvas.CreateBitmapFromImageData(file.data(), static_cast<std::uint32_t>(file.size())));
    constexpr double kWhole[4] = { 3 * kCell + 12, 12, 120, 120 };
    constexpr double kFaint[4] = { 3 * kCell + 100, 100, 88, 88 };
    canvas.DrawBitmap(image.get(), 1, kWhole);
    canvas.DrawBitmap(image.get(), 0.5f, kFaint);
}

// The fifth square: four pixels, packed by hand and enlarged: blue and green above red and half of white.
void DrawPackedImage(IRenderer2D& canvas) {
    constexpr const char* kRows[] = { "01FF00", "0100FF", "FF00",   "FFFF",
                                      "010080", "010080", "01FF80", "01FF80" };
    const std::unique_ptr<IBitMap2D> image(canvas.CreateBitmapFromPackedRows(kRows, std::size(kRows)));
    constexpr double kPlace[4] = { 4 * kCell + 25, 25, 150, 150 };
    canvas.DrawBitmap(image.get(), 1, kPlace);
}

// The sixth square: fills of falling alpha over one another.
void DrawFills(IRenderer2D& canvas) {
    constexpr int kSteps = 5;
    for (int step = 0; step < kSteps; ++step) {
        const Rgba colour = ColourOfTurn(double(step) / kSteps, 1);
        const double place[4] = { 5 * kCell + 20 + step * 24, 20 + step * 24.0, 60, 60 };
        canvas.SetFillColor(colour[0], colour[1], colour[2], 1 - 0.15 * step);
        canvas.FillRectangle(place);
    }
}

class TextureMaker final : public BitmapProcessingFunctor {
public:
    explicit TextureMaker(IRenderer& renderer)
        : mRenderer(renderer) {}

    void Process(void* pixels, int width, int height, int rowBytes, std::size_t) override {
        texture.reset(mRenderer.CreateTexture(
            pixels, static_cast<std::uint32_t>(width), static_cast<std::uint32_t>(height),
            static_cast<std::uint32_t>(rowBytes), 0, kPixelFormat_BGRA8, "panel", 0, false));
    }

    TexturePtr texture;

private:
    IRenderer& mRenderer;
};

} // namespace

TexturePtr MakePanel(IRenderer& renderer) {
    LayerBacked2DRenderer canvas;
    if (canvas.InitializeSurface(kPanelWidth, kPanelHeight, false) != kSurface_Success) return nullptr;
    canvas.BeginDraw();
    DrawTexts(canvas);
    DrawShapes(canvas);
    DrawDecodedImage(canvas);
    DrawPackedImage(canvas);
    DrawFills(canvas);
    canvas.EndDraw();
    TextureMaker maker(renderer);
    canvas.ReadPixels(maker);
    return std::move(maker.texture);
}

} // namespace orvane::demo
