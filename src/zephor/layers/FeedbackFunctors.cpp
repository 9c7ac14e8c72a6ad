#include "zephor/layers/FeedbackFunctors.h"

namespace orvane::zephor {

SrcRenderBitMapProcessingFunctor::SrcRenderBitMapProcessingFunctor(FeedbackEngine& engine,
                                                                   const FieldInForce& field,
                                                                   void* targetBits, int targetWidth,
                                                                   int targetHeight, int targetRowBytes)
    : mEngine(engine)
    , mField(field)
    , mTargetBits(targetBits)
    , mTargetWidth(targetWidth)
    , mTargetHeight(targetHeight)
    , mTargetRowBytes(targetRowBytes) {}

void SrcRenderBitMapProcessingFunctor::Process(void* pixels, int width, int height, int rowBytes,
                                               std::size_t) {
    if (width != mTargetWidth || height != mTargetHeight) return;
    const FeedbackImages images{ static_cast<const std::uint8_t*>(pixels),
                                 rowBytes,
                                 static_cast<std::uint8_t*>(mTargetBits),
                                 mTargetRowBytes,
                                 width,
                                 height };
    mEngine.Step(images, mField.field, mField.version, mField.sliceCount);
}

DstRenderBitMapProcessingFunctor::DstRenderBitMapProcessingFunctor(FeedbackEngine& engine,
                                                                   const FieldInForce& field,
                                                                   render::IRenderer2D* sourceSurface)
    : mEngine(engine)
    , mField(field)
    , mSourceSurface(sourceSurface) {}

void DstRenderBitMapProcessingFunctor::Process(void* pixels, int width, int height, int rowBytes,
                                               std::size_t) {
    if (!mSourceSurface) return;
    SrcRenderBitMapProcessingFunctor source(mEngine, mField, pixels, width, height, rowBytes);
    mSourceSurface->ReadPixels(source);
}

} // namespace orvane::zephor
