#include "render/recording/RecordingRenderer2D.h"

#include "render/recording/BitmapFile.h"
#include "render/recording/RecordingTextFormat.h"

#include <algorithm>
#include <cmath>
#include <cstring>
#include <utility>

namespace orvane::render {
namespace {

constexpr std::size_t kAlpha = 3; // the last byte of a pixel

std::uint8_t Rounded(float value) {
    return value > 0 ? static_cast<std::uint8_t>(std::lround(std::min(value, 255.0f))) : std::uint8_t(0);
}

// What is left of `under` below `alpha`, in 255ths.
std::uint8_t Remaining(std::uint8_t under, std::uint8_t alpha) {
    return static_cast<std::uint8_t>((under * (255 - alpha) + 127) / 255);
}

std::array<double, 4> RectOf(const double rect[4]) {
    return { rect[0], rect[1], rect[2], rect[3] };
}

class RecordingBitmap final : public IBitMap2D {
public:
    explicit RecordingBitmap(PackedPicture picture)
        : mPicture(std::move(picture)) {}

    void GetSize(double out[2]) override {
        out[0] = mPicture.width;
        out[1] = mPicture.height;
    }

    [[nodiscard]] std::uint32_t Width() const { return mPicture.width; }

    [[nodiscard]] std::uint32_t Height() const { return mPicture.height; }

    // Channel by channel, linear between the centres of pixels and level beyond the outermost ones.
    // `u` and `v` are in pixels of the image.
    [[nodiscard]] std::array<float, 4> At(double u, double v) const {
        const Place x = PlaceOf(u, mPicture.width), y = PlaceOf(v, mPicture.height);
        std::array<float, 4> value;
        for (std::size_t c = 0; c < value.size(); ++c) {
            const float upper = std::lerp(Byte(x.low, y.low, c), Byte(x.high, y.low, c), x.between);
            const float lower = std::lerp(Byte(x.low, y.high, c), Byte(x.high, y.high, c), x.between);
            value[c] = std::lerp(upper, lower, y.between);
        }
        return value;
    }

private:
    struct Place {
        std::size_t low, high;
        float between;
    };

    static Place PlaceOf(double coordinate, std::uint32_t size) {
        const double held = std::clamp(coordinate - 0.5, 0.0, double(size - 1));
        const auto low = static_cast<std::size_t>(held);
        return { low, std::min<std::size_t>(low + 1, size - 1), static_cast<float>(held - double(low)) };
    }

    [[nodiscard]] float Byte(std::size_t x, std::size_t y, std::size_t channel) const {
        return mPicture.bytes[y * mPicture.RowBytes() + x * 4 + channel];
    }

    const PackedPicture mPicture;
};

IBitMap2D* BitmapOf(std::optional<PackedPicture> picture) {
    return picture ? new RecordingBitmap(std::move(*picture)) : nullptr;
}

// Calls `take`(x, y, coverage byte) for each pixel of a mask that isn't zero, and clears it.
template <typename Take>
class MaskReader final : public BitmapProcessingFunctor {
public:
    explicit MaskReader(Take take)
        : mTake(std::move(take)) {}

    void Process(void* pixels, int width, int height, int rowBytes, std::size_t /*byteCount*/) override {
        for (std::size_t y = 0; y < std::size_t(height); ++y) {
            std::uint8_t* const row = static_cast<std::uint8_t*>(pixels) + y * std::size_t(rowBytes);
            for (std::size_t x = 0; x < std::size_t(width); ++x)
                if (row[x] != 0) mTake(x, y, row[x]);
            std::memset(row, 0, std::size_t(width));
        }
    }

private:
    Take mTake;
};

// The whole pixels of 0..size whose centres lie within start..start + length.
struct PixelRange {
    std::size_t first, end;
};

PixelRange PixelsWithin(double start, double length, std::uint32_t size) {
    const double first = std::clamp(std::ceil(start - 0.5), 0.0, double(size));
    const double end = std::clamp(std::ceil(start + length - 0.5), first, double(size));
    return { static_cast<std::size_t>(first), static_cast<std::size_t>(end) };
}

} // namespace

std::unique_ptr<RecordingRenderer2D> RecordingRenderer2D::Create(std::uint32_t width, std::uint32_t height,
                                                                 SurfaceFormat format,
                                                                 std::shared_ptr<DrawingLog> log) {
    constexpr std::uint32_t kMost = CoverageCanvas::kMostPixels;
    if (width > kMost || height > kMost) return nullptr;
    auto mask = CoverageCanvas::Create(static_cast<int>(width), static_cast<int>(height));
    if (!mask) return nullptr;
    if (!log) log = std::make_shared<DrawingLog>();
    return std::unique_ptr<RecordingRenderer2D>(
        new RecordingRenderer2D(width, height, format, std::move(log), std::move(mask)));
}

RecordingRenderer2D::RecordingRenderer2D(std::uint32_t width, std::uint32_t height, SurfaceFormat format,
                                         std::shared_ptr<DrawingLog> log,
                                         std::unique_ptr<CoverageCanvas> mask)
    : mWidth(width)
    , mHeight(height)
    , mPixelBytes(format == SurfaceFormat::Pbgra32 ? 4 : 1)
    , mPixels(std::size_t(width) * height * mPixelBytes)
    , mLog(std::move(log))
    , mMask(std::move(mask)) {
    ++mLog->surfaces;
    ++mLog->liveSurfaces;
    mMask->SetFillColor(1, 1, 1, 1);
    mMask->SetStrokeColor(1, 1, 1, 1);
}

RecordingRenderer2D::~RecordingRenderer2D() {
    --mLog->liveSurfaces;
}

std::uint32_t RecordingRenderer2D::Pixel(std::uint32_t x, std::uint32_t y) const {
    std::uint32_t pixel = 0;
    if (x < mWidth && y < mHeight)
        std::memcpy(&pixel, mPixels.data() + (std::size_t(y) * mWidth + x) * mPixelBytes, mPixelBytes);
    return pixel;
}

void RecordingRenderer2D::Resize(std::uint32_t /*width*/, std::uint32_t /*height*/) {}

void RecordingRenderer2D::SetStrokeColor(double red, double green, double blue, double alpha) {
    mStroke = { float(red), float(green), float(blue), float(alpha) };
}

void RecordingRenderer2D::SetFillColor(double red, double green, double blue, double alpha) {
    mFill = { float(red), float(green), float(blue), float(alpha) };
}

void RecordingRenderer2D::BlendPixel(std::size_t x, std::size_t y, const Source& source, float coverage) {
    std::uint8_t* const pixel = mPixels.data() + (y * mWidth + x) * mPixelBytes;
    const std::uint8_t alpha = Rounded(source[kAlpha] * coverage);
    for (std::size_t byte = 0; byte < mPixelBytes; ++byte) {
        const std::size_t channel = mPixelBytes == 1 ? kAlpha : byte;
        const std::uint8_t over = std::min(Rounded(source[channel] * coverage), alpha);
        pixel[byte] = static_cast<std::uint8_t>(over + Remaining(pixel[byte], alpha));
    }
}

// Puts `colour` where the mask was drawn on, and empties the mask.
void RecordingRenderer2D::PaintMask(const Colour& colour) {
    constexpr float kFull = 255;
    const float alpha = std::clamp(colour[kAlpha], 0.0f, 1.0f) * kFull;
    const Source source = { colour[2] * alpha, colour[1] * alpha, colour[0] * alpha, alpha };
    MaskReader reader([&](std::size_t x, std::size_t y, std::uint8_t coverage) {
        BlendPixel(x, y, source, float(coverage) / kFull);
    });
    mMask->ReadPixels(reader);
}

void RecordingRenderer2D::DrawLines(const double segments[], int count, float width) {
    if (!(width > 0)) return;
    for (int i = 0; i < count; ++i) {
        mMask->DrawLines(segments + 4 * i, 1, width);
        PaintMask(mStroke);
    }
}

void RecordingRenderer2D::StrokeRectangle(const double rect[4]) {
    mMask->StrokeRectangle(rect);
    PaintMask(mStroke);
}

void RecordingRenderer2D::FillRectangle(const double rect[4]) {
    mMask->FillRectangle(rect);
    PaintMask(mFill);
}

void RecordingRenderer2D::FillEllipse(const double rect[4]) {
    mMask->FillEllipse(rect);
    PaintMask(mFill);
}

void RecordingRenderer2D::StrokeEllipse(const double rect[4]) {
    mMask->StrokeEllipse(rect);
    PaintMask(mStroke);
}

void RecordingRenderer2D::ReadPixels(BitmapProcessingFunctor& functor) {
    if (mRefusesLock) return;
    functor.Process(mPixels.data(), static_cast<int>(mWidth), static_cast<int>(mHeight),
                    static_cast<int>(mWidth * mPixelBytes), mPixels.size());
}

void RecordingRenderer2D::BeginDraw() {}

bool RecordingRenderer2D::EndDraw() {
    ++mLog->drawings;
    return std::exchange(mLost, false);
}

void RecordingRenderer2D::DrawText(const char16_t* text, std::uint32_t length, ITextFormat* format,
                                   const double rect[4]) {
    if (text == nullptr || length == 0 || format == nullptr) return;
    const auto& known = static_cast<const RecordingTextFormat&>(*format);
    mLog->texts.push_back({ std::u16string(text, length), known.FontSize(), known.Alignment(),
                            known.HasEllipsis(), RectOf(rect), mFill });
    DrawGlyphBoxes(mLog->texts.back());
}

void RecordingRenderer2D::DrawGlyphBoxes(const DrawnText& text) {
    // In font sizes: a cell and the box within it.
    constexpr double kCell = 0.5, kBoxLeft = 0.05, kBoxWidth = 0.4, kBoxTop = 0.2, kBoxHeight = 0.7;
    const double size = text.fontSize;
    const double room = text.rect[2] - double(text.text.size()) * kCell * size;
    double x = text.rect[0] + kBoxLeft * size;
    if (text.alignment == kTextAlignmentTrailing) x += room;
    if (text.alignment == kTextAlignmentCentred) x += room / 2;
    for (const char16_t unit : text.text) {
        const double box[4] = { x, text.rect[1] + kBoxTop * size, kBoxWidth * size, kBoxHeight * size };
        if (unit != u' ') mMask->FillRectangle(box);
        x += kCell * size;
    }
    PaintMask(text.colour);
}

IBitMap2D* RecordingRenderer2D::CreateBitmapFromPackedRows(const char* const rows[], std::uint64_t rowCount) {
    return BitmapOf(DecodePackedRows(rows, rowCount));
}

IBitMap2D* RecordingRenderer2D::CreateBitmapFromImageData(const void* data, std::uint32_t size) {
    if (data == nullptr) return nullptr;
    return BitmapOf(DecodeBitmapFile({ static_cast<const std::byte*>(data), size }));
}

void RecordingRenderer2D::DrawBitmap(IBitMap2D* bitmap, float opacity, const double rect[4]) {
    if (bitmap == nullptr || !(opacity > 0)) return;
    const auto& image = static_cast<const RecordingBitmap&>(*bitmap);
    const float held = std::min(opacity, 1.0f);
    mLog->images.push_back({ image.Width(), image.Height(), held, RectOf(rect) });
    const bool finite = std::all_of(rect, rect + 4, [](double side) { return std::isfinite(side); });
    if (!finite || rect[2] <= 0 || rect[3] <= 0) return;
    const PixelRange columns = PixelsWithin(rect[0], rect[2], mWidth);
    const PixelRange rows = PixelsWithin(rect[1], rect[3], mHeight);
    for (std::size_t y = rows.first; y < rows.end; ++y) {
        const double v = (double(y) + 0.5 - rect[1]) / rect[3] * image.Height();
        for (std::size_t x = columns.first; x < columns.end; ++x) {
            const double u = (double(x) + 0.5 - rect[0]) / rect[2] * image.Width();
            BlendPixel(x, y, image.At(u, v), held);
        }
    }
}

} // namespace orvane::render
