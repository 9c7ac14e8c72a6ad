// Takes the pump's calls and writes them down, one text each.
#pragma once

#include "shell/dispatch/RequestOperations.h"

#include <cstdint>
#include <functional>
#include <string>
#include <vector>

namespace orvane::tests {

class RecordingOperations final : public shell::RequestOperations {
public:
    RecordingOperations()
        : RequestOperations(nullptr) {}

    bool Initialize(std::uint8_t) override { return Record("initialize"); }

    void StartVisualizerWithTrackParam() override { Record("start"); }

    void DrawVisualizerInMainThread() override {
        Record("draw");
        if (mOnDraw) mOnDraw();
    }

    void StopVisualizerInMainThread() override { Record("stop"); }

    void IdleVisualizerInMainThread() override { Record("idle"); }

    void DeactivateVisualizerOnMainThread() override { Record("deactivate"); }

    void ActivateProxyWindowInMainThread(std::uint32_t a, std::uint32_t b, std::uint32_t c,
                                         std::uint32_t d) override {
        Record("activate" + Words({ a, b, c, d }));
    }

    void ShapeVisualizerInMainThread(std::uint32_t a, std::uint32_t b, std::uint32_t c,
                                     std::uint32_t d) override {
        Record("shape" + Words({ a, b, c, d }));
    }

    void SetArtworkInMainThread(const records::ArtworkRecord* record) override;

    using Calls = std::vector<std::string>;
    Calls mCalls;
    std::function<void()> mOnDraw; // what a draw does besides

private:
    bool Record(std::string call) {
        mCalls.push_back(std::move(call));
        return true;
    }

    static std::string Words(const std::vector<std::uint32_t>& values) {
        std::string text;
        for (const auto value : values) text += ' ' + std::to_string(value);
        return text;
    }
};

} // namespace orvane::tests
