#include "zephor/deltafields/ComputeDeltaField.h"

#include "zephor/layers/Slices.h"

#include <vector>

namespace orvane::zephor {

namespace {

// The plane's coordinates of the field's columns and rows. Polar members are given products, cartesian ones a
// running sum in x, whose rounding adds up along the row.
class PlaneOfField {
public:
    PlaneOfField(int width, int height, bool isPolar)
        : mHeight(height)
        , mIsPolar(isPolar)
        , mX(std::size_t(width)) {
        const float step = 2.0f / float(width);
        float sum = -1.0f;
        for (int column = 0; column < width; ++column, sum += step)
            mX[std::size_t(column)] = isPolar ? float(column) * step - 1.0f : sum;
    }

    [[nodiscard]] const float* X() const { return mX.data(); }

    [[nodiscard]] float Y(int row) const {
        const auto twice = float(2 * row), height = float(mHeight);
        return mIsPolar ? twice / height - 1.0f : twice * (1.0f / height) - 1.0f;
    }

private:
    int mHeight;
    bool mIsPolar;
    std::vector<float> mX;
};

void ComputeRows(ZephorLayerNextDeltaField& field, const DeltafieldFunctor& functor,
                 const PlaneOfField& plane, RowRange rows, single::LaneForm form) {
    const auto width = float(field.Width()), height = float(field.Height());
    for (int y = rows.first; y < rows.end; ++y)
        functor.MapRow({ .x = plane.X(),
                         .y = plane.Y(y),
                         .width = field.Width(),
                         .halfWidth = width * 0.5f,
                         .halfHeight = height * 0.5f,
                         .lastColumn = width - 1.0f,
                         .lastRow = height - 1.0f,
                         .form = form },
                       field.RowToWrite(y));
}

} // namespace

void ComputeDeltaField(ZephorLayerNextDeltaField& field, const DeltafieldFunctor& functor) {
    SliceThreads callersOwn(1);
    ComputeDeltaField(field, functor, callersOwn);
}

void ComputeDeltaField(ZephorLayerNextDeltaField& field, const DeltafieldFunctor& functor,
                       SliceThreads& threads, single::LaneForm form) {
    if (field.Field().cells != nullptr) {
        field.WillWrite();
        const PlaneOfField plane(field.Width(), field.Height(), functor.flags.isPolar);
        const int slices = field.SliceCount();
        const auto compute = [&](int slice) {
            ComputeRows(field, functor, plane, RowsOfSlice(field.Height(), slices, slice), form);
        };
        if (functor.IsPure()) {
            threads.Run(slices, compute);
        } else {
            for (int slice = 0; slice < slices; ++slice) compute(slice);
        }
    }
    field.ready = true;
}

} // namespace orvane::zephor
