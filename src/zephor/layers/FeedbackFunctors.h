// The pair of functors that takes the feedback step through the locks of its two surfaces, the target's around
// the source's.
#pragma once

#include "render/IRenderer2D.h"
#include "zephor/layers/FeedbackEngine.h"

namespace orvane::zephor {

// What the step needs to know of the field in force.
struct FieldInForce {
    int sliceCount;
    FeedbackField field;
    std::uint64_t version;
};

// Receives the source's bytes, and runs the step.
class SrcRenderBitMapProcessingFunctor final : public render::BaseBitmapProcessingFunctor {
public:
    // The target's bytes are those that DstRenderBitMapProcessingFunctor received.
    SrcRenderBitMapProcessingFunctor(FeedbackEngine& engine, const FieldInForce& field, void* targetBits,
                                     int targetWidth, int targetHeight, int targetRowBytes);

    // Does nothing if the surfaces differ in size.
    void Process(void* pixels, int width, int height, int rowBytes, std::size_t byteCount) override;

private:
    FeedbackEngine& mEngine;
    const FieldInForce& mField;
    void* mTargetBits;
    int mTargetWidth, mTargetHeight, mTargetRowBytes;
};

// Receives the target's bytes, and hands the source's surface, which may be null, the other one.
class DstRenderBitMapProcessingFunctor final : public render::BaseBitmapProcessingFunctor {
public:
    DstRenderBitMapProcessingFunctor(FeedbackEngine& engine, const FieldInForce& field,
                                     render::IRenderer2D* sourceSurface);

    // Does nothing without a source.
    void Process(void* pixels, int width, int height, int rowBytes, std::size_t byteCount) override;

private:
    FeedbackEngine& mEngine;
    const FieldInForce& mField;
    render::IRenderer2D* mSourceSurface;
};

} // namespace orvane::zephor
