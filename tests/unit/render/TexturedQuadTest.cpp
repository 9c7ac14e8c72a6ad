#include "render/TexturedQuad.h"

#include <gtest/gtest.h>

#include <bit>
#include <cstdint>

namespace orvane::render {
namespace {

void ExpectVertex(const TexturedVertex& got, float x, float y, float u, float v) {
    EXPECT_EQ(got.x, x);
    EXPECT_EQ(got.y, y);
    EXPECT_EQ(std::bit_cast<std::uint32_t>(got.z), 0x3DCCCCCDu);
    EXPECT_EQ(got.u, u);
    EXPECT_EQ(got.v, v);
}

TEST(TexturedQuad, WholeTextureOnTheWholeViewWithYDownwardInTheSourceAlone) {
    const double unit[4] = { 0, 0, 1, 1 };
    const TexturedQuad quad = MakeTexturedQuad(unit, unit);
    ExpectVertex(quad[0], 1, -1, 1, 1);
    ExpectVertex(quad[1], 1, 1, 1, 0);
    ExpectVertex(quad[2], -1, -1, 0, 1);
    ExpectVertex(quad[3], -1, 1, 0, 0);
}

TEST(TexturedQuad, PartsOfBothRectangles) {
    const double destination[4] = { 0.25, 0.125, 0.5, 0.25 }, source[4] = { 0.125, 0.25, 0.5, 0.625 };
    const TexturedQuad quad = MakeTexturedQuad(destination, source);
    ExpectVertex(quad[0], 0.5f, -0.75f, 0.625f, 0.875f);
    ExpectVertex(quad[1], 0.5f, -0.25f, 0.625f, 0.25f);
    ExpectVertex(quad[2], -0.5f, -0.75f, 0.125f, 0.875f);
    ExpectVertex(quad[3], -0.5f, -0.25f, 0.125f, 0.25f);
}

} // namespace
} // namespace orvane::render
