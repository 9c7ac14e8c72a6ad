// Direct3DRenderer: what happens on the device during a draw, and the constants that go with it.
#include "render/direct3d/DeviceBuffers.h"
#include "render/direct3d/Direct3DFunctions.h"
#include "render/direct3d/Direct3DRenderer.h"
#include "render/direct3d/Direct3DVertexAttributeObject.h"

namespace orvane::render {
namespace {

constexpr UINT kConstantSlot = 0; // of every stage
constexpr UINT kVertexInputSlot = 0;

// All that a renderer is given back was made by it.
Direct3DVertexAttributeObject& Ours(VertexObject& object) {
    return static_cast<Direct3DVertexAttributeObject&>(object);
}

struct Stages {
    explicit Stages(CRenderingPipeline& pipeline)
        : vertex(static_cast<Direct3DVertexFunction*>(pipeline.GetVertexFunction()))
        , fragment(static_cast<Direct3DFragmentFunction*>(pipeline.GetFragmentFunction()))
        , geometry(static_cast<Direct3DGeometryFunction*>(pipeline.GetGeometryFunction())) {}

    Direct3DVertexFunction* const vertex;
    Direct3DFragmentFunction* const fragment;
    Direct3DGeometryFunction* const geometry; // mostly null
};

// KEEP: an unassigned kind sets no topology. So such a buffer is drawn as the draw before it was.
// By design: the numbers of the contract have a gap and nobody checks them.
// Pinned by Primitives.TheUnassignedKindDrawsAsTheDrawBeforeIt.
void SetTopology(ID3D11DeviceContext* context, std::uint32_t primitive) {
    switch (primitive) {
    case kPrimitive_TriangleStrip:
        return context->IASetPrimitiveTopology(D3D11_PRIMITIVE_TOPOLOGY_TRIANGLESTRIP);
    case kPrimitive_Triangles:
        return context->IASetPrimitiveTopology(D3D11_PRIMITIVE_TOPOLOGY_TRIANGLELIST);
    case kPrimitive_Lines:
        return context->IASetPrimitiveTopology(D3D11_PRIMITIVE_TOPOLOGY_LINELIST);
    case kPrimitive_Points:
        return context->IASetPrimitiveTopology(D3D11_PRIMITIVE_TOPOLOGY_POINTLIST);
    default:
        return;
    }
}

void SetInput(ID3D11DeviceContext* context, const Direct3DVertexAttributeObject& object) {
    ID3D11Buffer* const buffer = object.Buffer();
    const UINT stride = object.Description().stride, offset = 0;
    if (object.Layout() != nullptr) context->IASetInputLayout(object.Layout());
    context->IASetVertexBuffers(kVertexInputSlot, 1, &buffer, &stride, &offset);
    SetTopology(context, object.Description().primitive);
}

void SetStages(ID3D11DeviceContext* context, const Stages& stages) {
    context->VSSetShader(stages.vertex->Shader(), nullptr, 0);
    context->PSSetShader(stages.fragment->Shader(), nullptr, 0);
    stages.fragment->BindSamplers(context);
    if (stages.geometry != nullptr) context->GSSetShader(stages.geometry->Shader(), nullptr, 0);
}

// KEEP: the size of the index texture goes where the other sets have their tint, and stays bound.
// So after a draw of set F the tint is that size until SetColor is called.
// By design: whoever draws with the tint sets it first.
// Pinned by ColourTable.ItsDrawLeavesTheTextureSizeInPlaceOfTheTint.
void WriteTextureSize(ID3D11DeviceContext* context, ID3D11Buffer* constant, ITexture& texture) {
    double size[2];
    texture.GetSize(size);
    const float contents[4] = { static_cast<float>(size[0]), static_cast<float>(size[1]), 0, 0 };
    WriteDynamicBuffer(context, constant, contents, sizeof contents);
    context->PSSetConstantBuffers(kConstantSlot, 1, &constant);
}

} // namespace

void Direct3DRenderer::DrawVertices(VertexObject& object, ITexture* texture, std::uint32_t firstVertex,
                                    std::uint32_t vertexCount) {
    ID3D11DeviceContext* const context = mParts.context.Get();
    const Direct3DVertexAttributeObject& ours = Ours(object);
    const Stages stages(*object.Description().pipeline);
    SetInput(context, ours);
    SetStages(context, stages);
    if (texture != nullptr) {
        if (ours.ExtraConstant() != nullptr) WriteTextureSize(context, ours.ExtraConstant(), *texture);
        texture->Bind();
    }
    context->Draw(vertexCount, firstVertex);
    if (texture != nullptr) texture->Unbind();
    if (stages.geometry != nullptr) context->GSSetShader(nullptr, nullptr, 0);
}

void Direct3DRenderer::SetColor(const float colour[4], float alpha) {
    if (!mColourConstant) return;
    const float tint[] = { colour[0], colour[1], colour[2], alpha };
    if (WriteDynamicBuffer(mParts.context.Get(), mColourConstant.Get(), tint, sizeof tint))
        mParts.context->PSSetConstantBuffers(kConstantSlot, 1, mColourConstant.GetAddressOf());
}

void Direct3DRenderer::WriteMatrix(const Matrix& matrix, MatrixStages stages) {
    if (!mMatrixConstant) return;
    if (!WriteDynamicBuffer(mParts.context.Get(), mMatrixConstant.Get(), matrix.data(), sizeof matrix))
        return;
    mParts.context->VSSetConstantBuffers(kConstantSlot, 1, mMatrixConstant.GetAddressOf());
    if (stages == MatrixStages::VertexAndGeometry)
        mParts.context->GSSetConstantBuffers(kConstantSlot, 1, mMatrixConstant.GetAddressOf());
}

// KEEP: only the vertex stage lets go of the matrix; the geometry stage goes on holding it.
// So the device keeps the constant in use between frames. No geometry stage reads it.
// By design: the pair of calls is as small as it can be.
// Pinned by Draw.UnbindsTheMatrixFromTheVertexStageOnly.
void Direct3DRenderer::UnbindMatrix() {
    ID3D11Buffer* const none = nullptr;
    mParts.context->VSSetConstantBuffers(kConstantSlot, 1, &none);
}

void Direct3DRenderer::BindTexture(ITexture* texture) {
    if (texture != nullptr) return texture->Bind();
    ID3D11ShaderResourceView* const none[] = { nullptr, nullptr }; // the units that shaders read
    if (mParts.context) mParts.context->PSSetShaderResources(0, 2, none);
}

void* Direct3DRenderer::MapVertices(VertexObject& object) {
    Direct3DVertexAttributeObject& ours = Ours(object);
    D3D11_MAPPED_SUBRESOURCE mapped{};
    if (FAILED(mParts.context->Map(ours.Buffer(), 0, D3D11_MAP_WRITE_DISCARD, 0, &mapped))) return nullptr;
    ours.SetRowPitch(mapped.RowPitch);
    if (mapped.pData == nullptr) UnmapVertices(object); // mapped, but to nothing
    return mapped.pData;
}

void Direct3DRenderer::UnmapVertices(VertexObject& object) {
    mParts.context->Unmap(Ours(object).Buffer(), 0);
}

} // namespace orvane::render
