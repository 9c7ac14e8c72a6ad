// The platform's place in the chain of classes, between what all visualizers share and the panels. This
// platform adds nothing here.
#pragma once

#include "visualizer/Visualizer.h"

namespace orvane::visualizer {

class WVisualizer : public Visualizer {
public:
    using Visualizer::Visualizer;
};

} // namespace orvane::visualizer
