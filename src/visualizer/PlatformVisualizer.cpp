#include "visualizer/PlatformVisualizer.h"

#include "visualizer/ConstructionSites.h"
#include "visualizer/D3DTextureBlitter.h"
#include "visualizer/D3DTextureCreator.h"
#include "visualizer/Pixels.h"

namespace orvane::visualizer {

namespace {

constexpr std::uint32_t kTrackTextWidth = 512, kTrackTextHeight = 64; // pixels, on every display
constexpr std::uint64_t kTrackLines = 3;
constexpr float kTrackTextSize = 12.0f; // pixels, on every display
constexpr std::uint32_t kArtworkSide = 64;

void DrawText(render::IRenderer2D& surface, std::u16string_view text, render::ITextFormat& format, double x,
              double y, double width, double height) {
    const double rect[4] = { x, y, width, height };
    surface.DrawText(text.data(), std::uint32_t(text.size()), &format, rect);
}

render::TexturePtr TextureOf(render::IRenderer2D& surface, render::IRenderer* renderer) {
    D3DTextureCreator creator(renderer);
    surface.ReadPixels(creator);
    return creator.Take();
}

} // namespace

// KEEP: the rows grow with the display and neither the text nor the surface does, and the first row's y is
// unsigned: once three rows are higher than the surface it wraps around to some 9e18, and no line falls on
// the surface. On displays of 125 per cent and more the track panel so has artwork and blank text.
// Required as it stands. Pinned by TrackText.At120DpiTheFirstRowWrapsAndTheTextIsBlank.
void PlatformVisualizer::CreateTrackInfoTexture(double) {
    const auto rowHeight = std::uint64_t(PanelTextSize() * kRowHeight);
    mTrackTextTexture.reset();
    const auto surface = MakeSurface(kTrackTextWidth, kTrackTextHeight);
    const auto format = surface ? MakeTextFormat(kTrackTextSize) : nullptr;
    if (!format) return;
    surface->BeginDraw();
    surface->SetFillColor(1, 1, 1, 1);
    std::uint64_t y = (kTrackTextHeight - kTrackLines * rowHeight) >> 1;
    for (const auto* line : { &mTrack.mTrackAlbum, &mTrack.mTrackArtist, &mTrack.mTrackName }) {
        DrawText(*surface, line->View(), *format, 0, double(y), kTrackTextWidth, double(rowHeight));
        y += rowHeight;
    }
    surface->EndDraw();
    mTrackTextTexture = TextureOf(*surface, mRenderer.get());
}

void PlatformVisualizer::SetArtwork(const void* image, std::uint64_t size, std::uint32_t format) {
    TexturePanelVisualizer::SetArtwork(image, size, format);
    const auto surface = MakeSurface(kArtworkSide, kArtworkSide);
    if (!surface || size > UINT32_MAX) return;
    const std::unique_ptr<render::IBitMap2D> bitmap(
        surface->CreateBitmapFromImageData(image, std::uint32_t(size)));
    if (!bitmap) return;
    constexpr double kSquare[4] = { 0, 0, kArtworkSide, kArtworkSide };
    surface->BeginDraw();
    surface->DrawBitmap(bitmap.get(), 1.0f, kSquare);
    surface->EndDraw();
    mArtworkTexture = TextureOf(*surface, mRenderer.get());
}

void PlatformVisualizer::DrawTextLines(const TextColumn& firstColumn, double firstX,
                                       const TextColumn& secondColumn, double secondX, double y,
                                       double fontSize, double lineHeight, render::ITexture* texture,
                                       bool /*unused1*/, bool /*unused2*/, bool rightAligned) {
    if (!texture) return;
    double size[2];
    texture->GetSize(size);
    const auto surface = MakeSurface(WholePixels(size[0]), WholePixels(size[1]));
    const auto format = surface ? MakeTextFormat(float(fontSize)) : nullptr;
    if (!format) return;
    if (rightAligned) format->SetTextAlignment(render::kTextAlignmentTrailing);
    surface->BeginDraw();
    surface->SetFillColor(1, 1, 1, 1);
    const bool bothColumns = firstColumn.size() == secondColumn.size();
    const double firstWidth = (bothColumns ? secondX : size[0]) - firstX;
    for (std::size_t row = 0; row < firstColumn.size(); ++row, y += lineHeight) {
        DrawText(*surface, firstColumn[row], *format, firstX, y, firstWidth, lineHeight);
        if (bothColumns)
            DrawText(*surface, secondColumn[row], *format, secondX, y, size[0] - secondX, lineHeight);
    }
    surface->EndDraw();
    D3DTextureBlitter blitter(texture);
    surface->ReadPixels(blitter);
}

} // namespace orvane::visualizer
