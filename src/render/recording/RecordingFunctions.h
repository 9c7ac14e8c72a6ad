// Shader stages and samplers that only know what they were made of.
#pragma once

#include "render/IRenderingFunction.h"

#include <cstddef>
#include <memory>
#include <string>
#include <vector>

namespace orvane::render {

// How many function objects and samplers of a renderer exist; shared, so that the last can outlive it.
using LiveCount = std::shared_ptr<int>;

// Counts itself for as long as it lives.
class LiveOne {
public:
    explicit LiveOne(LiveCount count)
        : mCount(std::move(count)) {
        ++*mCount;
    }

    LiveOne(const LiveOne&) = delete;
    LiveOne& operator=(const LiveOne&) = delete;

    ~LiveOne() { --*mCount; }

private:
    const LiveCount mCount;
};

class RecordingSamplerState final : public ISamplerState {
public:
    RecordingSamplerState(LiveCount count, std::string name, bool linear)
        : mName(std::move(name))
        , mLinear(linear)
        , mLive(std::move(count)) {}

    [[nodiscard]] const std::string& Name() const { return mName; }

    [[nodiscard]] bool IsLinear() const { return mLinear; }

private:
    const std::string mName;
    const bool mLinear;
    const LiveOne mLive;
};

class RecordingVertexFunction final : public IVertexFunction {
public:
    RecordingVertexFunction(LiveCount count, std::string name, std::vector<std::byte> code)
        : mName(std::move(name))
        , mCode(std::move(code))
        , mLive(std::move(count)) {}

    std::uint32_t GetFunctionId() override { return ~0u; }

    const void* GetFunctionCode() override { return mCode.data(); }

    std::uint64_t GetFunctionCodeSize() override { return mCode.size(); }

    [[nodiscard]] const std::string& Name() const { return mName; }

private:
    const std::string mName;
    const std::vector<std::byte> mCode;
    const LiveOne mLive;
};

class RecordingFragmentFunction final : public IFragmentFunction {
public:
    RecordingFragmentFunction(LiveCount count, std::string name)
        : mName(std::move(name))
        , mLive(std::move(count)) {}

    std::uint32_t GetFunctionId() override { return ~0u; }

    std::uint32_t AddSamplerState(ISamplerState* sampler) override {
        if (sampler == nullptr) return ~0u;
        mSamplers.emplace_back(sampler);
        return static_cast<std::uint32_t>(mSamplers.size() - 1);
    }

    [[nodiscard]] const std::string& Name() const { return mName; }

    // In the order of their slots, all made by a RecordingRenderer.
    [[nodiscard]] const std::vector<std::unique_ptr<ISamplerState>>& Samplers() const { return mSamplers; }

private:
    const std::string mName;
    std::vector<std::unique_ptr<ISamplerState>> mSamplers;
    const LiveOne mLive;
};

class RecordingGeometryFunction final : public IGeometryFunction {
public:
    RecordingGeometryFunction(LiveCount count, std::string name)
        : mName(std::move(name))
        , mLive(std::move(count)) {}

    std::uint32_t GetFunctionId() override { return ~0u; }

    [[nodiscard]] const std::string& Name() const { return mName; }

private:
    const std::string mName;
    const LiveOne mLive;
};

} // namespace orvane::render
