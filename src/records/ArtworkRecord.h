// Artwork on its way from the service thread to the main thread.
#pragma once

#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <memory>

namespace orvane::records {

// A heap record, made and freed with the C runtime's allocator; so is the copy of the image that it owns.
struct ArtworkRecord {
    std::uint8_t* data;   // the encoded image, or null
    std::size_t size;     // in bytes; 0 with a null `data`
    std::uint32_t format; // 0 no artwork, 13 or 14 by the request's tag
};

inline void FreeArtworkRecord(ArtworkRecord* record) {
    if (!record) return;
    std::free(record->data);
    std::free(record);
}

struct ArtworkFreer {
    void operator()(ArtworkRecord* record) const { FreeArtworkRecord(record); }
};

using ArtworkOwner = std::unique_ptr<ArtworkRecord, ArtworkFreer>;

// A record with a copy of `size` bytes of `image`; without an image if `format` or `size` is 0. Null if
// memory is short.
[[nodiscard]] inline ArtworkOwner MakeArtworkRecord(const std::uint8_t* image, std::size_t size,
                                                    std::uint32_t format) {
    ArtworkOwner record(static_cast<ArtworkRecord*>(std::calloc(1, sizeof(ArtworkRecord))));
    if (!record) return nullptr;
    record->format = format;
    if (format == 0 || size == 0) return record;
    record->data = static_cast<std::uint8_t*>(std::malloc(size));
    if (!record->data) return nullptr;
    std::memcpy(record->data, image, size);
    record->size = size;
    return record;
}

} // namespace orvane::records
