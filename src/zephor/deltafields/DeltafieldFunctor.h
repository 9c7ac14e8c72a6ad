// A delta field effect: a function over the plane that says where each pixel of the next image comes from.
//
// Nothing fails here; what a functor returns is held inside the image when the field is made. A NaN stays in the
// cell and counts as 0 in the feedback step.
// The plane is the same for every window, so an effect stretches with the window.
#pragma once

#include "zephor/deltafields/FieldRow.h"

#include <cstdint>
#include <string>
#include <utility>

namespace orvane::zephor {

struct DeltafieldFlags {
    std::uint8_t unreadFlag; // stored, never read
    bool isPolar;            // MapPolar is asked, and otherwise MapCartesian
};

static_assert(sizeof(DeltafieldFlags) == 2);

// The order of the first three operations is part of the contract.
class DeltafieldFunctor {
public:
    DeltafieldFunctor(std::string displayName, DeltafieldFlags theFlags)
        : name(std::move(displayName))
        , flags(theFlags) {}

    virtual ~DeltafieldFunctor() = default;
    DeltafieldFunctor(const DeltafieldFunctor&) = delete;
    DeltafieldFunctor& operator=(const DeltafieldFunctor&) = delete;

    // (r', theta') for (r, theta). As it stands here: the same.
    virtual std::pair<float, float> MapPolar(float r, float theta) const;

    // (x', y') for (x, y). As it stands here: the centre.
    virtual std::pair<double, double> MapCartesian(float x, float y) const;

    // Fills `row.width` cells as if by MapPolar or MapCartesian for one column after the other. As it stands
    // here: by those calls.
    virtual void MapRow(const FieldRow& row, DeltaCell* cells) const;

    // Whether a point's answer depends on the point alone, so that rows may be filled in any order and by several
    // threads. As it stands here: false.
    [[nodiscard]] virtual bool IsPure() const;

    std::string name;
    DeltafieldFlags flags;
};

// The common base of all polar members.
class PolarDeltafieldFunctor : public DeltafieldFunctor {
public:
    explicit PolarDeltafieldFunctor(std::string displayName)
        : DeltafieldFunctor(std::move(displayName), { .unreadFlag = 0, .isPolar = true }) {}
};

} // namespace orvane::zephor
