// The part of a renderer's state that no graphics interface has to do with: accessors and nothing else.
#pragma once

#include "render/IRenderer.h"

namespace orvane::render {

class CRenderer : public IRenderer {
public:
    double GetContentScale() override { return mContentScale; }

    void SetContentScale(double scale) override { mContentScale = scale; }

    bool IsFullScreen() override { return mFullScreen; }

    bool GetRendererFlag() override { return mRendererFlag; }

    void SetRendererFlag(bool on) override { mRendererFlag = on; }

protected:
    double mContentScale = 1.0;
    bool mRendererFlag = false;
    bool mFullScreen = false; // slot 40, which also tells the display, is the realisation's
};

} // namespace orvane::render
