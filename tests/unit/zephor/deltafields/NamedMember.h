// The registered members by their display names.
#pragma once

#include "zephor/effects/deltafields/DeltaLists.h"

#include <memory>
#include <string_view>
#include <vector>

namespace orvane::tests {

// All four lists, one after the other.
inline std::vector<zephor::DeltaFactory> AllDeltaFactories() {
    std::vector<zephor::DeltaFactory> all;
    for (const auto list :
         { zephor::DeltaList1(), zephor::DeltaList2(), zephor::DeltaList3(), zephor::DeltaList4() })
        all.insert(all.end(), list.begin(), list.end());
    return all;
}

// The first of that name, or null.
inline zephor::DeltaFactory FactoryNamed(std::string_view name) {
    for (const zephor::DeltaFactory make : AllDeltaFactories())
        if (make()->name == name) return make;
    return nullptr;
}

inline std::unique_ptr<zephor::DeltafieldFunctor> MakeNamed(std::string_view name) {
    return FactoryNamed(name)();
}

} // namespace orvane::tests
