// Textures and arrays whose bytes are kept in memory.
#pragma once

#include "render/CTexture.h"
#include "render/IBufferTexture.h"
#include "render/recording/RecordedImage.h"

#include <array>
#include <cstdint>

namespace orvane::render {

// What a texture needs of the device that made it. The renderer owns it and outlives its textures.
struct RecordingDevice {
    static constexpr std::size_t kUnits = 16;

    std::array<RecordedResourcePtr, kUnits> units; // fragment stage; null where nothing is bound
    bool spoilDiscarded = true;
    bool refuseTextureMapping = false;

    // Nothing for a unit that the device doesn't have.
    void Bind(std::uint32_t unit, RecordedResourcePtr resource);
};

class RecordingTexture final : public CTexture {
public:
    RecordingTexture(RecordingDevice& device, RecordedResourcePtr resource);
    ~RecordingTexture() override;

    void Bind() override;
    void Unbind() override;

    [[nodiscard]] RecordedImagePtr Image() const { return mResource->image; }

protected:
    bool HasResource() const override { return true; }

    bool Map(TextureMapping& mapping) override;

    void Unmap() override {}

private:
    RecordingDevice& mDevice;
    const RecordedResourcePtr mResource;
};

class RecordingBufferTexture final : public IBufferTexture {
public:
    RecordingBufferTexture(RecordingDevice& device, RecordedResourcePtr resource);
    ~RecordingBufferTexture() override;

    void Bind() override;
    void Unbind() override;
    bool UpdateData(const void* data, std::uint64_t byteCount) override;
    std::uint64_t GetCapacity() override;

    [[nodiscard]] RecordedImagePtr Image() const { return mResource->image; }

private:
    RecordingDevice& mDevice;
    const RecordedResourcePtr mResource;
};

} // namespace orvane::render
