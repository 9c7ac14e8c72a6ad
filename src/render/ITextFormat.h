// How a text is set: family, size, alignment and what becomes of text that is too long.
#pragma once

#include <cstdint>

namespace orvane::render {

enum TextAlignment : std::uint32_t {
    kTextAlignmentLeading = 0,
    kTextAlignmentTrailing = 1,
    kTextAlignmentCentred = 2,
    kTextAlignmentJustified = 3,
};

// Owned by whoever made it; no canvas keeps it beyond a call.
class ITextFormat {
public:
    virtual ~ITextFormat() = default;

    // One of TextAlignment; any other value counts as leading. False if the platform refuses.
    virtual bool SetTextAlignment(std::uint32_t alignment) = 0;

    // The platform's own object (an IDWriteTextFormat on Windows), null if there is none. Still owned here.
    virtual void* GetNativeFormat() = 0;

    // Text that doesn't fit is cut between words and ends in an ellipsis sign. False if the platform refuses.
    virtual bool SetEllipsisTrimming() = 0;
};

} // namespace orvane::render
