// One shader stage, made from compiled code by IRenderer and owned by the pipeline that it is attached to.
#pragma once

#include "render/ISamplerState.h"

#include <cstdint>

namespace orvane::render {

class IRenderingFunction {
public:
    // Slot 0. An id that no realisation gives: always kNoValue.
    virtual std::uint32_t GetFunctionId() = 0;

    virtual ~IRenderingFunction() = default; // slot 1
};

class IVertexFunction : public IRenderingFunction {
public:
    // Slots 2 and 3. The function's own copy of its code, and the size in bytes: vertex layouts are checked
    // against it.
    virtual const void* GetFunctionCode() = 0;
    virtual std::uint64_t GetFunctionCodeSize() = 0;
};

class IFragmentFunction : public IRenderingFunction {
public:
    // Slot 2. Takes ownership of `sampler` and returns its index, which is the sampler slot that it is bound
    // to at each draw, from 0; kNoValue for null.
    virtual std::uint32_t AddSamplerState(ISamplerState* sampler) = 0;
};

class IGeometryFunction : public IRenderingFunction {};

} // namespace orvane::render
