#include "render/ImmediateRenderer.h"

#include "render/TexturedQuad.h"

#include <algorithm>
#include <cstring>
#include <exception>
#include <limits>

namespace orvane::render {

void ImmediateRenderer::Reset() {
    mModelView.Reset();
    mProjection.Reset();
}

void ImmediateRenderer::ReleasePipelines() {
    while (!mPipelines.empty()) mPipelines.erase(mPipelines.begin());
}

void ImmediateRenderer::ReleaseVertexObjects() {
    mVertexObjects.clear();
}

// KEEP: the near plane given is not used; it stands at 1.
// So a caller's 0.1 or 10 changes nothing.
// Callers' scenes are laid out for it.
// Pinned by ImmediateRendererTest.PerspectiveWithAnyNearPlaneIsTheSameMatrix.
void ImmediateRenderer::PushPerspectiveProjection(float fovY, float aspect, float /*nearPlane*/,
                                                  float farPlane) {
    mProjection.Push(PerspectiveMatrix(fovY, aspect, farPlane));
}

void ImmediateRenderer::PushOrthographicProjection(float width, float height) {
    if (width > 0 && height > 0) mProjection.Push(OrthographicMatrix(width, height));
}

void ImmediateRenderer::PushIdentityProjection() {
    mProjection.Push(kIdentityMatrix);
}

std::uint64_t ImmediateRenderer::PopProjection() {
    return mProjection.Pop();
}

void ImmediateRenderer::PushModelView() {
    mModelView.PushCopy();
}

std::uint64_t ImmediateRenderer::PopModelView() {
    return mModelView.Pop();
}

void ImmediateRenderer::PushIdentityModelView() {
    mModelView.Push(kIdentityMatrix);
}

void ImmediateRenderer::Translate(float x, float y, float z) {
    mModelView.Multiply(TranslationMatrix(x, y, z));
}

void ImmediateRenderer::TranslateVector(const float offset[3]) {
    Translate(offset[0], offset[1], offset[2]);
}

void ImmediateRenderer::Rotate(float x, float y, float z) {
    mModelView.Multiply(RotationMatrix(x, y, z));
}

void ImmediateRenderer::Scale(float x, float y, float z) {
    mModelView.Multiply(ScaleMatrix(x, y, z));
}

void ImmediateRenderer::Scale2D(float x, float y) {
    mModelView.Scale2D(x, y);
}

void ImmediateRenderer::LoadIdentityModelView() {
    mModelView.LoadIdentity();
}

void ImmediateRenderer::GetModelView(float out[16]) {
    mModelView.Get(out);
}

void ImmediateRenderer::SetModelView(const float in[16]) {
    mModelView.Set(in);
}

std::uint32_t ImmediateRenderer::SetBlendMode(std::uint32_t mode) {
    if (mode == mBlendMode) return mode;
    const std::uint32_t previous = mBlendMode;
    mBlendMode = mode;
    if (mode != kBlendMode_Off) {
        ApplyBlendState(mode);
        mBlendStateSet = true;
    } else if (mBlendStateSet) {
        ClearBlendState();
        mBlendStateSet = false;
    }
    return previous;
}

ITexture* ImmediateRenderer::CreateTexture(const void* pixels, std::uint32_t width, std::uint32_t height,
                                           std::uint32_t rowPitch, std::uint32_t /*reserved*/,
                                           std::uint32_t pixelFormat, const char* name,
                                           std::uint32_t textureUnit, bool dynamic) {
    const auto isSide = [](std::uint32_t side) { return side >= 1 && side <= kLargestTextureSide; };
    if (!isSide(width) || !isSide(height) || BytesPerTexel(pixelFormat) == 0) return nullptr;
    if (pixels == nullptr && !dynamic) return nullptr;
    return MakeTexture({ width, height, pixelFormat, textureUnit, dynamic, pixels, rowPitch, name });
}

IBufferTexture* ImmediateRenderer::CreateBufferTexture(std::uint32_t elementCount, const char* name,
                                                       std::uint32_t textureUnit) {
    if (elementCount == 0 || elementCount > kLargestTextureSide) return nullptr;
    return MakeBufferTexture(elementCount, textureUnit, name);
}

std::uint32_t ImmediateRenderer::CreateVertexBuffer(const char* name, std::uint32_t primitive,
                                                    IRenderingPipeline* pipeline, std::uint32_t vertexCount,
                                                    std::uint32_t /*reserved*/, const void* initialData) {
    if (pipeline == nullptr || vertexCount == 0) return kNoVertexBuffer;
    // Pipelines are made by GetPipeline alone, so it is one of ours.
    auto* const ours = static_cast<CRenderingPipeline*>(pipeline);
    const ShaderSetRow& set = ShaderSetRowOf(ours->Row().set);
    if (vertexCount > std::numeric_limits<std::uint32_t>::max() / set.stride) return kNoVertexBuffer;
    auto object = MakeVertexObject(
        { ours, set.stride, vertexCount, set.stride * vertexCount, primitive, set.usesMatrices, name },
        initialData);
    if (!object) return kNoVertexBuffer;
    mVertexObjects.push_back(std::move(object));
    return static_cast<std::uint32_t>(mVertexObjects.size());
}

VertexObject* ImmediateRenderer::FindVertexObject(int bufferId) const {
    const bool known = bufferId >= 1 && static_cast<std::size_t>(bufferId) <= mVertexObjects.size();
    return known ? mVertexObjects[static_cast<std::size_t>(bufferId) - 1].get() : nullptr;
}

// KEEP: an unknown id prints nothing, where other failures of this program have their line.
// So a pass whose buffer could not be made is left out in silence, frame after frame.
// By design: a line for each pass of each frame would drown the console.
// Pinned by RecordingRenderer.AccessVertexBufferWithAnUnknownIdPrintsNothing.
bool ImmediateRenderer::AccessVertexBuffer(int bufferId, VertexWriter write) {
    VertexObject* const object = FindVertexObject(bufferId);
    if (object == nullptr || !write) return false;
    void* const vertices = MapVertices(*object);
    if (vertices == nullptr) return false;
    write(vertices);
    UnmapVertices(*object);
    return true;
}

// The bottom projection is identity and so leaves the modelview as it is.
void ImmediateRenderer::WriteMatrices(MatrixStages stages) {
    if (mModelView.Depth() == 0) return;
    const bool hasProjection = mProjection.Depth() >= 2;
    WriteMatrix(hasProjection ? mModelView.Top() * mProjection.Top() : mModelView.Top(), stages);
}

void ImmediateRenderer::DrawThroughPipeline(VertexObject& object, ITexture* texture, int firstVertex,
                                            int vertexCount) {
    CRenderingPipeline& pipeline = *object.Description().pipeline;
    pipeline.BeginPipeline(this);
    DrawVertices(object, texture, static_cast<std::uint32_t>(firstVertex),
                 static_cast<std::uint32_t>(vertexCount));
    pipeline.EndPipeline(this);
}

bool ImmediateRenderer::DrawVertexBuffer(ITexture* texture, int bufferId, int firstVertex, int vertexCount) {
    VertexObject* const object = FindVertexObject(bufferId);
    if (object == nullptr) return false;
    const bool usesMatrices = object->Description().usesMatrices;
    if (usesMatrices) WriteMatrices(MatrixStages::VertexAndGeometry);
    DrawThroughPipeline(*object, texture, firstVertex, vertexCount);
    if (usesMatrices) UnbindMatrix();
    return true;
}

// KEEP: the matrix is written whether the buffer uses matrices or not, to the vertex stage alone, and stays
// bound. So a buffer in clip space costs a write that its shader doesn't read.
// By design: nothing but transformed buffers is drawn in instances.
// Pinned by ImmediateRendererTest.InstancesWriteTheMatrixEvenForABufferInClipSpace.
bool ImmediateRenderer::DrawVertexBufferInstances(int bufferId, int firstVertex, int vertexCount,
                                                  int instanceCount, InstanceTransform transform) {
    if (vertexCount == 0) return true;
    VertexObject* const object = FindVertexObject(bufferId);
    if (object == nullptr) return false;
    for (int index = 0; index < instanceCount; ++index) {
        PushModelView();
        if (!transform) std::terminate();
        int transformed = index; // the transform may write to its argument; the count of draws stays
        transform(transformed);
        WriteMatrices(MatrixStages::Vertex);
        DrawThroughPipeline(*object, nullptr, firstVertex, vertexCount);
        PopModelView();
    }
    return true;
}

std::uint32_t ImmediateRenderer::DrawTexturedQuad(ITexture* texture, int bufferId,
                                                  const double destination[4], const double source[4],
                                                  float alpha, std::uint32_t colorMode) {
    constexpr float kWhite[4] = { 1, 1, 1, 1 }, kBlack[4] = { 0, 0, 0, 1 };
    const float heldAlpha = std::clamp(alpha, 0.0f, 1.0f);
    if (colorMode == kColorMode_White) SetColor(kWhite, heldAlpha);
    if (colorMode == kColorMode_Black) SetColor(kBlack, heldAlpha);

    const TexturedQuad quad = MakeTexturedQuad(destination, source);
    const VertexObject* const object = FindVertexObject(bufferId);
    if (object == nullptr || object->Description().sizeInBytes < sizeof quad) return kStatus_Failure;
    AccessVertexBuffer(bufferId,
                       [&quad](void* vertices) { std::memcpy(vertices, quad.data(), sizeof quad); });
    return DrawVertexBuffer(texture, bufferId, 0, static_cast<int>(quad.size())) ? kStatus_Success
                                                                                 : kStatus_Failure;
}

void ImmediateRenderer::SetViewport(const double rect[4]) {
    mViewportWidth = rect[2];
    mViewportHeight = rect[3];
    ApplyViewport(mViewportWidth, mViewportHeight);
}

double* ImmediateRenderer::GetViewport(double out[4]) {
    out[0] = 0;
    out[1] = 0;
    out[2] = mViewportWidth;
    out[3] = mViewportHeight;
    return out;
}

IRenderingPipeline* ImmediateRenderer::GetPipeline(std::uint32_t kind) {
    if (IRenderingPipeline* const built = FindPipeline(kind)) return built;
    const PipelineRow* const row = FindPipelineRow(kind);
    if (row == nullptr) return nullptr;
    auto pipeline = std::make_unique<CRenderingPipeline>(*row, CodeOf(row->set));
    if (!pipeline->BuildFunctions(this)) return nullptr;
    return mPipelines.emplace(kind, std::move(pipeline)).first->second.get();
}

IRenderingPipeline* ImmediateRenderer::FindPipeline(std::uint32_t kind) {
    const auto found = mPipelines.find(kind);
    return found == mPipelines.end() ? nullptr : found->second.get();
}

} // namespace orvane::render
