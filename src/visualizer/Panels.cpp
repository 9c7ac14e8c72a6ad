#include "visualizer/Panels.h"

#include "visualizer/PanelText.h"
#include "visualizer/Pixels.h"
#include "visualizer/TexturePanelVisualizer.h"

#include <string>

namespace orvane::visualizer {

namespace {

constexpr double kTextSize = 12.0;        // pixels at 96 DPI
constexpr double kCounterRowHeight = 1.5; // of the FPS and config panels, in text sizes

constexpr double kHelpFadeBegins = 18.0; // seconds
constexpr double kHelpMargin = 20.0;     // pixels, as all margins here
constexpr double kFPSBottomMargin = 10.0;
constexpr double kConfigRightMargin = 20.0, kConfigTopMargin = 30.0;

constexpr double kWholeTexture[4] = { 0, 0, 1, 1 };

struct Sizes {
    double textureWidth, textureHeight, viewWidth, viewHeight;
};

Sizes SizesOf(render::ITexture& texture, render::IRenderer& renderer) {
    double size[2], viewport[4];
    texture.GetSize(size);
    renderer.GetViewport(viewport);
    return { size[0], size[1], viewport[2], viewport[3] };
}

void DrawUnderIdentity(render::IRenderer& renderer, render::ITexture* texture, int quadBufferId,
                       const double destination[4], float alpha) {
    renderer.PushIdentityProjection();
    renderer.PushIdentityModelView();
    renderer.DrawTexturedQuad(texture, quadBufferId, destination, kWholeTexture, alpha,
                              render::kColorMode_White);
    renderer.PopModelView();
    renderer.PopProjection();
}

} // namespace

int PanelTextSize() {
    return ScaleForDisplay(kTextSize);
}

float HelpAlpha(double age) {
    return age > kHelpFadeBegins ? float((kHelpSeconds - age) * 0.5) : 1.0f;
}

// KEEP: the left margin is 20 pixels over the view's height, where 20 over its width is meant: the term is
// (1 / height) * width * 20 * (1 / width). In a wide view the panel so stands further from the left edge than
// from the top, in a tall one nearer. The layout of all panels has grown around it.
// Pinned by Panels.TheHelpsLeftMarginRestsOnTheViewsHeight.
void DrawHelpPanel(const HelpPanel& panel, render::IRenderer& renderer, int quadBufferId, double now) {
    const Sizes s = SizesOf(*panel.texture, renderer);
    const double margin = kHelpMargin / s.viewHeight;
    const double destination[4] = { margin, 1 - s.textureHeight / s.viewHeight - margin,
                                    s.textureWidth / s.viewWidth, s.textureHeight / s.viewHeight };
    DrawUnderIdentity(renderer, panel.texture, quadBufferId, destination, HelpAlpha(now - panel.startTime));
}

// KEEP: x is 1 less the texture's width over the view's height, by the same slip as the help's margin. In a
// wide view the counter so stands left of the right edge, in a tall one it hangs over it.
// Pinned by Panels.TheFpsCountersRightEdgeRestsOnTheViewsHeight.
void DrawFPSPanel(const Panel& panel, TexturePanelVisualizer& visualizer, render::IRenderer& renderer,
                  int quadBufferId, int fps) {
    const std::string text = std::to_string(fps) + " FPS";
    visualizer.DrawTextLines({ std::u16string(text.begin(), text.end()) }, 0, {}, 0, 0, panel.textSize,
                             panel.textSize * kCounterRowHeight, panel.texture, true, false, false);
    const Sizes s = SizesOf(*panel.texture, renderer);
    const double destination[4] = { 1 - s.textureWidth / s.viewHeight,
                                    double(float(s.textureHeight + kFPSBottomMargin)) / s.viewHeight,
                                    s.textureWidth / s.viewWidth, s.textureHeight / s.viewHeight };
    DrawUnderIdentity(renderer, panel.texture, quadBufferId, destination, 1.0f);
}

void DrawConfigPanel(const Panel& panel, TexturePanelVisualizer& visualizer, render::IRenderer& renderer,
                     int quadBufferId, std::string_view line1, std::string_view line2,
                     std::string_view line3) {
    TextColumn lines;
    for (const std::string_view line : { line1, line2, line3 }) AppendPanelText(lines, line);
    visualizer.DrawTextLines(lines, 0, {}, 0, 0, panel.textSize, panel.textSize * kCounterRowHeight,
                             panel.texture, true, false, true);
    const Sizes s = SizesOf(*panel.texture, renderer);
    const double destination[4] = { 1 - (s.textureWidth + kConfigRightMargin) / s.viewWidth,
                                    1 - double(float(s.textureHeight + kConfigTopMargin)) / s.viewHeight,
                                    s.textureWidth / s.viewWidth, s.textureHeight / s.viewHeight };
    DrawUnderIdentity(renderer, panel.texture, quadBufferId, destination, 1.0f);
}

} // namespace orvane::visualizer
