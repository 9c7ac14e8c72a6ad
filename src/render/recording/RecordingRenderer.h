// A renderer without a device: it keeps what it is given and writes down what it would have drawn.
//
// Everything above the device is the code of the real renderer. Buffers and textures lie in memory, mapped
// memory comes spoiled so that what a caller leaves unwritten shows, and each draw is recorded with all that
// decides how it looks. Whole frames so run on any machine and are checked vertex by vertex.
//
// Compiled code is not looked at: the pipelines' stages are made from their names.
#pragma once

#include "render/ImmediateRenderer.h"
#include "render/recording/RecordingFunctions.h"
#include "render/recording/RecordingTexture.h"
#include "render/recording/Records.h"

#include <bitset>
#include <cstdint>
#include <memory>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace orvane::render {

// What a device can lack or refuse.
enum class Refusal : std::uint8_t {
    Texture,
    BufferTexture,
    VertexBuffer,
    VertexMapping,
    TextureMapping,
    VertexFunction,
    FragmentFunction,
    GeometryFunction,
    Sampler,
    RenderTarget, // of the next resize: there is no target then until one succeeds
};

struct RecordingOptions {
    double width = 1000, height = 800;   // of the first viewport, in pixels
    bool keepVertices = true;            // copy the drawn vertices into each record
    bool spoilDiscarded = true;          // fill mapped memory with kSpoiled
    std::uint32_t rowPitchAlignment = 1; // bytes: a texture's rows start at multiples of it; a power of two
};

class RecordingRenderer final : public ImmediateRenderer {
public:
    explicit RecordingRenderer(const RecordingOptions& options = {});
    ~RecordingRenderer() override;

    // ---- What was recorded.

    [[nodiscard]] const std::vector<DrawRecord>& Draws() const { return mDraws; }

    [[nodiscard]] const std::vector<ClearRecord>& Clears() const { return mClears; }

    [[nodiscard]] const std::vector<ViewportRecord>& Viewports() const { return mViewports; }

    [[nodiscard]] const std::vector<TargetRecord>& Targets() const { return mTargets; }

    [[nodiscard]] const std::vector<DeviceCallRecord>& Calls() const { return mCalls; }

    [[nodiscard]] std::size_t CountOf(DeviceCall call) const;

    // Forgets the lists above; resources and state stay.
    void ForgetRecords();

    // Textures and arrays in the order of their creation, those that are gone too.
    [[nodiscard]] const std::vector<RecordedResourcePtr>& Resources() const { return mResources; }

    // The last one created under a name; null if there is none.
    [[nodiscard]] RecordedResourcePtr FindResource(std::string_view name) const;

    [[nodiscard]] std::size_t LiveResources() const;

    // Vertex buffers in the order of their ids: their names, and the bytes of one. The id must be known.
    [[nodiscard]] const std::vector<std::string>& BufferNames() const { return mBufferNames; }

    [[nodiscard]] std::span<const std::byte> BufferBytes(int bufferId) const;

    // Shader functions and samplers that exist.
    [[nodiscard]] int LiveFunctions() const { return *mLiveFunctions; }

    [[nodiscard]] std::uint32_t BlendModeInForce() const { return CurrentBlendMode(); }

    [[nodiscard]] const std::array<float, 4>& Tint() const { return mTint; }

    // ---- What a test decides.

    // From now on such requests fail, or succeed again.
    void Refuse(Refusal what, bool refuse = true);

    // ---- The contract.

    void SetWireframe(bool on) override;
    void SetColor(const float colour[4], float alpha) override;
    void BindTexture(ITexture* texture) override;

    void BeginFrame() override;
    void Present() override;
    void Clear(const float colour[4]) override;
    void ResizeRenderTarget(const double rect[4]) override;
    void SetFullScreen(bool on) override;

    // Null: there are no files of code.
    IVertexFunction* LoadVertexFunction(void* unused, const char* fileName) override;
    IFragmentFunction* LoadFragmentFunction(void* unused, const char* fileName) override;

    IVertexFunction* CreateVertexFunction(const void* code, std::uint64_t size, const char* name) override;
    IFragmentFunction* CreateFragmentFunction(const void* code, std::uint64_t size,
                                              const char* name) override;
    IGeometryFunction* CreateGeometryFunction(const void* code, std::uint64_t size,
                                              const char* name) override;
    ISamplerState* CreateLinearSamplerState(const char* name) override;
    ISamplerState* CreatePointSamplerState(const char* name) override;

protected:
    void ApplyBlendState(std::uint32_t mode) override;
    void ClearBlendState() override;
    void ApplyViewport(double width, double height) override;
    ITexture* MakeTexture(const TextureDescription& description) override;
    IBufferTexture* MakeBufferTexture(std::uint32_t elementCount, std::uint32_t textureUnit,
                                      const char* name) override;
    std::unique_ptr<VertexObject> MakeVertexObject(const VertexDescription& description,
                                                   const void* initialData) override;
    ShaderSetCode CodeOf(ShaderSet set) override;
    void* MapVertices(VertexObject& object) override;
    void UnmapVertices(VertexObject& object) override;
    void WriteMatrix(const Matrix& matrix, MatrixStages stages) override;
    void UnbindMatrix() override;
    void DrawVertices(VertexObject& object, ITexture* texture, std::uint32_t firstVertex,
                      std::uint32_t vertexCount) override;

private:
    struct Buffer;

    [[nodiscard]] bool Refuses(Refusal what) const { return mRefused[static_cast<std::size_t>(what)]; }

    [[nodiscard]] bool CanMake(Refusal what, const void* code, std::uint64_t size) const;
    void Note(DeviceCall call, std::size_t value = 0);
    ISamplerState* MakeSampler(const char* name, bool linear);
    void KeepVertices(DrawRecord& record, const Buffer& buffer) const;

    const RecordingOptions mOptions;
    std::bitset<16> mRefused;

    // As the device stands.
    RecordingDevice mDevice;
    std::optional<Matrix> mBoundMatrix;
    std::uint32_t mDeviceBlendMode = kBlendMode_Off;
    std::uint32_t mPrimitive = kNoValue;
    std::array<float, 4> mTint{};
    bool mTintBound = false;
    bool mWireframe = false;
    bool mHasTarget = true;

    std::vector<DrawRecord> mDraws;
    std::vector<ClearRecord> mClears;
    std::vector<ViewportRecord> mViewports;
    std::vector<TargetRecord> mTargets;
    std::vector<DeviceCallRecord> mCalls;
    std::vector<RecordedResourcePtr> mResources;
    std::vector<std::string> mBufferNames;
    std::vector<const Buffer*> mBuffers;
    const LiveCount mLiveFunctions = std::make_shared<int>(0);
};

} // namespace orvane::render
