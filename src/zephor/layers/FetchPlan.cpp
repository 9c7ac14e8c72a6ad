#include "zephor/layers/FetchPlan.h"

#include "zephor/layers/CellAddresses.h"
#include "zephor/layers/WindowCover.h"

#include <algorithm>
#include <cstring>

namespace orvane::zephor {

namespace {

constexpr std::size_t kMostBytesPerBlock = sizeof(BlockRun) + sizeof(AddressBlock);

std::size_t MostBytesPerRow(int width) {
    const auto blocks = std::size_t((width + kBlockPixels - 1) / kBlockPixels);
    return blocks * kMostBytesPerBlock;
}

// Writes the blocks of one row and joins those of one kind into runs.
class RowWriter {
public:
    explicit RowWriter(std::byte* row)
        : mRow(row)
        , mEnd(row) {}

    template <class Block>
    void Add(BlockKind kind, const Block& block) {
        if (!mRun || mKind != kind) StartRun(kind);
        Append(block);
        ++mCount;
        std::memcpy(mRun + offsetof(BlockRun, count), &mCount, sizeof mCount);
    }

    template <class Record>
    void Append(const Record& record) {
        std::memcpy(mEnd, &record, sizeof record);
        mEnd += sizeof record;
    }

    [[nodiscard]] std::size_t Size() const { return std::size_t(mEnd - mRow); }

private:
    void StartRun(BlockKind kind) {
        mRun = mEnd;
        mKind = kind;
        mCount = 0;
        Append(BlockRun{ kind, 0 });
    }

    std::byte* mRow;
    std::byte* mEnd;
    std::byte* mRun = nullptr; // null: none in this row yet
    BlockKind mKind{};
    std::uint32_t mCount = 0;
};

template <class Block>
void AddWindows(RowWriter& writer, BlockKind kind, const WindowCover& cover) {
    Block block;
    std::memcpy(block.places, cover.places, sizeof block.places);
    std::memcpy(block.control, cover.control, sizeof block.control);
    writer.Add(kind, block);
}

// One bit is enough, and it stands where a shuffle wants it.
void AddTwoWindows(RowWriter& writer, const WindowCover& cover) {
    TwoWindowBlock block;
    std::memcpy(block.places, cover.places, sizeof block.places);
    for (int i = 0; i < kBlockPixels; ++i) {
        const int place = cover.control[i] & (kBlockPixels - 1), window = cover.control[i] >> kWindowShift;
        block.control[i] = std::uint8_t(place | window << kSecondWindowBit);
    }
    writer.Add(BlockKind::TwoWindows, block);
}

void AddAddresses(RowWriter& writer, const std::uint32_t* addresses) {
    AddressBlock block;
    std::copy_n(addresses, kBlockPixels, block.addresses);
    writer.Add(BlockKind::Addresses, block);
}

void AddBlock(RowWriter& writer, const std::uint32_t* addresses) {
    WindowCover cover;
    CoverWithWindows(addresses, cover);
    if (cover.count <= 2)
        AddTwoWindows(writer, cover);
    else if (cover.count <= 4)
        AddWindows<FourWindowBlock>(writer, BlockKind::FourWindows, cover);
    else if (cover.count <= kMostWindows)
        AddWindows<EightWindowBlock>(writer, BlockKind::EightWindows, cover);
    else
        AddAddresses(writer, addresses);
}

void WriteRow(RowWriter& writer, const std::uint32_t* addresses, int width, bool mayShuffle) {
    if (width < kBlockPixels) {
        for (int x = 0; x < width; ++x) writer.Append(addresses[x]);
        return;
    }
    for (int x = 0; x < width; x += kBlockPixels) {
        const std::uint32_t* const block = addresses + std::min(x, width - kBlockPixels);
        if (mayShuffle)
            AddBlock(writer, block);
        else
            AddAddresses(writer, block);
    }
}

} // namespace

void FetchPlan::Build(const FeedbackField& field, int width, int height, std::ptrdiff_t averagedRowBytes,
                      RowRange rows, FeedbackForm form) {
    const RowAddressesFunction rowAddresses = RowAddressesOf(form);
    const ImageShape shape{ width, height, std::uint32_t(averagedRowBytes) };
    std::vector<std::uint32_t> addresses(static_cast<std::size_t>(width));
    std::vector<std::byte> row(MostBytesPerRow(width));
    mBytes.clear();
    for (int y = rows.first; y < rows.end; ++y) {
        rowAddresses(field.Row(y), shape, addresses.data());
        RowWriter writer(row.data());
        WriteRow(writer, addresses.data(), width, MayShuffle(form));
        mBytes.insert(mBytes.end(), row.begin(), row.begin() + std::ptrdiff_t(writer.Size()));
    }
}

} // namespace orvane::zephor
