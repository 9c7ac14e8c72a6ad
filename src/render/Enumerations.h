// The values that the drawing contract passes as plain 32-bit integers, and its few fixed limits.
#pragma once

#include <cstdint>

namespace orvane::render {

// How a draw's colours meet what is there. The colour is s (alpha a), the target t.
enum BlendMode : std::uint32_t {
    kBlendMode_Alpha = 0,    // s * a + t * (1 - a)
    kBlendMode_Additive = 1, // s * a + t
    kBlendMode_Off = 2,      // s; the mode of a new renderer
};

// The texel of CreateTexture. 2, 3 and everything above 5 name no format.
enum PixelFormat : std::uint32_t {
    kPixelFormat_RGBA8 = 0,       // four unsigned normalised bytes, red first
    kPixelFormat_BGRA8 = 1,       // four unsigned normalised bytes, blue first
    kPixelFormat_R8UInt = 4,      // one unsigned byte, read by the shader as an integer
    kPixelFormat_RGBA32Float = 5, // four 32-bit floats
};

// What the vertices of a buffer make. 2 is unassigned: such a draw uses the primitive of the draw before it.
enum PrimitiveKind : std::uint32_t {
    kPrimitive_TriangleStrip = 0,
    kPrimitive_Triangles = 1,
    kPrimitive_Lines = 3,
    kPrimitive_Points = 4,
};

// What DrawTexturedQuad does to the colour first. Any other value leaves it.
enum ColorMode : std::uint32_t {
    kColorMode_White = 0, // (1, 1, 1, alpha)
    kColorMode_Black = 1, // (0, 0, 0, alpha)
};

// The results of operations that return a status.
enum Status : std::uint32_t {
    kStatus_Success = 0,
    kStatus_BadArgument = 1,
    kStatus_NoResource = 3,
    kStatus_Failure = 7,
};

constexpr std::uint32_t kLargestTextureSide = 16384; // texels
constexpr std::uint32_t kNoVertexBuffer = 0;         // buffer ids count from 1
constexpr std::uint32_t kNoValue = ~std::uint32_t(0);

// Bytes of one texel; 0 if `pixelFormat` names no format.
[[nodiscard]] constexpr std::uint32_t BytesPerTexel(std::uint32_t pixelFormat) {
    switch (pixelFormat) {
    case kPixelFormat_RGBA8:
    case kPixelFormat_BGRA8:
        return 4;
    case kPixelFormat_R8UInt:
        return 1;
    case kPixelFormat_RGBA32Float:
        return 16;
    default:
        return 0;
    }
}

} // namespace orvane::render
