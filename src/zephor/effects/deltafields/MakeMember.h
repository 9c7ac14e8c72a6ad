// How a member's file hands out its members: their classes stay in the file, which ends with a line such as
//     template std::unique_ptr<DeltafieldFunctor> MakeMember<SphereFunctor>();
// for each of them, and DeltaMembers.h names them.
#pragma once

#include "zephor/effects/deltafields/DeltaMembers.h"

namespace orvane::zephor::deltafields {

template <class Member>
std::unique_ptr<DeltafieldFunctor> MakeMember() {
    return std::make_unique<Member>();
}

} // namespace orvane::zephor::deltafields
