// The colour maps that a manager can show: computed ones by their ids, and fixed tables below them.
#pragma once

#include "zephor/colours/CLUTProc.h"
#include "zephor/colours/ColourTable.h"

#include <cstdint>
#include <map>
#include <span>

namespace orvane::zephor {

class ColourMaps {
public:
    // The fixed tables have the ids from 0 on.
    explicit ColourMaps(std::span<const ColourTable> fixedTables)
        : mFixedTables(fixedTables) {}

    // A map takes the place of one that was entered under the same id. It outlives this object.
    void Enter(CLUTProc& map) { mComputed[map.id] = &map; }

    // Null where there is none.
    [[nodiscard]] CLUTProc* FindComputed(std::int32_t id) const;
    [[nodiscard]] const ColourTable* FindFixed(std::int32_t id) const;

    // In the order of their ids.
    [[nodiscard]] const std::map<std::int32_t, CLUTProc*>& Computed() const { return mComputed; }

private:
    std::span<const ColourTable> mFixedTables;
    std::map<std::int32_t, CLUTProc*> mComputed;
};

} // namespace orvane::zephor
