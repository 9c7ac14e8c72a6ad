// The state of a renderer and the order of its draws, seen through a recorder.
#pragma once

#include "render/recording/RecordingRenderer.h"

#include <gtest/gtest.h>

namespace orvane::render {

class ImmediateRendererTest : public testing::Test {
protected:
    int MakeBuffer(std::uint32_t kind, std::uint32_t vertexCount,
                   std::uint32_t primitive = kPrimitive_Triangles) {
        return static_cast<int>(mRenderer.CreateVertexBuffer("buffer", primitive, mRenderer.GetPipeline(kind),
                                                             vertexCount, 1, nullptr));
    }

    Matrix ModelView() {
        Matrix matrix;
        mRenderer.GetModelView(matrix.data());
        return matrix;
    }

    // The matrix that a draw under the present stacks is given.
    Matrix DrawnMatrix() {
        if (mMatrixProbe == 0) mMatrixProbe = MakeBuffer(kPos_BlendingOFF, 3);
        EXPECT_TRUE(mRenderer.DrawVertexBuffer(nullptr, mMatrixProbe, 0, 3));
        return mRenderer.Draws().back().matrix.value();
    }

    RecordingRenderer mRenderer;
    int mMatrixProbe = 0;
};

} // namespace orvane::render
