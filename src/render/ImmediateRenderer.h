// A renderer but for its graphics interface: the matrix stacks, the blend mode, the viewport, the lists of
// pipelines and vertex buffers, and the order of what happens in a draw. A realisation answers the device
// operations at the end, so what it draws and what a recorder records come from the same code.
//
// A realisation calls Reset when its device stands, and in its destructor ReleasePipelines and
// ReleaseVertexObjects while the device is still there.
#pragma once

#include "render/CRenderer.h"
#include "render/CRenderingPipeline.h"
#include "render/MatrixStack.h"
#include "render/VertexObject.h"

#include <cstdint>
#include <map>
#include <memory>
#include <vector>

namespace orvane::render {

// What CreateTexture was asked for, checked: sides of 1 to kLargestTextureSide, a known format.
struct TextureDescription {
    std::uint32_t width, height;
    std::uint32_t pixelFormat;
    std::uint32_t textureUnit;
    bool dynamic;
    const void* pixels; // null only for a dynamic texture
    std::uint32_t rowPitch;
    const char* name; // for people
};

class ImmediateRenderer : public CRenderer {
public:
    void PushPerspectiveProjection(float fovY, float aspect, float nearPlane, float farPlane) override;
    void PushOrthographicProjection(float width, float height) override;
    void PushIdentityProjection() override;
    std::uint64_t PopProjection() override;
    void PushModelView() override;
    std::uint64_t PopModelView() override;
    void PushIdentityModelView() override;
    void Translate(float x, float y, float z) override;
    void TranslateVector(const float offset[3]) override;
    void Rotate(float x, float y, float z) override;
    void Scale(float x, float y, float z) override;
    void Scale2D(float x, float y) override;
    void LoadIdentityModelView() override;
    void GetModelView(float out[16]) override;
    void SetModelView(const float in[16]) override;

    std::uint32_t SetBlendMode(std::uint32_t mode) override;

    ITexture* CreateTexture(const void* pixels, std::uint32_t width, std::uint32_t height,
                            std::uint32_t rowPitch, std::uint32_t reserved, std::uint32_t pixelFormat,
                            const char* name, std::uint32_t textureUnit, bool dynamic) override;
    IBufferTexture* CreateBufferTexture(std::uint32_t elementCount, const char* name,
                                        std::uint32_t textureUnit) override;
    std::uint32_t CreateVertexBuffer(const char* name, std::uint32_t primitive, IRenderingPipeline* pipeline,
                                     std::uint32_t vertexCount, std::uint32_t reserved,
                                     const void* initialData) override;

    bool AccessVertexBuffer(int bufferId, VertexWriter write) override;
    bool DrawVertexBuffer(ITexture* texture, int bufferId, int firstVertex, int vertexCount) override;
    bool DrawVertexBufferInstances(int bufferId, int firstVertex, int vertexCount, int instanceCount,
                                   InstanceTransform transform) override;
    std::uint32_t DrawTexturedQuad(ITexture* texture, int bufferId, const double destination[4],
                                   const double source[4], float alpha, std::uint32_t colorMode) override;

    void SetViewport(const double rect[4]) override;
    double* GetViewport(double out[4]) override;

    IRenderingPipeline* GetPipeline(std::uint32_t kind) override;
    IRenderingPipeline* FindPipeline(std::uint32_t kind) override;

    [[nodiscard]] std::uint64_t ModelViewDepth() const { return mModelView.Depth(); }

    [[nodiscard]] std::uint64_t ProjectionDepth() const { return mProjection.Depth(); }

protected:
    enum class MatrixStages { Vertex, VertexAndGeometry };

    // Both stacks at one identity.
    void Reset();

    void ReleasePipelines(); // in the order of their kinds
    void ReleaseVertexObjects();

    [[nodiscard]] std::uint32_t CurrentBlendMode() const { return mBlendMode; }

    // ---- The device operations.

    // Blends as `mode` says, alpha or (any other value) additive; or not at all.
    virtual void ApplyBlendState(std::uint32_t mode) = 0;
    virtual void ClearBlendState() = 0;

    // At the origin, in pixels, with depth range 0 to 1.
    virtual void ApplyViewport(double width, double height) = 0;

    // A texture with a count of one, a writable array; null when there is no resource.
    virtual ITexture* MakeTexture(const TextureDescription& description) = 0;
    virtual IBufferTexture* MakeBufferTexture(std::uint32_t elementCount, std::uint32_t textureUnit,
                                              const char* name) = 0;

    // `initialData` is null or holds description.sizeInBytes bytes. Null when there is no resource.
    virtual std::unique_ptr<VertexObject> MakeVertexObject(const VertexDescription& description,
                                                           const void* initialData) = 0;

    // The compiled code of a set, which stays where it is as long as the renderer lives.
    virtual ShaderSetCode CodeOf(ShaderSet set) = 0;

    // The buffer's memory, its old contents discarded; null if it can't be mapped, and then no Unmap follows.
    virtual void* MapVertices(VertexObject& object) = 0;
    virtual void UnmapVertices(VertexObject& object) = 0;

    // Write the matrix constant and bind it to these stages, or unbind it from the vertex stage. Nothing if
    // the device has no such constant.
    virtual void WriteMatrix(const Matrix& matrix, MatrixStages stages) = 0;
    virtual void UnbindMatrix() = 0;

    // Draws under what is set; binds a texture that is not null for the length of the draw.
    virtual void DrawVertices(VertexObject& object, ITexture* texture, std::uint32_t firstVertex,
                              std::uint32_t vertexCount) = 0;

private:
    [[nodiscard]] VertexObject* FindVertexObject(int bufferId) const;
    void WriteMatrices(MatrixStages stages);
    void DrawThroughPipeline(VertexObject& object, ITexture* texture, int firstVertex, int vertexCount);

    MatrixStack mModelView, mProjection;
    std::uint32_t mBlendMode = kBlendMode_Off;
    bool mBlendStateSet = false;
    double mViewportWidth = 0, mViewportHeight = 0;
    std::map<std::uint32_t, std::unique_ptr<CRenderingPipeline>> mPipelines; // by the kind asked for
    std::vector<std::unique_ptr<VertexObject>> mVertexObjects;               // id i is element i - 1
};

} // namespace orvane::render
