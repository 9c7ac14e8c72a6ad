// The order of the operations is part of the contract.
#include "render/CRenderingPipeline.h"
#include "render/IBufferTexture.h"
#include "render/IRenderer.h"
#include "render/IRenderingFunction.h"
#include "render/ITexture.h"

#include "support/SlotOrder.h"

#include <gtest/gtest.h>

#include <vector>

namespace orvane::render {
namespace {

using tests::ExpectSlotOrder;
using tests::SlotRow;

TEST(SlotOrder, RendererHasItsSixtyTwoSlotsInOrder) {
    const std::vector<SlotRow> rows = {
        ORVANE_SLOT(1, IRenderer, PushPerspectiveProjection),
        ORVANE_SLOT(2, IRenderer, PushOrthographicProjection),
        ORVANE_SLOT(3, IRenderer, PushIdentityProjection),
        ORVANE_SLOT(4, IRenderer, PopProjection),
        ORVANE_SLOT(5, IRenderer, PushModelView),
        ORVANE_SLOT(6, IRenderer, PopModelView),
        ORVANE_SLOT(7, IRenderer, PushIdentityModelView),
        ORVANE_SLOT(8, IRenderer, Translate),
        ORVANE_SLOT(9, IRenderer, TranslateVector),
        ORVANE_SLOT(10, IRenderer, Rotate),
        ORVANE_SLOT(11, IRenderer, Scale),
        ORVANE_SLOT(12, IRenderer, Scale2D),
        ORVANE_SLOT(13, IRenderer, LoadIdentityModelView),
        ORVANE_SLOT(14, IRenderer, GetModelView),
        ORVANE_SLOT(15, IRenderer, SetModelView),
        ORVANE_SLOT(16, IRenderer, SetWireframe),
        ORVANE_SLOT(17, IRenderer, SetBlendMode),
        ORVANE_SLOT(18, IRenderer, SetColor),
        ORVANE_SLOT(19, IRenderer, BindTexture),
        ORVANE_SLOT(20, IRenderer, Reserved20),
        ORVANE_SLOT(21, IRenderer, CreateTexture),
        ORVANE_SLOT(22, IRenderer, CreateBufferTexture),
        ORVANE_SLOT(23, IRenderer, CreateVertexBuffer),
        ORVANE_SLOT(24, IRenderer, Reserved24),
        ORVANE_SLOT(25, IRenderer, AccessVertexBuffer),
        ORVANE_SLOT(26, IRenderer, DrawVertexBuffer),
        ORVANE_SLOT(27, IRenderer, DrawVertexBufferInstances),
        ORVANE_SLOT(28, IRenderer, BeginFrame),
        ORVANE_SLOT(29, IRenderer, Present),
        ORVANE_SLOT(30, IRenderer, Clear),
        ORVANE_SLOT(31, IRenderer, Reserved31),
        ORVANE_SLOT(32, IRenderer, SetViewport),
        ORVANE_SLOT(33, IRenderer, Reserved33),
        ORVANE_SLOT(34, IRenderer, Reserved34),
        ORVANE_SLOT(35, IRenderer, GetViewport),
        ORVANE_SLOT(36, IRenderer, ResizeRenderTarget),
        ORVANE_SLOT(37, IRenderer, GetContentScale),
        ORVANE_SLOT(38, IRenderer, SetContentScale),
        ORVANE_SLOT(39, IRenderer, IsFullScreen),
        ORVANE_SLOT(40, IRenderer, SetFullScreen),
        ORVANE_SLOT(41, IRenderer, GetRendererFlag),
        ORVANE_SLOT(42, IRenderer, SetRendererFlag),
        ORVANE_SLOT(43, IRenderer, GetPipeline),
        ORVANE_SLOT(44, IRenderer, Reserved44),
        ORVANE_SLOT(45, IRenderer, LoadVertexFunction),
        ORVANE_SLOT(46, IRenderer, CreateVertexFunction),
        ORVANE_SLOT(47, IRenderer, LoadFragmentFunction),
        ORVANE_SLOT(48, IRenderer, CreateFragmentFunction),
        ORVANE_SLOT(49, IRenderer, CreateGeometryFunction),
        ORVANE_SLOT(50, IRenderer, FindPipeline),
        ORVANE_SLOT(51, IRenderer, CreateLinearSamplerState),
        ORVANE_SLOT(52, IRenderer, CreatePointSamplerState),
        ORVANE_SLOT(53, IRenderer, Reserved53),
        ORVANE_SLOT(54, IRenderer, Reserved54),
        ORVANE_SLOT(55, IRenderer, Reserved55),
        ORVANE_SLOT(56, IRenderer, DrawTexturedQuad),
        ORVANE_SLOT(57, IRenderer, Reserved57),
        ORVANE_SLOT(58, IRenderer, Reserved58),
        ORVANE_SLOT(59, IRenderer, Reserved59),
        ORVANE_SLOT(60, IRenderer, Reserved60),
        ORVANE_SLOT(61, IRenderer, Reserved61),
    };
    ASSERT_EQ(rows.size(), 61u);
    ExpectSlotOrder(rows, 1, 0);
}

TEST(SlotOrder, PipelineHasItsDestructorAtTwentyAndThreeOperationsBehindIt) {
    const std::vector<SlotRow> rows = {
        ORVANE_SLOT(0, IRenderingPipeline, AttachFunctions),
        ORVANE_SLOT(1, IRenderingPipeline, Reserved1),
        ORVANE_SLOT(2, IRenderingPipeline, Reserved2),
        ORVANE_SLOT(3, IRenderingPipeline, Reserved3),
        ORVANE_SLOT(4, IRenderingPipeline, Reserved4),
        ORVANE_SLOT(5, IRenderingPipeline, Reserved5),
        ORVANE_SLOT(6, IRenderingPipeline, Reserved6),
        ORVANE_SLOT(7, IRenderingPipeline, Reserved7),
        ORVANE_SLOT(8, IRenderingPipeline, Reserved8),
        ORVANE_SLOT(9, IRenderingPipeline, Reserved9),
        ORVANE_SLOT(10, IRenderingPipeline, Reserved10),
        ORVANE_SLOT(11, IRenderingPipeline, Reserved11),
        ORVANE_SLOT(12, IRenderingPipeline, Reserved12),
        ORVANE_SLOT(13, IRenderingPipeline, Reserved13),
        ORVANE_SLOT(14, IRenderingPipeline, Reserved14),
        ORVANE_SLOT(15, IRenderingPipeline, Reserved15),
        ORVANE_SLOT(16, IRenderingPipeline, GetVertexFunction),
        ORVANE_SLOT(17, IRenderingPipeline, GetFragmentFunction),
        ORVANE_SLOT(18, IRenderingPipeline, GetGeometryFunction),
        ORVANE_SLOT(19, IRenderingPipeline, Reserved19),
        ORVANE_SLOT(21, CRenderingPipeline, BuildFunctions),
        ORVANE_SLOT(22, CRenderingPipeline, BeginPipeline),
        ORVANE_SLOT(23, CRenderingPipeline, EndPipeline),
    };
    ASSERT_EQ(rows.size(), 23u);
    ExpectSlotOrder(rows, 0, 20);
}

TEST(SlotOrder, FunctionsHaveTheirDestructorAtOne) {
    ExpectSlotOrder({ ORVANE_SLOT(0, IRenderingFunction, GetFunctionId) }, 0, 1);
    ExpectSlotOrder({ ORVANE_SLOT(0, IVertexFunction, GetFunctionId),
                      ORVANE_SLOT(2, IVertexFunction, GetFunctionCode),
                      ORVANE_SLOT(3, IVertexFunction, GetFunctionCodeSize) },
                    0, 1);
    ExpectSlotOrder({ ORVANE_SLOT(0, IFragmentFunction, GetFunctionId),
                      ORVANE_SLOT(2, IFragmentFunction, AddSamplerState) },
                    0, 1);
}

TEST(SlotOrder, TextureHasNineOperationsAndThenItsDestructor) {
    const std::vector<SlotRow> rows = {
        ORVANE_SLOT(0, ITexture, AddRef),    ORVANE_SLOT(1, ITexture, Release),
        ORVANE_SLOT(2, ITexture, SetSize),   ORVANE_SLOT(3, ITexture, UpdateContents),
        ORVANE_SLOT(4, ITexture, GetSize),   ORVANE_SLOT(5, ITexture, Bind),
        ORVANE_SLOT(6, ITexture, Unbind),    ORVANE_SLOT(7, ITexture, Reserved7),
        ORVANE_SLOT(8, ITexture, Reserved8),
    };
    ASSERT_EQ(rows.size(), 9u);
    ExpectSlotOrder(rows, 0, 9);
}

TEST(SlotOrder, BufferTextureHasSixOperationsAndThenItsDestructor) {
    const std::vector<SlotRow> rows = {
        ORVANE_SLOT(0, IBufferTexture, Bind),        ORVANE_SLOT(1, IBufferTexture, Unbind),
        ORVANE_SLOT(2, IBufferTexture, Reserved2),   ORVANE_SLOT(3, IBufferTexture, UpdateData),
        ORVANE_SLOT(4, IBufferTexture, GetCapacity), ORVANE_SLOT(5, IBufferTexture, Reserved5),
    };
    ASSERT_EQ(rows.size(), 6u);
    ExpectSlotOrder(rows, 0, 6);
}

} // namespace
} // namespace orvane::render
