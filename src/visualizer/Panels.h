// The overlays that a key brings up: their records, their sizes and where they stand in the view.
#pragma once

#include "render/IRenderer.h"

#include <string_view>

namespace orvane::visualizer {

class TexturePanelVisualizer;

// There while the panel shows.
struct Panel {
    render::ITexture* texture; // the visualizer's, which keeps it for as long as it lives
    float textSize;            // pixels
};

struct HelpPanel : Panel {
    double startTime; // of the clock
};

// Height of a row of help or track text, in text sizes.
constexpr double kRowHeight = 1.7f; // the float: its last digits count where a panel's height is cut
constexpr int kConfigRows = 3, kHelpRows = 9;

// The text size of all panels, scaled for the display.
[[nodiscard]] int PanelTextSize();

// Each draws its panel under identity matrices and leaves the stacks as they were. `quadBufferId` is the
// shared quad's.
void DrawHelpPanel(const HelpPanel& panel, render::IRenderer& renderer, int quadBufferId, double now);

// `fps` is shown as a whole number. The text is set anew each time.
void DrawFPSPanel(const Panel& panel, TexturePanelVisualizer& visualizer, render::IRenderer& renderer,
                  int quadBufferId, int fps);

// The lines are UTF-8; one that is none, or is longer than 2047 units, is left out.
void DrawConfigPanel(const Panel& panel, TexturePanelVisualizer& visualizer, render::IRenderer& renderer,
                     int quadBufferId, std::string_view line1, std::string_view line2,
                     std::string_view line3);

// How long the help shows and how strongly, by its age in seconds.
constexpr double kHelpSeconds = 20.0;
[[nodiscard]] float HelpAlpha(double age);

} // namespace orvane::visualizer
