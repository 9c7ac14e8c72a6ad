// The default sound device, shared with every other program.
#pragma once

#include "player/sound/SoundDevice.h"

#include <memory>

namespace orvane::player {

// A device that isn't open yet; Open tells whether there is one. To be used in the multi-threaded apartment.
[[nodiscard]] std::unique_ptr<ISoundDevice> MakeWasapiDevice();

} // namespace orvane::player
