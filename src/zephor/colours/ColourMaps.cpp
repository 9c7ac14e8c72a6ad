#include "zephor/colours/ColourMaps.h"

#include <cstddef>

namespace orvane::zephor {

CLUTProc* ColourMaps::FindComputed(std::int32_t id) const {
    const auto found = mComputed.find(id);
    return found == mComputed.end() ? nullptr : found->second;
}

const ColourTable* ColourMaps::FindFixed(std::int32_t id) const {
    const auto index = static_cast<std::size_t>(id); // a negative id is past the end
    return index < mFixedTables.size() ? &mFixedTables[index] : nullptr;
}

} // namespace orvane::zephor
