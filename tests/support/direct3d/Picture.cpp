#include "support/direct3d/Picture.h"

#include <algorithm>
#include <cstdlib>
#include <cstring>

namespace orvane::tests {
namespace {

using render::ComPtr;

// A copy of the target that the processor can read.
ComPtr<ID3D11Texture2D> ReadableCopy(const render::Direct3DRenderer& renderer, D3D11_TEXTURE2D_DESC& size) {
    ComPtr<ID3D11Resource> target;
    renderer.RenderTarget()->GetResource(&target);
    ComPtr<ID3D11Texture2D> texture;
    if (FAILED(target.As(&texture))) return nullptr;
    texture->GetDesc(&size);
    D3D11_TEXTURE2D_DESC description = size;
    description.Usage = D3D11_USAGE_STAGING;
    description.BindFlags = 0;
    description.CPUAccessFlags = D3D11_CPU_ACCESS_READ;
    ComPtr<ID3D11Texture2D> copy;
    if (FAILED(renderer.Parts().device->CreateTexture2D(&description, nullptr, &copy))) return nullptr;
    renderer.Parts().context->CopyResource(copy.Get(), texture.Get());
    return copy;
}

} // namespace

void PrintTo(const Colour& colour, std::ostream* out) {
    *out << '(' << int(colour.r) << ", " << int(colour.g) << ", " << int(colour.b) << ", " << int(colour.a)
         << ')';
}

void PrintTo(const Area& area, std::ostream* out) {
    *out << "x " << area.left << ".." << area.right << " y " << area.top << ".." << area.bottom;
}

Picture::Picture(const render::Direct3DRenderer& renderer) {
    if (renderer.RenderTarget() == nullptr) return;
    D3D11_TEXTURE2D_DESC size{};
    const ComPtr<ID3D11Texture2D> copy = ReadableCopy(renderer, size);
    D3D11_MAPPED_SUBRESOURCE mapped{};
    ID3D11DeviceContext* const context = renderer.Parts().context.Get();
    if (!copy || FAILED(context->Map(copy.Get(), 0, D3D11_MAP_READ, 0, &mapped))) return;
    mWidth = static_cast<int>(size.Width);
    mHeight = static_cast<int>(size.Height);
    mPixels.resize(std::size_t(size.Width) * size.Height);
    for (std::size_t y = 0; y < size.Height; ++y)
        std::memcpy(&mPixels[y * size.Width], static_cast<const char*>(mapped.pData) + y * mapped.RowPitch,
                    size.Width * sizeof(Colour));
    context->Unmap(copy.Get(), 0);
}

Colour Picture::At(int x, int y) const {
    const bool isInside = x >= 0 && x < mWidth && y >= 0 && y < mHeight;
    return isInside ? mPixels[std::size_t(y) * std::size_t(mWidth) + std::size_t(x)] : Colour{};
}

Area Picture::DrawnArea(const Colour& background) const {
    Area area{ mWidth, mHeight, 0, 0 };
    for (int y = 0; y < mHeight; ++y)
        for (int x = 0; x < mWidth; ++x) {
            if (At(x, y) == background) continue;
            area.left = std::min(area.left, x);
            area.top = std::min(area.top, y);
            area.right = std::max(area.right, x + 1);
            area.bottom = std::max(area.bottom, y + 1);
        }
    return area.right == 0 ? Area{} : area;
}

int Picture::Count(const Colour& colour) const {
    return static_cast<int>(std::count(mPixels.begin(), mPixels.end(), colour));
}

bool Picture::IsFilled(const Area& area, const Colour& colour) const {
    for (int y = area.top; y < area.bottom; ++y)
        for (int x = area.left; x < area.right; ++x)
            if (!IsNear(At(x, y), colour)) return false;
    return true;
}

bool IsNear(const Colour& a, const Colour& b) {
    const auto isClose = [](int x, int y) { return std::abs(x - y) <= 1; };
    return isClose(a.r, b.r) && isClose(a.g, b.g) && isClose(a.b, b.b) && isClose(a.a, b.a);
}

} // namespace orvane::tests
