#include "unit/shell/entry/RecordingOperations.h"

#include "records/ArtworkRecord.h"

namespace orvane::tests {

void RecordingOperations::SetArtworkInMainThread(const records::ArtworkRecord* record) {
    if (!record) {
        Record("artwork none");
        return;
    }
    const auto* image = reinterpret_cast<const char*>(record->data);
    Record("artwork " + std::to_string(record->format) + " '" +
           (image ? std::string(image, record->size) : "no image") + "'");
}

} // namespace orvane::tests
