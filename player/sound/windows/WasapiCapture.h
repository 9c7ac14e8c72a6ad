// Sound that the machine plays or records, as it happens.
#pragma once

#include "player/sound/SoundCapture.h"

#include <memory>

namespace orvane::player {

enum class CaptureFrom {
    kOutput, // whatever is played on the default device, by every program together
    kInput,  // the default recording device
};

// Begins to record. Null if there is no such device. To be used in the multi-threaded apartment.
[[nodiscard]] std::unique_ptr<ISoundCapture> OpenWasapiCapture(CaptureFrom from);

} // namespace orvane::player
