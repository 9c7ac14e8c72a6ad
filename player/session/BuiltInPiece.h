// The piece that is played where no song is named.
#pragma once

#include "player/session/Track.h"

namespace orvane::player {

[[nodiscard]] Track OpenBuiltInPiece();

} // namespace orvane::player
