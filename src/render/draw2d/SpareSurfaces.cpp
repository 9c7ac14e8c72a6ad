#include "render/draw2d/SpareSurfaces.h"

#include <algorithm>
#include <cstring>
#include <utility>
#include <vector>

namespace orvane::render {

namespace {

using Microsoft::WRL::ComPtr;

constexpr std::size_t kMostSpares = 6;
constexpr std::uint64_t kMostTimesLarger = 4, kFitsNot = ~std::uint64_t(0);

// Never released: at the end of the process the libraries may be gone before this program's variables are.
std::vector<LayerSurface>& Spares() {
    static auto* const sShared = new std::vector<LayerSurface>;
    return *sShared;
}

// What is drawn and what is in the bitmap need not be the same memory, so both are cleared.
bool Clear(const LayerSurface& surface) {
    constexpr D2D1_COLOR_F kNothing = { 0, 0, 0, 0 };
    surface.target->BeginDraw();
    surface.target->Clear(&kNothing);
    if (FAILED(surface.target->EndDraw())) return false;
    const WICRect whole = { 0, 0, INT(surface.width), INT(surface.height) };
    ComPtr<IWICBitmapLock> lock; // the bitmap is unlocked when this goes
    UINT byteCount = 0;
    BYTE* pixels = nullptr;
    if (FAILED(surface.bitmap->Lock(&whole, WICBitmapLockWrite, &lock)) ||
        FAILED(lock->GetDataPointer(&byteCount, &pixels)))
        return false;
    std::memset(pixels, 0, byteCount);
    return true;
}

} // namespace

std::optional<LayerSurface> TakeSpareSurface(std::uint32_t width, std::uint32_t height) {
    auto& spares = Spares();
    const auto excess = [&](const LayerSurface& spare) {
        const std::uint64_t wanted = std::uint64_t(width) * height;
        const std::uint64_t area = std::uint64_t(spare.width) * spare.height;
        const bool fits = spare.width >= width && spare.height >= height && area <= kMostTimesLarger * wanted;
        return fits ? area - wanted : kFitsNot;
    };
    const auto found = std::ranges::min_element(spares, {}, excess);
    if (found == spares.end() || excess(*found) == kFitsNot) return std::nullopt;
    LayerSurface surface = std::move(*found);
    spares.erase(found);
    if (!Clear(surface)) return std::nullopt;
    return surface;
}

void KeepSpareSurface(LayerSurface surface) {
    auto& spares = Spares();
    if (spares.size() == kMostSpares) spares.erase(spares.begin());
    spares.push_back(std::move(surface));
}

} // namespace orvane::render
