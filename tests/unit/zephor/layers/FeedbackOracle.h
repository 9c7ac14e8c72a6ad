// The feedback step worked out a second time, from its definition alone, and the images and fields to try it on.
#pragma once

#include "zephor/layers/FeedbackEngine.h"

#include <cstddef>
#include <cstdint>
#include <memory>
#include <random>
#include <string>
#include <vector>

namespace orvane::tests {

// One byte a pixel in a block of exactly its size, so that a read or a write past its end is seen by the sanitizer.
// Each row is followed by one byte that an image may be read to.
struct TestImage {
    int width, height;
    std::ptrdiff_t rowBytes;
    std::vector<std::uint8_t> bytes;

    TestImage(int imageWidth, int imageHeight, std::uint8_t value = 0);

    [[nodiscard]] std::uint8_t& At(int x, int y) { return bytes[std::size_t(y * rowBytes + x)]; }

    [[nodiscard]] std::uint8_t At(int x, int y) const { return bytes[std::size_t(y * rowBytes + x)]; }
};

struct TestField {
    int width, height;
    std::vector<zephor::DeltaCell> cells;

    TestField(int fieldWidth, int fieldHeight, zephor::DeltaCell value = {});

    [[nodiscard]] zephor::DeltaCell& At(int x, int y) { return cells[std::size_t(y * width + x)]; }

    [[nodiscard]] zephor::FeedbackField Get() const;
};

// What a step makes of the image. The byte after each row is 0.
[[nodiscard]] TestImage FedBack(const TestImage& source, const TestField& field);

// What the engine makes of it.
[[nodiscard]] TestImage Step(zephor::FeedbackEngine& engine, const TestImage& source, const TestField& field,
                             int sliceCount = 2);

// Every form that this processor can run, on one thread and on two.
struct NamedEngine {
    std::string name;
    std::unique_ptr<zephor::FeedbackEngine> engine;
};

[[nodiscard]] std::vector<NamedEngine> AllEngines();

enum class CellKind {
    Turn, // the whole image turned and shrunk a little
    Anywhere,
    Ties,    // halves
    Outside, // not numbers, endless, negative, huge, and what the mask cuts
};

constexpr CellKind kCellKinds[] = { CellKind::Turn, CellKind::Anywhere, CellKind::Ties, CellKind::Outside };

[[nodiscard]] TestField MakeField(int width, int height, CellKind kind, std::mt19937& random);
[[nodiscard]] TestImage MakeNoise(int width, int height, std::mt19937& random);

} // namespace orvane::tests
