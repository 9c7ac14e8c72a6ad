// A layer that only keeps what it is told to draw.
#pragma once

#include "zephor/layers/ZephorLayer.h"

#include <array>
#include <vector>

namespace orvane::tests {

enum class LayerCall { Begin, End, FillColour, StrokeColour, FillEllipse, StrokeEllipse, Line };

struct Segment {
    double x0, y0, x1, y1;
    float width;
    bool operator==(const Segment&) const = default;
};

using Rect = std::array<double, 4>;
using Colour = std::array<float, 3>;

class RecordingLayer final : public zephor::ZephorLayer {
public:
    RecordingLayer()
        : ZephorLayer(4, 5) {}

    void BeginDraw() override { mCalls.push_back(LayerCall::Begin); }

    void EndDraw() override { mCalls.push_back(LayerCall::End); }

    void FillEllipse(const double rect[4]) override {
        mCalls.push_back(LayerCall::FillEllipse);
        mRects.push_back({ rect[0], rect[1], rect[2], rect[3] });
    }

    void StrokeEllipse(const double rect[4]) override {
        mCalls.push_back(LayerCall::StrokeEllipse);
        mRects.push_back({ rect[0], rect[1], rect[2], rect[3] });
    }

    void SetFillColor(const float rgb[3]) override {
        mCalls.push_back(LayerCall::FillColour);
        mColours.push_back({ rgb[0], rgb[1], rgb[2] });
    }

    void SetStrokeColor(const float rgb[3]) override {
        mCalls.push_back(LayerCall::StrokeColour);
        mColours.push_back({ rgb[0], rgb[1], rgb[2] });
    }

    void DrawLines(const double points[], int count, float width) override {
        for (int i = 0; i < count; ++i, points += 4) {
            mCalls.push_back(LayerCall::Line);
            mSegments.push_back({ points[0], points[1], points[2], points[3], width });
        }
    }

    [[nodiscard]] int GetRowBytes() const override { return 0; }

    bool AllocateSurface() override { return true; }

    int ComputeRowBytes(int) override { return 0; }

    void Forget() { mCalls.clear(), mSegments.clear(), mRects.clear(), mColours.clear(); }

    std::vector<LayerCall> mCalls;
    std::vector<Segment> mSegments;
    std::vector<Rect> mRects; // of ellipses
    std::vector<Colour> mColours;
};

} // namespace orvane::tests
