// The drawing contract of this program. Everything that draws a picture holds one IRenderer and knows no
// graphics interface behind it.
//
// Drawing state is immediate and belongs to the renderer: two matrix stacks, blend mode, colour, bound
// textures. It survives from frame to frame, so each frame leaves it as it found it. Resources are made once
// and addressed by small ids (vertex buffers, from 1) or by pointers. Nothing is thrown: creation returns
// null or id 0, drawing returns false or a status that is not 0.
//
// Matrices are 16 floats, row by row, for row vectors: point * modelview * projection. Rectangles are four
// doubles x, y, width, height. Colours are four floats red, green, blue, alpha. Names are for people only.
// The order of the operations is part of the contract, the reserved ones included.
//
// There is no lock, and no promise about concurrent calls: calls come one at a time, from whichever thread
// draws the frame.
#pragma once

#include "render/Enumerations.h"
#include "render/IBufferTexture.h"
#include "render/IRenderingPipeline.h"
#include "render/ITexture.h"
#include "render/PipelineKind.h"

#include <cstdint>
#include <functional>

namespace orvane::render {

// Writes vertices, in the layout of the buffer's pipeline, from the start of the buffer.
using VertexWriter = std::function<void(void* vertices)>;

// Applies the transforms of instance `index`, counted from 0, to the modelview.
using InstanceTransform = std::function<void(int& index)>;

class IRenderer {
public:
    IRenderer(const IRenderer&) = delete;
    IRenderer& operator=(const IRenderer&) = delete;

    virtual ~IRenderer() = default; // slot 0

    // ---- Matrices. Each stack has 16 levels, and one more push than that does nothing. The bottom level is
    // an identity that is never popped and that slots 8 to 13 never change: push first.

    // Slot 1. Pushes a perspective projection. `fovY` in radians; depth 1 to `farPlane` maps to 0 to 1.
    // `nearPlane` is not used, the near plane stands at 1.
    virtual void PushPerspectiveProjection(float fovY, float aspect, float nearPlane, float farPlane) = 0;

    // Slot 2. Pushes an orthographic projection with its origin in the centre of the view; depth -1 to 1 maps
    // to 0 to 1. Nothing unless both sizes are positive.
    virtual void PushOrthographicProjection(float width, float height) = 0;

    // Slot 3. Pushes identity on the projection stack.
    virtual void PushIdentityProjection() = 0;

    // Slot 4. Pops, never below depth 1. Returns the depth that is left.
    virtual std::uint64_t PopProjection() = 0;

    // Slot 5. Pushes a copy of the top of the modelview stack.
    virtual void PushModelView() = 0;

    // Slot 6. As PopProjection.
    virtual std::uint64_t PopModelView() = 0;

    // Slot 7. Pushes identity on the modelview stack.
    virtual void PushIdentityModelView() = 0;

    // Slots 8 to 12. modelview = modelview * transform.
    virtual void Translate(float x, float y, float z) = 0;
    virtual void TranslateVector(const float offset[3]) = 0;

    // Angles in radians: roll about z, then pitch about x, then yaw about y. The z angle turns the other way.
    virtual void Rotate(float x, float y, float z) = 0;
    virtual void Scale(float x, float y, float z) = 0;

    // Slot 12. A renderer of this program multiplies two elements only, row 0 column 0 by x and row 1 column
    // 1 by y, which is no scaling of a rotated matrix. This body, for others, is Scale(x, y, 1).
    virtual void Scale2D(float x, float y) { Scale(x, y, 1.0f); }

    // Slot 13. Replaces the top by identity.
    virtual void LoadIdentityModelView() = 0;

    // Slots 14 and 15. Copy the top out, or replace it, the bottom level too. Nothing for null.
    virtual void GetModelView(float out[16]) = 0;
    virtual void SetModelView(const float in[16]) = 0;

    // ---- State.

    // Slot 16. Lines only, or solid triangles.
    virtual void SetWireframe(bool on) = 0;

    // Slot 17. Selects a BlendMode and returns the previous one. The current mode again does nothing. Each
    // draw sets its pipeline's mode and afterwards this one again.
    virtual std::uint32_t SetBlendMode(std::uint32_t mode) = 0;

    // Slot 18. Sets the colour that shaders see as tint to colour[0..2] and `alpha`.
    virtual void SetColor(const float colour[4], float alpha) = 0;

    // Slot 19. Binds `texture`; null unbinds texture units 0 and 1.
    virtual void BindTexture(ITexture* texture) = 0;

    virtual void Reserved20() {}

    // ---- Resources.

    // Slot 21. A texture of `width` by `height` texels with a count of one. `rowPitch` in bytes. One that is
    // not dynamic can't be written later and so needs `pixels`. Null for a side of 0 or above
    // kLargestTextureSide, an unknown `pixelFormat`, or no resource.
    virtual ITexture* CreateTexture(const void* pixels, std::uint32_t width, std::uint32_t height,
                                    std::uint32_t rowPitch, std::uint32_t reserved, std::uint32_t pixelFormat,
                                    const char* name, std::uint32_t textureUnit, bool dynamic) = 0;

    // Slot 22. A writable array of `elementCount` four-float values, at most kLargestTextureSide. The caller
    // owns it. Null when there is no resource.
    virtual IBufferTexture* CreateBufferTexture(std::uint32_t elementCount, const char* name,
                                                std::uint32_t textureUnit) = 0;

    // Slot 23. A buffer for `vertexCount` vertices in the layout of `pipeline`, which is one of this
    // renderer's. Returns its id, from 1; ids are never used again, buffers live as long as the renderer.
    // `reserved` is 1. `initialData` is null or holds the whole buffer. kNoVertexBuffer for a null pipeline,
    // a count of 0, or no resource.
    virtual std::uint32_t CreateVertexBuffer(const char* name, std::uint32_t primitive,
                                             IRenderingPipeline* pipeline, std::uint32_t vertexCount,
                                             std::uint32_t reserved, const void* initialData) = 0;

    virtual std::uint32_t Reserved24() { return 0; }

    // ---- Drawing.

    // Slot 25. Gives the whole buffer to `write`, the old contents discarded: every vertex that will be drawn
    // has to be written. True if `write` ran; false, without a word, for an unknown id or a failed mapping.
    virtual bool AccessVertexBuffer(int bufferId, VertexWriter write) = 0;

    // Slot 26. Draws once, with `texture` bound during the draw if it is not null. False for an unknown id.
    virtual bool DrawVertexBuffer(ITexture* texture, int bufferId, int firstVertex, int vertexCount) = 0;

    // Slot 27. Draws `instanceCount` times with no texture, each time under a pushed modelview to which
    // `transform` was applied. True with nothing done for a count of no vertices; false for an unknown id.
    // A missing `transform` ends the process as soon as it is needed.
    virtual bool DrawVertexBufferInstances(int bufferId, int firstVertex, int vertexCount, int instanceCount,
                                           InstanceTransform transform) = 0;

    // Slot 28. The first call of every frame.
    virtual void BeginFrame() = 0;

    // Slot 29. Shows the finished frame without waiting for vertical blank.
    virtual void Present() = 0;

    // Slot 30. Clears the target to colour[0..2] and alpha 1. Nothing without a target.
    virtual void Clear(const float colour[4]) = 0;

    virtual void Reserved31() {}

    // Slot 32. A viewport of the rectangle's width and height, in pixels, at the origin: x and y are ignored.
    virtual void SetViewport(const double rect[4]) = 0;

    virtual void Reserved33() {}

    virtual void Reserved34() {}

    // Slot 35. (0, 0, width, height) as last set. Returns `out`.
    virtual double* GetViewport(double out[4]) = 0;

    // Slot 36. Rebuilds the target to the rectangle's width and height, with solid triangles and a viewport
    // of that size. All resources stay valid.
    virtual void ResizeRenderTarget(const double rect[4]) = 0;

    // Slots 37 and 38. Display pixels for each logical pixel; starts at 1.
    virtual double GetContentScale() = 0;
    virtual void SetContentScale(double scale) = 0;

    // Slots 39 and 40. The flag as last set, starting false; setting it also tells the display.
    virtual bool IsFullScreen() = 0;
    virtual void SetFullScreen(bool on) = 0;

    // Slots 41 and 42. A flag for the users of the renderer, starting false.
    virtual bool GetRendererFlag() = 0;
    virtual void SetRendererFlag(bool on) = 0;

    // ---- Pipelines and their parts.

    // Slot 43. Finds or builds the pipeline of a PipelineKind; 9 and 17 count as 8 and 16. Null for a kind
    // above 19, or if it can't be built.
    virtual IRenderingPipeline* GetPipeline(std::uint32_t kind) = 0;

    virtual std::uint32_t Reserved44() { return 0; }

    // Slot 45. From a file of compiled code beside the program; null if it is missing or empty. For
    // development: nothing calls it.
    virtual IVertexFunction* LoadVertexFunction(void* unused, const char* fileName) = 0;

    // Slot 46. From `size` bytes of compiled code, of which the function keeps a copy. Null on failure. The
    // caller owns what slots 45 to 52 create, until it hands it to a pipeline or a function.
    virtual IVertexFunction* CreateVertexFunction(const void* code, std::uint64_t size, const char* name) = 0;

    // Slots 47 to 49. As 45 and 46; the code is not kept.
    virtual IFragmentFunction* LoadFragmentFunction(void* unused, const char* fileName) = 0;
    virtual IFragmentFunction* CreateFragmentFunction(const void* code, std::uint64_t size,
                                                      const char* name) = 0;
    virtual IGeometryFunction* CreateGeometryFunction(const void* code, std::uint64_t size,
                                                      const char* name) = 0;

    // Slot 50. The pipeline of a kind if it was built already, otherwise null.
    virtual IRenderingPipeline* FindPipeline(std::uint32_t kind) = 0;

    // Slots 51 and 52. Linear in all three dimensions, or the nearest texel; both clamp. Null on failure.
    virtual ISamplerState* CreateLinearSamplerState(const char* name) = 0;
    virtual ISamplerState* CreatePointSamplerState(const char* name) = 0;

    virtual void Reserved53() {}

    virtual void Reserved54() {}

    virtual void Reserved55() {}

    // Slot 56. Draws one textured rectangle under the current matrices, using the four vertices of
    // `bufferId` (a triangle strip of position and texture coordinate). Both rectangles are in the unit
    // square; y grows upward in `destination` and downward in `source`. `alpha` is held within 0 to 1,
    // `colorMode` is a ColorMode. kStatus_Success, or kStatus_Failure if nothing was drawn.
    virtual std::uint32_t DrawTexturedQuad(ITexture* texture, int bufferId, const double destination[4],
                                           const double source[4], float alpha, std::uint32_t colorMode) = 0;

    virtual std::uint32_t Reserved57() { return 0; }

    virtual void Reserved58() {}

    virtual void Reserved59() {}

    virtual void Reserved60() {}

    virtual void Reserved61() {}

protected:
    IRenderer() = default;
};

} // namespace orvane::render
