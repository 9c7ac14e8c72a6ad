// A delta field built as one would write it without lanes: a call to the C library for each sine, cosine and arc
// tangent, one pixel after the other.
#pragma once

#include "zephor/deltafields/ComputeDeltaField.h"
#include "zephor/effects/deltafields/DeltaLists.h"

#include <algorithm>
#include <cmath>
#include <memory>
#include <string_view>
#include <vector>

namespace orvane::benches {

using zephor::DeltaCell;

struct FieldSize {
    int width, height;
};

// The cells of rows without anything between them.
using Cells = std::vector<DeltaCell>;

template <class Map>
void BuildByLibm(FieldSize size, Cells& cells, Map map) {
    const auto width = float(size.width), height = float(size.height);
    const float step = 2.0f / width;
    DeltaCell* cell = cells.data();
    for (int row = 0; row < size.height; ++row) {
        const float y = float(2 * row) / height - 1.0f;
        for (int column = 0; column < size.width; ++column, ++cell) {
            const float x = float(column) * step - 1.0f;
            float r = std::sqrt(x * x + y * y), theta = std::atan2(y, x);
            map(r, theta);
            const float newX = (std::cos(theta) * r + 1.0f) * (width * 0.5f);
            const float newY = (std::sin(theta) * r + 1.0f) * (height * 0.5f);
            *cell = { std::clamp(newX, 0.0f, width - 1.0f), std::clamp(newY, 0.0f, height - 1.0f) };
        }
    }
}

// The polar members that are measured, with their formulas on the C library's functions.
struct MeasuredMember {
    const char* job;
    const char* name;
    void (*byLibm)(FieldSize size, Cells& cells);
};

inline void ExpandAndTurnByLibm(FieldSize size, Cells& cells) {
    BuildByLibm(size, cells, [](float& r, float& theta) {
        r *= 0.97f;
        theta -= 0.021f;
    });
}

inline void DandelionByLibm(FieldSize size, Cells& cells) {
    BuildByLibm(size, cells, [](float& r, float& theta) {
        const float spokes = std::sin(theta * 19.0f);
        theta = (std::cos(r * 41.0f) + std::cos(r * 29.0f)) * 0.01f + spokes * 0.004f + theta;
        r = r - spokes * 0.01f;
    });
}

inline constexpr MeasuredMember kMeasuredMembers[] = {
    { "turn", "Expand & Turn", ExpandAndTurnByLibm },
    { "dandelion", "Dandelion Psyc", DandelionByLibm },
};

inline std::unique_ptr<zephor::DeltafieldFunctor> MakeMeasured(std::string_view name) {
    for (const auto list : { zephor::DeltaList3(), zephor::DeltaList4() }) {
        for (const zephor::DeltaFactory make : list) {
            std::unique_ptr<zephor::DeltafieldFunctor> functor = make();
            if (functor->name == name) return functor;
        }
    }
    return nullptr;
}

// Whether the two fields mean the same pixels: the libraries round differently.
inline bool NearlyTheSame(const zephor::ZephorLayerNextDeltaField& field, const Cells& cells) {
    constexpr float kPixels = 0.004f;
    for (int row = 0; row < field.Height(); ++row) {
        const DeltaCell* const own = field.Field().Row(row);
        const DeltaCell* const other = cells.data() + std::size_t(row) * std::size_t(field.Width());
        for (int column = 0; column < field.Width(); ++column) {
            if (!(std::abs(own[column].x - other[column].x) < kPixels)) return false;
            if (!(std::abs(own[column].y - other[column].y) < kPixels)) return false;
        }
    }
    return true;
}

} // namespace orvane::benches
