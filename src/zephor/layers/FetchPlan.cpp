#include "zephor/layers/FetchPlan.h"

#include <array>
#include <cstring>

#ifdef __x86_64__
#    include <immintrin.h>
#endif

namespace orvane::zephor {

namespace {

using Addresses = std::array<std::uint32_t, kBlockPixels>;

constexpr int kMostWindows = 8;
constexpr std::uint32_t kCovered = UINT32_MAX;
constexpr int kSecondWindowBit = 0x80;
constexpr int kWindowShift = 4;

// Sixteen addresses as windows. Sorted along the image, each window begins at the first address that the ones
// before it don't reach, which makes them as few as can be.
struct WindowCover {
    std::array<std::uint32_t, kMostWindows> places;
    std::array<std::uint8_t, kBlockPixels> place, window; // of each pixel
    int count = 0;                                        // kMostWindows + 1: they don't suffice

    void Cover(const Addresses& addresses) {
        Addresses rest = addresses;
        for (count = 0; count <= kMostWindows; ++count) {
            std::uint32_t first = kCovered;
            for (const std::uint32_t address : rest) first = std::min(first, address);
            if (first == kCovered) break;
            if (count < kMostWindows) Add(first, rest);
        }
        // A window that isn't needed may lie anywhere.
        for (int i = count; i < kMostWindows; ++i) places[std::size_t(i)] = places[0];
    }

private:
    void Add(std::uint32_t first, Addresses& rest) {
        places[std::size_t(count)] = first;
        for (std::size_t i = 0; i < kBlockPixels; ++i) {
            const std::uint32_t distance = rest[i] - first;
            const bool inside = distance < kBlockPixels;
            place[i] = inside ? std::uint8_t(distance) : place[i];
            window[i] = inside ? std::uint8_t(count) : window[i];
            rest[i] = inside ? kCovered : rest[i];
        }
    }
};

// Appends blocks and joins those of one kind into runs.
class Writer {
public:
    explicit Writer(std::vector<std::byte>& bytes)
        : mBytes(bytes) {}

    void StartRow() { mHasRun = false; }

    template <class Block>
    void Add(BlockKind kind, const Block& block) {
        Extend(kind);
        Append(block);
    }

    template <class Record>
    void Append(const Record& record) {
        const std::size_t at = mBytes.size();
        mBytes.resize(at + sizeof record);
        std::memcpy(mBytes.data() + at, &record, sizeof record);
    }

private:
    void Extend(BlockKind kind) {
        if (!mHasRun || mRun.kind != kind) {
            mRun = { kind, 0 };
            mRunAt = mBytes.size();
            mHasRun = true;
            Append(mRun);
        }
        ++mRun.count;
        std::memcpy(mBytes.data() + mRunAt, &mRun, sizeof mRun);
    }

    std::vector<std::byte>& mBytes;
    BlockRun mRun{};
    std::size_t mRunAt = 0;
    bool mHasRun = false;
};

template <class Block>
void AddWindows(Writer& writer, BlockKind kind, const WindowCover& cover) {
    Block block;
    std::memcpy(block.places, cover.places.data(), sizeof block.places);
    for (std::size_t i = 0; i < kBlockPixels; ++i)
        block.control[i] = std::uint8_t(cover.place[i] | cover.window[i] << kWindowShift);
    writer.Add(kind, block);
}

void AddTwoWindows(Writer& writer, const WindowCover& cover) {
    TwoWindowBlock block;
    std::memcpy(block.places, cover.places.data(), sizeof block.places);
    for (std::size_t i = 0; i < kBlockPixels; ++i)
        block.control[i] = std::uint8_t(cover.place[i] | (cover.window[i] ? kSecondWindowBit : 0));
    writer.Add(BlockKind::TwoWindows, block);
}

void AddBlock(Writer& writer, const Addresses& addresses, bool mayShuffle) {
    WindowCover cover;
    if (mayShuffle) {
        cover.Cover(addresses);
        if (cover.count <= 2) return AddTwoWindows(writer, cover);
        if (cover.count <= 4) return AddWindows<FourWindowBlock>(writer, BlockKind::FourWindows, cover);
        if (cover.count <= 8) return AddWindows<EightWindowBlock>(writer, BlockKind::EightWindows, cover);
    }
    AddressBlock block;
    std::copy(addresses.begin(), addresses.end(), block.addresses);
    writer.Add(BlockKind::Addresses, block);
}

struct ImageShape {
    int width, height;
    std::uint32_t rowBytes;
};

std::uint32_t AddressOf(const DeltaCell& cell, int x, const ImageShape& shape) {
    const int sx = FeedbackAddress(cell.x, shape.width - 1, x, shape.width);
    const int sy = FeedbackAddress(cell.y, shape.height - 1, x, shape.width);
    return std::uint32_t(sy) * shape.rowBytes + std::uint32_t(sx);
}

void RowAddresses(const DeltaCell* cells, const ImageShape& shape, std::uint32_t* out) {
    for (int x = 0; x < shape.width; ++x) out[x] = AddressOf(cells[x], x, shape);
}

#ifdef __x86_64__

// The addresses of four pixels that have partners.
__attribute__((target("sse4.1"))) void FourAddresses(const DeltaCell* cells, const ImageShape& shape,
                                                     std::uint32_t* out) {
    const auto* const at = reinterpret_cast<const float*>(cells);
    const __m128i mask = _mm_set1_epi32(0x07FFFFFF);
    const __m128 zero = _mm_setzero_ps();
    // The operand order gives 0 for what is not a number; what no integer holds becomes 0 under the mask.
    const __m128i left = _mm_and_si128(_mm_cvtps_epi32(_mm_max_ps(_mm_loadu_ps(at), zero)), mask);
    const __m128i right = _mm_and_si128(_mm_cvtps_epi32(_mm_max_ps(_mm_loadu_ps(at + 4), zero)), mask);
    const __m128 l = _mm_castsi128_ps(left), r = _mm_castsi128_ps(right);
    const __m128i x = _mm_castps_si128(_mm_shuffle_ps(l, r, _MM_SHUFFLE(2, 0, 2, 0)));
    const __m128i y = _mm_castps_si128(_mm_shuffle_ps(l, r, _MM_SHUFFLE(3, 1, 3, 1)));
    const __m128i column = _mm_min_epi32(x, _mm_set1_epi32(shape.width - 1));
    const __m128i row = _mm_min_epi32(y, _mm_set1_epi32(shape.height - 1));
    const __m128i place = _mm_add_epi32(_mm_mullo_epi32(row, _mm_set1_epi32(int(shape.rowBytes))), column);
    _mm_storeu_si128(reinterpret_cast<__m128i*>(out), place);
}

__attribute__((target("sse4.1"))) void RowAddressesSse41(const DeltaCell* cells, const ImageShape& shape,
                                                         std::uint32_t* out) {
    constexpr int kLanes = 4;
    int x = 0;
    for (; x + kLanes <= (shape.width & ~1); x += kLanes) FourAddresses(cells + x, shape, out + x);
    for (; x < shape.width; ++x) out[x] = AddressOf(cells[x], x, shape);
}

#endif

} // namespace

void FetchPlan::Build(const FeedbackField& field, int width, int height, std::ptrdiff_t averagedRowBytes,
                      RowRange rows, FeedbackForm form) {
    mBytes.clear();
    const bool mayShuffle = form == FeedbackForm::Sse41 || form == FeedbackForm::Avx2;
    const ImageShape shape{ width, height, std::uint32_t(averagedRowBytes) };
    std::vector<std::uint32_t> addresses(static_cast<std::size_t>(width));
    Writer writer(mBytes);
    for (int y = rows.first; y < rows.end; ++y) {
        writer.StartRow();
#ifdef __x86_64__
        if (mayShuffle)
            RowAddressesSse41(field.Row(y), shape, addresses.data());
        else
#endif
            RowAddresses(field.Row(y), shape, addresses.data());
        if (width < kBlockPixels) {
            for (const std::uint32_t address : addresses) writer.Append(address);
            continue;
        }
        for (int x = 0; x < width; x += kBlockPixels) {
            Addresses block;
            std::copy_n(addresses.begin() + std::min(x, width - kBlockPixels), kBlockPixels, block.begin());
            AddBlock(writer, block, mayShuffle);
        }
    }
}

} // namespace orvane::zephor
