// What the committed byte code says of itself: a container of named chunks, among them the signatures of
// inputs (ISGN) and outputs (OSGN), by whose registers the stages are linked.
#include "render/direct3d/shaders/ShaderCode.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <bit>
#include <cctype>
#include <cstdint>
#include <cstring>
#include <string>
#include <string_view>
#include <vector>

namespace orvane::render {
namespace {

using enum ShaderSet;
using Code = std::span<const std::byte>;

std::uint32_t Word(Code code, std::size_t offset) {
    std::uint32_t word = 0;
    if (offset + sizeof word <= code.size()) std::memcpy(&word, code.data() + offset, sizeof word);
    return word;
}

// The body of a chunk; empty if there is none.
Code Chunk(Code code, std::string_view name) {
    constexpr std::size_t kChunkCount = 28, kFirstOffset = 32, kHeading = 8;
    for (std::uint32_t i = 0; i < Word(code, kChunkCount); ++i) {
        const std::size_t at = Word(code, kFirstOffset + 4 * i);
        if (at + kHeading > code.size() || std::memcmp(code.data() + at, name.data(), 4) != 0) continue;
        return code.subspan(at + kHeading, Word(code, at + 4));
    }
    return {};
}

// "0 COLOR, 1 TEXCOORD" : registers and semantics, in capitals, in the order of the registers.
std::string Signature(Code code, std::string_view name) {
    constexpr std::size_t kElements = 8, kElementSize = 24, kRegister = 16;
    const Code chunk = Chunk(code, name);
    std::vector<std::string> elements;
    for (std::uint32_t i = 0; i < Word(chunk, 0); ++i) {
        const std::size_t element = kElements + i * kElementSize;
        std::string semantic(reinterpret_cast<const char*>(chunk.data()) + Word(chunk, element));
        std::ranges::transform(semantic, semantic.begin(),
                               [](unsigned char c) { return char(std::toupper(c)); });
        elements.push_back(std::to_string(Word(chunk, element + kRegister)) + " " + semantic);
    }
    std::ranges::sort(elements);
    std::string text;
    for (const std::string& element : elements) text += (text.empty() ? "" : ", ") + element;
    return text;
}

Code InstructionsOf(Code code) {
    return Chunk(code, "SHDR");
}

bool HasWord(Code code, std::uint32_t word) {
    for (std::size_t at = 0; at + 4 <= code.size(); at += 4)
        if (Word(code, at) == word) return true;
    return false;
}

TEST(Shaders, EachStageIsAWholeContainerOfItsProfile) {
    constexpr std::uint32_t kFragment = 0x00000040, kVertex = 0x00010040, kGeometry = 0x00020040; // model 4.0
    const auto expectStage = [](Code code, std::uint32_t program) {
        ASSERT_GE(code.size(), 32u);
        EXPECT_EQ(std::memcmp(code.data(), "DXBC", 4), 0);
        EXPECT_EQ(Word(code, 24), code.size());
        EXPECT_EQ(Word(InstructionsOf(code), 0), program);
    };
    for (const ShaderSet set : { A, B, C, D, E, F }) {
        SCOPED_TRACE(ShaderSetRowOf(set).vertexName);
        const ShaderSetCode code = ShaderCodeOf(set);
        expectStage(code.vertex, kVertex);
        expectStage(code.fragment, kFragment);
        ASSERT_EQ(code.geometry.empty(), ShaderSetRowOf(set).geometryName == nullptr);
        if (!code.geometry.empty()) expectStage(code.geometry, kGeometry);
    }
}

TEST(Shaders, VertexInputsAreTheElementsOfTheLayoutInTheirOrder) {
    for (const ShaderSet set : { A, B, C, D, E, F }) {
        std::string expected;
        std::uint32_t place = 0;
        for (const VertexElement& element : ShaderSetRowOf(set).elements)
            expected += (expected.empty() ? "" : ", ") + std::to_string(place++) + " " + element.semantic;
        EXPECT_EQ(Signature(ShaderCodeOf(set).vertex, "ISGN"), expected);
    }
}

TEST(Shaders, ThePositionStandsLastInSetsBCAndDAndFirstInEAndF) {
    const auto outputs = [](ShaderSet set) { return Signature(ShaderCodeOf(set).vertex, "OSGN"); };
    EXPECT_EQ(outputs(A), "0 SV_POSITION");
    EXPECT_EQ(outputs(B), "0 TEXCOORD, 1 SV_POSITION");
    EXPECT_EQ(outputs(C), "0 COLOR, 1 TEXCOORD, 2 SV_POSITION");
    EXPECT_EQ(outputs(D), "0 COLOR, 1 SV_POSITION");
    EXPECT_EQ(outputs(E), "0 SV_POSITION, 1 COLOR, 2 RADIUS");
    EXPECT_EQ(outputs(F), "0 SV_POSITION, 1 TEXCOORD");
}

TEST(Shaders, StagesAreLinkedByRegister) {
    const auto inputs = [](ShaderSet set) { return Signature(ShaderCodeOf(set).fragment, "ISGN"); };
    EXPECT_EQ(inputs(A), "");
    EXPECT_EQ(inputs(B), "0 TEXCOORD");
    EXPECT_EQ(inputs(C), "0 COLOR, 1 TEXCOORD");
    EXPECT_EQ(inputs(D), "0 COLOR");
    EXPECT_EQ(inputs(F), "0 SV_POSITION, 1 TEXCOORD");
    const ShaderSetCode sprites = ShaderCodeOf(E);
    EXPECT_EQ(Signature(sprites.geometry, "ISGN"), Signature(sprites.vertex, "OSGN"));
    EXPECT_EQ(Signature(sprites.geometry, "OSGN"), "0 COLOR, 1 TEXCOORD, 2 SV_POSITION");
    EXPECT_EQ(Signature(sprites.fragment, "ISGN"), Signature(sprites.geometry, "OSGN"));
}

TEST(Shaders, TheSpriteStageTakesTheRadiusForHalfTheDiagonal) {
    EXPECT_TRUE(HasWord(InstructionsOf(ShaderCodeOf(E).geometry), 0x3F3504E6)) << "0.707106";
}

// Declarations of constants are instructions of operation 89, in the low 11 bits.
bool ReadsConstants(Code code) {
    constexpr std::uint32_t kOperation = 0x7FF, kDeclareConstants = 89;
    const Code instructions = InstructionsOf(code);
    for (std::size_t at = 8; at + 4 <= instructions.size();) {
        const std::uint32_t token = Word(instructions, at);
        if ((token & kOperation) == kDeclareConstants) return true;
        const std::size_t words = token >> 24 & 0x7F;
        at += 4 * std::max<std::size_t>(words, 1);
    }
    return false;
}

TEST(Shaders, SetDReadsNoConstantInItsFragmentStage) {
    EXPECT_FALSE(ReadsConstants(ShaderCodeOf(D).fragment));
}

TEST(Shaders, ConstantsAreReadWhereTheyMustBe) {
    for (const ShaderSet set : { A, B, C, D, E }) EXPECT_TRUE(ReadsConstants(ShaderCodeOf(set).vertex));
    EXPECT_FALSE(ReadsConstants(ShaderCodeOf(F).vertex)) << "no matrix in clip space";
    for (const ShaderSet set : { A, B, F }) EXPECT_TRUE(ReadsConstants(ShaderCodeOf(set).fragment));
    for (const ShaderSet set : { C, E }) EXPECT_FALSE(ReadsConstants(ShaderCodeOf(set).fragment));
    EXPECT_FALSE(ReadsConstants(ShaderCodeOf(E).geometry));
}

} // namespace
} // namespace orvane::render
