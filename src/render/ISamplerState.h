// How a fragment function samples its textures: an opaque handle, owned by the function that it is added to.
#pragma once

namespace orvane::render {

class ISamplerState {
public:
    virtual ~ISamplerState() = default; // slot 0
};

} // namespace orvane::render
