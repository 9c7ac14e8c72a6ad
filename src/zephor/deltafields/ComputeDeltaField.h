// Runs a functor over a delta field.
#pragma once

#include "zephor/deltafields/DeltafieldFunctor.h"
#include "zephor/layers/SliceThreads.h"
#include "zephor/layers/ZephorLayerNextDeltaField.h"

namespace orvane::zephor {

// Fills every cell, in slice order on the calling thread, and sets `ready`, which the caller cleared. Without
// cells that is all it does.
void ComputeDeltaField(ZephorLayerNextDeltaField& field, const DeltafieldFunctor& functor);

// The same cells; the slices of a pure functor are shared out among `threads`.
void ComputeDeltaField(ZephorLayerNextDeltaField& field, const DeltafieldFunctor& functor,
                       SliceThreads& threads, single::LaneForm form = single::WidestLaneForm());

} // namespace orvane::zephor
