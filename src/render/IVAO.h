// A vertex buffer with all that is needed to draw it: an opaque handle, owned by the renderer.
#pragma once

namespace orvane::render {

class IVAO {
public:
    virtual ~IVAO() = default; // slot 0
};

} // namespace orvane::render
