#include "support/WavFile.h"

#include "support/Wire.h"

namespace orvane::tests {

std::string WavFile(const WavShape& shape,
                    const std::function<std::int16_t(std::uint32_t, std::uint16_t)>& sample) {
    constexpr std::uint16_t kBytes = 2; // of a sample
    constexpr std::uint32_t kFormatBytes = 16;
    constexpr std::uint32_t kHeadBytes = 36; // from "WAVE" to the size of "data"
    const auto frameBytes = std::uint16_t(shape.channels * kBytes);
    const std::uint32_t dataBytes = shape.frames * frameBytes;
    WireBuilder file;
    file.Raw("RIFF").U32(kHeadBytes + dataBytes).Raw("WAVE");
    file.Raw("fmt ").U32(kFormatBytes).U16(1).U16(shape.channels).U32(shape.rate);
    file.U32(shape.rate * frameBytes).U16(frameBytes).U16(8 * kBytes);
    file.Raw("data").U32(dataBytes);
    for (std::uint32_t frame = 0; frame < shape.frames; ++frame)
        for (std::uint16_t channel = 0; channel < shape.channels; ++channel)
            file.U16(std::uint16_t(sample(frame, channel)));
    return AsText(file.Get());
}

} // namespace orvane::tests
