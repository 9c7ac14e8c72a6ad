// Fields and functors for tests.
#pragma once

#include "zephor/deltafields/ComputeDeltaField.h"

#include <cstring>
#include <utility>
#include <vector>

namespace orvane::tests {

// A field of that size.
class TestField {
public:
    TestField(int width, int height)
        : mField(5) {
        mField.Resize(width, height);
    }

    zephor::ZephorLayerNextDeltaField* operator->() { return &mField; }

    zephor::ZephorLayerNextDeltaField& Get() { return mField; }

    [[nodiscard]] zephor::DeltaCell Cell(int column, int row) const {
        return mField.Field().Row(row)[column];
    }

    // The bits of all cells, so that equal means equal also where there are NaNs and zeros with a sign.
    [[nodiscard]] std::vector<unsigned char> Bytes() const {
        const zephor::FeedbackField field = mField.Field();
        std::vector<unsigned char> bytes(std::size_t(field.width) * sizeof(zephor::DeltaCell) *
                                         std::size_t(field.height));
        std::memcpy(bytes.data(), field.cells, bytes.size());
        return bytes;
    }

private:
    zephor::ZephorLayerNextDeltaField mField;
};

// A functor that knows nothing of rows: it is asked for one point at a time, and keeps what it was asked.
class PolarByPoint final : public zephor::PolarDeltafieldFunctor {
public:
    using Answer = std::pair<float, float> (*)(float r, float theta);

    explicit PolarByPoint(Answer answer)
        : PolarDeltafieldFunctor("Polar by point")
        , mAnswer(answer) {}

    std::pair<float, float> MapPolar(float r, float theta) const override {
        mAsked.push_back({ r, theta });
        return mAnswer(r, theta);
    }

    mutable std::vector<std::pair<float, float>> mAsked;

private:
    Answer mAnswer;
};

class CartesianByPoint final : public zephor::DeltafieldFunctor {
public:
    using Answer = std::pair<double, double> (*)(float x, float y);

    explicit CartesianByPoint(Answer answer)
        : DeltafieldFunctor("Cartesian by point", { 0, false })
        , mAnswer(answer) {}

    std::pair<double, double> MapCartesian(float x, float y) const override {
        mAsked.push_back({ x, y });
        return mAnswer(x, y);
    }

    mutable std::vector<std::pair<float, float>> mAsked;

private:
    Answer mAnswer;
};

} // namespace orvane::tests
