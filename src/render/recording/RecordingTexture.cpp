#include "render/recording/RecordingTexture.h"

#include <algorithm>
#include <cstring>
#include <limits>

namespace orvane::render {

void RecordingDevice::Bind(std::uint32_t unit, RecordedResourcePtr resource) {
    if (unit < kUnits) units[unit] = std::move(resource);
}

RecordingTexture::RecordingTexture(RecordingDevice& device, RecordedResourcePtr resource)
    : CTexture(resource->image->width, resource->image->height)
    , mDevice(device)
    , mResource(std::move(resource)) {}

RecordingTexture::~RecordingTexture() {
    mResource->alive = false;
}

void RecordingTexture::Bind() {
    mDevice.Bind(mResource->textureUnit, mResource);
}

void RecordingTexture::Unbind() {
    mDevice.Bind(mResource->textureUnit, nullptr);
}

bool RecordingTexture::Map(TextureMapping& mapping) {
    if (!mResource->dynamic || mDevice.refuseTextureMapping) return false;
    RecordedImage& image = mResource->Discard(mDevice.spoilDiscarded);
    const std::size_t most = std::numeric_limits<std::uint32_t>::max();
    mapping = { image.bytes.data(), image.rowPitch,
                static_cast<std::uint32_t>(std::min(image.bytes.size(), most)) };
    return true;
}

RecordingBufferTexture::RecordingBufferTexture(RecordingDevice& device, RecordedResourcePtr resource)
    : mDevice(device)
    , mResource(std::move(resource)) {}

RecordingBufferTexture::~RecordingBufferTexture() {
    mResource->alive = false;
}

void RecordingBufferTexture::Bind() {
    mDevice.Bind(mResource->textureUnit, mResource);
}

void RecordingBufferTexture::Unbind() {
    mDevice.Bind(mResource->textureUnit, nullptr);
}

bool RecordingBufferTexture::UpdateData(const void* data, std::uint64_t byteCount) {
    if (data == nullptr || byteCount > GetCapacity() || mDevice.refuseTextureMapping) return false;
    std::memcpy(mResource->Discard(mDevice.spoilDiscarded).bytes.data(), data, byteCount);
    return true;
}

std::uint64_t RecordingBufferTexture::GetCapacity() {
    return mResource->image->bytes.size();
}

} // namespace orvane::render
