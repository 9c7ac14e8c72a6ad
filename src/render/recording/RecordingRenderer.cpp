#include "render/recording/RecordingRenderer.h"

#include <algorithm>
#include <cstring>

namespace orvane::render {
namespace {

std::string NameOf(const char* name) {
    return name == nullptr ? std::string() : std::string(name);
}

// The code of a recorded stage is its name.
std::span<const std::byte> CodeOfStage(const char* name) {
    return name == nullptr ? std::span<const std::byte>() : std::as_bytes(std::span(name, std::strlen(name)));
}

// As a device takes it: nothing below 0, nothing that is no number.
std::uint32_t WholePixels(double length) {
    return length > 0 ? static_cast<std::uint32_t>(std::min(length, double(UINT32_MAX))) : 0;
}

} // namespace

struct RecordingRenderer::Buffer final : VertexObject {
    Buffer(const VertexDescription& description, int bufferId)
        : VertexObject(description)
        , id(bufferId)
        , bytes(description.sizeInBytes) {}

    const int id;
    std::vector<std::byte> bytes;
};

RecordingRenderer::RecordingRenderer(const RecordingOptions& options)
    : mOptions(options) {
    mDevice.spoilDiscarded = options.spoilDiscarded;
    Reset();
    const double rect[4] = { 0, 0, options.width, options.height };
    RecordingRenderer::SetViewport(rect);
    ForgetRecords();
}

RecordingRenderer::~RecordingRenderer() {
    ReleasePipelines();
    ReleaseVertexObjects();
}

std::size_t RecordingRenderer::CountOf(DeviceCall call) const {
    return static_cast<std::size_t>(std::ranges::count(mCalls, call, &DeviceCallRecord::call));
}

void RecordingRenderer::ForgetRecords() {
    mDraws.clear();
    mClears.clear();
    mViewports.clear();
    mTargets.clear();
    mCalls.clear();
}

RecordedResourcePtr RecordingRenderer::FindResource(std::string_view name) const {
    const auto found = std::find_if(mResources.rbegin(), mResources.rend(),
                                    [name](const auto& r) { return r->name == name; });
    return found == mResources.rend() ? nullptr : *found;
}

std::size_t RecordingRenderer::LiveResources() const {
    return static_cast<std::size_t>(
        std::ranges::count_if(mResources, [](const auto& r) { return r->alive; }));
}

std::span<const std::byte> RecordingRenderer::BufferBytes(int bufferId) const {
    return mBuffers.at(static_cast<std::size_t>(bufferId) - 1)->bytes;
}

void RecordingRenderer::Refuse(Refusal what, bool refuse) {
    mRefused[static_cast<std::size_t>(what)] = refuse;
    mDevice.refuseTextureMapping = Refuses(Refusal::TextureMapping);
}

void RecordingRenderer::Note(DeviceCall call, std::size_t value) {
    mCalls.push_back({ call, value });
}

void RecordingRenderer::SetWireframe(bool on) {
    mWireframe = on;
    Note(DeviceCall::SetWireframe, on ? 1 : 0);
}

void RecordingRenderer::SetColor(const float colour[4], float alpha) {
    mTint = { colour[0], colour[1], colour[2], alpha };
    mTintBound = true;
}

void RecordingRenderer::BindTexture(ITexture* texture) {
    if (texture != nullptr) {
        texture->Bind();
        return;
    }
    mDevice.Bind(0, nullptr);
    mDevice.Bind(1, nullptr);
}

void RecordingRenderer::BeginFrame() {
    Note(DeviceCall::BeginFrame);
}

void RecordingRenderer::Present() {
    Note(DeviceCall::Present);
}

void RecordingRenderer::Clear(const float colour[4]) {
    if (!mHasTarget) return;
    Note(DeviceCall::Clear, mClears.size());
    mClears.push_back({ colour[0], colour[1], colour[2], 1.0f });
}

// A resize clears the device's state. The blend mode that the renderer remembers stays as it is, although the
// device now blends nothing.
void RecordingRenderer::ResizeRenderTarget(const double rect[4]) {
    mDevice.units.fill(nullptr);
    mBoundMatrix.reset();
    mTintBound = false;
    mPrimitive = kNoValue;
    mDeviceBlendMode = kBlendMode_Off;
    mHasTarget = !Refuses(Refusal::RenderTarget);
    if (!mHasTarget) return;
    Note(DeviceCall::ResizeTarget, mTargets.size());
    mTargets.push_back({ WholePixels(rect[2]), WholePixels(rect[3]) });
    SetWireframe(false);
    SetViewport(rect);
}

void RecordingRenderer::SetFullScreen(bool on) {
    mFullScreen = on;
    Note(DeviceCall::SetFullScreen, on ? 1 : 0);
}

IVertexFunction* RecordingRenderer::LoadVertexFunction(void* /*unused*/, const char* /*fileName*/) {
    return nullptr;
}

IFragmentFunction* RecordingRenderer::LoadFragmentFunction(void* /*unused*/, const char* /*fileName*/) {
    return nullptr;
}

bool RecordingRenderer::CanMake(Refusal what, const void* code, std::uint64_t size) const {
    return !Refuses(what) && code != nullptr && size != 0;
}

IVertexFunction* RecordingRenderer::CreateVertexFunction(const void* code, std::uint64_t size,
                                                         const char* name) {
    if (!CanMake(Refusal::VertexFunction, code, size)) return nullptr;
    const auto* const bytes = static_cast<const std::byte*>(code);
    return new RecordingVertexFunction(mLiveFunctions, NameOf(name), { bytes, bytes + size });
}

IFragmentFunction* RecordingRenderer::CreateFragmentFunction(const void* code, std::uint64_t size,
                                                             const char* name) {
    if (!CanMake(Refusal::FragmentFunction, code, size)) return nullptr;
    return new RecordingFragmentFunction(mLiveFunctions, NameOf(name));
}

IGeometryFunction* RecordingRenderer::CreateGeometryFunction(const void* code, std::uint64_t size,
                                                             const char* name) {
    if (!CanMake(Refusal::GeometryFunction, code, size)) return nullptr;
    return new RecordingGeometryFunction(mLiveFunctions, NameOf(name));
}

ISamplerState* RecordingRenderer::MakeSampler(const char* name, bool linear) {
    if (Refuses(Refusal::Sampler)) return nullptr;
    return new RecordingSamplerState(mLiveFunctions, NameOf(name), linear);
}

ISamplerState* RecordingRenderer::CreateLinearSamplerState(const char* name) {
    return MakeSampler(name, true);
}

ISamplerState* RecordingRenderer::CreatePointSamplerState(const char* name) {
    return MakeSampler(name, false);
}

void RecordingRenderer::ApplyBlendState(std::uint32_t mode) {
    mDeviceBlendMode = mode == kBlendMode_Alpha ? kBlendMode_Alpha : kBlendMode_Additive;
    Note(DeviceCall::SetBlendState, mDeviceBlendMode);
}

void RecordingRenderer::ClearBlendState() {
    mDeviceBlendMode = kBlendMode_Off;
    Note(DeviceCall::ClearBlendState);
}

void RecordingRenderer::ApplyViewport(double width, double height) {
    Note(DeviceCall::Viewport, mViewports.size());
    mViewports.push_back({ 0, 0, width, height });
}

ITexture* RecordingRenderer::MakeTexture(const TextureDescription& description) {
    if (Refuses(Refusal::Texture)) return nullptr;
    const std::uint32_t rowBytes = description.width * BytesPerTexel(description.pixelFormat);
    const std::uint32_t alignment = mOptions.rowPitchAlignment;
    const std::uint32_t pitch = (rowBytes + alignment - 1) / alignment * alignment;

    auto image = std::make_shared<RecordedImage>();
    *image = { description.width, description.height, description.pixelFormat, pitch, {} };
    image->bytes.resize(std::size_t(pitch) * description.height);
    if (description.pixels != nullptr) {
        const auto* const from = static_cast<const std::byte*>(description.pixels);
        const std::size_t copied = std::min(rowBytes, description.rowPitch);
        for (std::size_t row = 0; row < description.height; ++row)
            std::memcpy(image->bytes.data() + row * pitch, from + row * description.rowPitch, copied);
    }
    mResources.push_back(std::make_shared<RecordedResource>(RecordedResource{
        NameOf(description.name), description.textureUnit, description.dynamic, true, 0, std::move(image) }));
    return new RecordingTexture(mDevice, mResources.back());
}

IBufferTexture* RecordingRenderer::MakeBufferTexture(std::uint32_t elementCount, std::uint32_t textureUnit,
                                                     const char* name) {
    if (Refuses(Refusal::BufferTexture)) return nullptr;
    const std::uint32_t rowBytes = elementCount * BytesPerTexel(kPixelFormat_RGBA32Float);
    auto image = std::make_shared<RecordedImage>();
    *image = { elementCount, 1, kPixelFormat_RGBA32Float, rowBytes, {} };
    image->bytes.resize(rowBytes);
    mResources.push_back(std::make_shared<RecordedResource>(
        RecordedResource{ NameOf(name), textureUnit, true, true, 0, std::move(image) }));
    return new RecordingBufferTexture(mDevice, mResources.back());
}

std::unique_ptr<VertexObject> RecordingRenderer::MakeVertexObject(const VertexDescription& description,
                                                                  const void* initialData) {
    if (Refuses(Refusal::VertexBuffer)) return nullptr;
    auto buffer = std::make_unique<Buffer>(description, static_cast<int>(mBuffers.size()) + 1);
    if (initialData != nullptr) std::memcpy(buffer->bytes.data(), initialData, buffer->bytes.size());
    mBuffers.push_back(buffer.get());
    mBufferNames.push_back(NameOf(description.name));
    return buffer;
}

ShaderSetCode RecordingRenderer::CodeOf(ShaderSet set) {
    const ShaderSetRow& row = ShaderSetRowOf(set);
    return { CodeOfStage(row.vertexName), CodeOfStage(row.fragmentName), CodeOfStage(row.geometryName) };
}

void* RecordingRenderer::MapVertices(VertexObject& object) {
    if (Refuses(Refusal::VertexMapping)) return nullptr;
    auto& buffer = static_cast<Buffer&>(object);
    if (mOptions.spoilDiscarded) std::ranges::fill(buffer.bytes, kSpoiled);
    return buffer.bytes.data();
}

void RecordingRenderer::UnmapVertices(VertexObject& /*object*/) {}

void RecordingRenderer::WriteMatrix(const Matrix& matrix, MatrixStages /*stages*/) {
    mBoundMatrix = matrix;
}

void RecordingRenderer::UnbindMatrix() {
    mBoundMatrix.reset();
}

void RecordingRenderer::KeepVertices(DrawRecord& record, const Buffer& buffer) const {
    const std::uint64_t held = buffer.Description().vertexCount;
    const std::uint64_t first = std::min<std::uint64_t>(record.firstVertex, held);
    const std::uint64_t count = std::min<std::uint64_t>(record.vertexCount, held - first);
    record.vertices.resize(count * record.floatsPerVertex);
    if (count == 0) return;
    const std::uint64_t stride = buffer.Description().stride;
    std::memcpy(record.vertices.data(), buffer.bytes.data() + first * stride, count * stride);
}

void RecordingRenderer::DrawVertices(VertexObject& object, ITexture* texture, std::uint32_t firstVertex,
                                     std::uint32_t vertexCount) {
    const auto& buffer = static_cast<const Buffer&>(object);
    const VertexDescription& description = buffer.Description();
    CRenderingPipeline& pipeline = *description.pipeline;
    auto& fragment = static_cast<RecordingFragmentFunction&>(*pipeline.GetFragmentFunction());
    if (description.primitive == kPrimitive_TriangleStrip || description.primitive == kPrimitive_Triangles ||
        description.primitive == kPrimitive_Lines || description.primitive == kPrimitive_Points)
        mPrimitive = description.primitive;

    DrawRecord record;
    record.bufferId = buffer.id;
    record.kind = pipeline.Kind();
    record.primitive = mPrimitive;
    record.firstVertex = firstVertex;
    record.vertexCount = vertexCount;
    record.floatsPerVertex = description.stride / static_cast<std::uint32_t>(sizeof(float));
    if (mOptions.keepVertices) KeepVertices(record, buffer);
    record.matrix = mBoundMatrix;
    record.blendMode = mDeviceBlendMode;
    record.texture = texture;
    record.samplers = static_cast<std::uint32_t>(fragment.Samplers().size());
    record.geometryStage = pipeline.GetGeometryFunction() != nullptr;
    record.wireframe = mWireframe;
    double viewport[4];
    GetViewport(viewport);
    record.viewportWidth = viewport[2];
    record.viewportHeight = viewport[3];

    if (texture != nullptr && pipeline.Row().set == ShaderSet::F) {
        // The size takes the place of the colour in the fragment stage's constant until the next SetColor.
        double size[2];
        texture->GetSize(size);
        record.dims = { static_cast<float>(size[0]), static_cast<float>(size[1]) };
        mTintBound = false;
    }
    record.tint = mTint;
    record.tintBound = mTintBound;

    if (texture != nullptr) texture->Bind();
    for (std::size_t unit = 0; unit < record.unitImages.size(); ++unit)
        if (mDevice.units[unit]) record.unitImages[unit] = mDevice.units[unit]->image;
    if (texture != nullptr) texture->Unbind();

    Note(DeviceCall::Draw, mDraws.size());
    mDraws.push_back(std::move(record));
}

} // namespace orvane::render
