// The pixels of an index layer.
#pragma once

#include "zephor/layers/ZephorIndexLayer.h"

#include "render/BitmapProcessingFunctor.h"

#include <cstddef>
#include <cstdint>
#include <functional>
#include <utility>
#include <vector>

namespace orvane::tests {

// Calls a function with the locked bytes.
class OnPixels final : public render::BitmapProcessingFunctor {
public:
    using Function = std::function<void(std::uint8_t* pixels, int width, int height, int rowBytes)>;

    explicit OnPixels(Function function)
        : mFunction(std::move(function)) {}

    void Process(void* pixels, int width, int height, int rowBytes, std::size_t) override {
        mFunction(static_cast<std::uint8_t*>(pixels), width, height, rowBytes);
    }

private:
    Function mFunction;
};

// A copy of them, row after row. Of a layer without a surface it is empty.
struct LayerPixels {
    int width = 0, height = 0;
    std::vector<std::uint8_t> bytes;

    explicit LayerPixels(const zephor::ZephorIndexLayer& layer) {
        OnPixels copy([this](const std::uint8_t* pixels, int w, int h, int rowBytes) {
            width = w;
            height = h;
            for (int y = 0; y < h; ++y, pixels += rowBytes) bytes.insert(bytes.end(), pixels, pixels + w);
        });
        if (layer.Surface()) layer.Surface()->ReadPixels(copy);
    }

    [[nodiscard]] std::uint8_t At(int x, int y) const { return bytes[std::size_t(y * width + x)]; }
};

inline void SetLayerPixel(const zephor::ZephorIndexLayer& layer, int x, int y, std::uint8_t value) {
    OnPixels set([=](std::uint8_t* pixels, int, int, int rowBytes) { pixels[y * rowBytes + x] = value; });
    layer.Surface()->ReadPixels(set);
}

} // namespace orvane::tests
