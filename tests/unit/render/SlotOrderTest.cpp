// The order of the operations is part of the contract. A pointer to a virtual member holds its place in the
// table, in both compilers' ABI: one more than the offset in bytes. A destructor takes two places there and
// one slot in the contract.
#include "render/CRenderingPipeline.h"
#include "render/IBufferTexture.h"
#include "render/IRenderer.h"
#include "render/IRenderingFunction.h"
#include "render/ITexture.h"

#include <gtest/gtest.h>

#include <cstddef>
#include <cstring>
#include <vector>

namespace orvane::render {
namespace {

template <typename Member>
std::size_t PlaceOf(Member member) {
    std::ptrdiff_t words[2];
    static_assert(sizeof member == sizeof words);
    std::memcpy(words, &member, sizeof words);
    EXPECT_EQ(words[0] % 2, 1) << "not virtual";
    return static_cast<std::size_t>(words[0] - 1) / sizeof(void*);
}

struct Row {
    std::size_t slot;
    const char* operation;
    std::size_t place;
};

#define SLOT(number, type, operation)                                                                        \
    { number, #operation, PlaceOf(&type::operation) }

// Every slot but the destructor's has one row.
void ExpectOrder(const std::vector<Row>& rows, std::size_t firstSlot, std::size_t destructorSlot) {
    std::size_t expectedSlot = firstSlot;
    for (const Row& row : rows) {
        if (expectedSlot == destructorSlot) ++expectedSlot;
        EXPECT_EQ(row.slot, expectedSlot++) << row.operation;
        EXPECT_EQ(row.place, row.slot > destructorSlot ? row.slot + 1 : row.slot) << row.operation;
    }
}

TEST(SlotOrder, RendererHasItsSixtyTwoSlotsInOrder) {
    const std::vector<Row> rows = {
        SLOT(1, IRenderer, PushPerspectiveProjection),
        SLOT(2, IRenderer, PushOrthographicProjection),
        SLOT(3, IRenderer, PushIdentityProjection),
        SLOT(4, IRenderer, PopProjection),
        SLOT(5, IRenderer, PushModelView),
        SLOT(6, IRenderer, PopModelView),
        SLOT(7, IRenderer, PushIdentityModelView),
        SLOT(8, IRenderer, Translate),
        SLOT(9, IRenderer, TranslateVector),
        SLOT(10, IRenderer, Rotate),
        SLOT(11, IRenderer, Scale),
        SLOT(12, IRenderer, Scale2D),
        SLOT(13, IRenderer, LoadIdentityModelView),
        SLOT(14, IRenderer, GetModelView),
        SLOT(15, IRenderer, SetModelView),
        SLOT(16, IRenderer, SetWireframe),
        SLOT(17, IRenderer, SetBlendMode),
        SLOT(18, IRenderer, SetColor),
        SLOT(19, IRenderer, BindTexture),
        SLOT(20, IRenderer, Reserved20),
        SLOT(21, IRenderer, CreateTexture),
        SLOT(22, IRenderer, CreateBufferTexture),
        SLOT(23, IRenderer, CreateVertexBuffer),
        SLOT(24, IRenderer, Reserved24),
        SLOT(25, IRenderer, AccessVertexBuffer),
        SLOT(26, IRenderer, DrawVertexBuffer),
        SLOT(27, IRenderer, DrawVertexBufferInstances),
        SLOT(28, IRenderer, BeginFrame),
        SLOT(29, IRenderer, Present),
        SLOT(30, IRenderer, Clear),
        SLOT(31, IRenderer, Reserved31),
        SLOT(32, IRenderer, SetViewport),
        SLOT(33, IRenderer, Reserved33),
        SLOT(34, IRenderer, Reserved34),
        SLOT(35, IRenderer, GetViewport),
        SLOT(36, IRenderer, ResizeRenderTarget),
        SLOT(37, IRenderer, GetContentScale),
        SLOT(38, IRenderer, SetContentScale),
        SLOT(39, IRenderer, IsFullScreen),
        SLOT(40, IRenderer, SetFullScreen),
        SLOT(41, IRenderer, GetRendererFlag),
        SLOT(42, IRenderer, SetRendererFlag),
        SLOT(43, IRenderer, GetPipeline),
        SLOT(44, IRenderer, Reserved44),
        SLOT(45, IRenderer, LoadVertexFunction),
        SLOT(46, IRenderer, CreateVertexFunction),
        SLOT(47, IRenderer, LoadFragmentFunction),
        SLOT(48, IRenderer, CreateFragmentFunction),
        SLOT(49, IRenderer, CreateGeometryFunction),
        SLOT(50, IRenderer, FindPipeline),
        SLOT(51, IRenderer, CreateLinearSamplerState),
        SLOT(52, IRenderer, CreatePointSamplerState),
        SLOT(53, IRenderer, Reserved53),
        SLOT(54, IRenderer, Reserved54),
        SLOT(55, IRenderer, Reserved55),
        SLOT(56, IRenderer, DrawTexturedQuad),
        SLOT(57, IRenderer, Reserved57),
        SLOT(58, IRenderer, Reserved58),
        SLOT(59, IRenderer, Reserved59),
        SLOT(60, IRenderer, Reserved60),
        SLOT(61, IRenderer, Reserved61),
    };
    ASSERT_EQ(rows.size(), 61u);
    ExpectOrder(rows, 1, 0);
}

TEST(SlotOrder, PipelineHasItsDestructorAtTwentyAndThreeOperationsBehindIt) {
    const std::vector<Row> rows = {
        SLOT(0, IRenderingPipeline, AttachFunctions),
        SLOT(1, IRenderingPipeline, Reserved1),
        SLOT(2, IRenderingPipeline, Reserved2),
        SLOT(3, IRenderingPipeline, Reserved3),
        SLOT(4, IRenderingPipeline, Reserved4),
        SLOT(5, IRenderingPipeline, Reserved5),
        SLOT(6, IRenderingPipeline, Reserved6),
        SLOT(7, IRenderingPipeline, Reserved7),
        SLOT(8, IRenderingPipeline, Reserved8),
        SLOT(9, IRenderingPipeline, Reserved9),
        SLOT(10, IRenderingPipeline, Reserved10),
        SLOT(11, IRenderingPipeline, Reserved11),
        SLOT(12, IRenderingPipeline, Reserved12),
        SLOT(13, IRenderingPipeline, Reserved13),
        SLOT(14, IRenderingPipeline, Reserved14),
        SLOT(15, IRenderingPipeline, Reserved15),
        SLOT(16, IRenderingPipeline, GetVertexFunction),
        SLOT(17, IRenderingPipeline, GetFragmentFunction),
        SLOT(18, IRenderingPipeline, GetGeometryFunction),
        SLOT(19, IRenderingPipeline, Reserved19),
        SLOT(21, CRenderingPipeline, BuildFunctions),
        SLOT(22, CRenderingPipeline, BeginPipeline),
        SLOT(23, CRenderingPipeline, EndPipeline),
    };
    ASSERT_EQ(rows.size(), 23u);
    ExpectOrder(rows, 0, 20);
}

TEST(SlotOrder, FunctionsHaveTheirDestructorAtOne) {
    ExpectOrder({ SLOT(0, IRenderingFunction, GetFunctionId) }, 0, 1);
    ExpectOrder({ SLOT(0, IVertexFunction, GetFunctionId), SLOT(2, IVertexFunction, GetFunctionCode),
                  SLOT(3, IVertexFunction, GetFunctionCodeSize) },
                0, 1);
    ExpectOrder({ SLOT(0, IFragmentFunction, GetFunctionId), SLOT(2, IFragmentFunction, AddSamplerState) }, 0,
                1);
}

TEST(SlotOrder, TextureHasNineOperationsAndThenItsDestructor) {
    const std::vector<Row> rows = {
        SLOT(0, ITexture, AddRef),         SLOT(1, ITexture, Release),   SLOT(2, ITexture, SetSize),
        SLOT(3, ITexture, UpdateContents), SLOT(4, ITexture, GetSize),   SLOT(5, ITexture, Bind),
        SLOT(6, ITexture, Unbind),         SLOT(7, ITexture, Reserved7), SLOT(8, ITexture, Reserved8),
    };
    ASSERT_EQ(rows.size(), 9u);
    ExpectOrder(rows, 0, 9);
}

TEST(SlotOrder, BufferTextureHasSixOperationsAndThenItsDestructor) {
    const std::vector<Row> rows = {
        SLOT(0, IBufferTexture, Bind),        SLOT(1, IBufferTexture, Unbind),
        SLOT(2, IBufferTexture, Reserved2),   SLOT(3, IBufferTexture, UpdateData),
        SLOT(4, IBufferTexture, GetCapacity), SLOT(5, IBufferTexture, Reserved5),
    };
    ASSERT_EQ(rows.size(), 6u);
    ExpectOrder(rows, 0, 6);
}

} // namespace
} // namespace orvane::render
