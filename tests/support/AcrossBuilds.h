// What has to be the same in every build: under the sanitizers and optimised, on every platform.
#pragma once

#include <cinttypes>
#include <cstdint>
#include <cstdio>
#include <span>
#include <string_view>

namespace orvane::tests {

// FNV-1a over 64 bits.
class Checksum {
public:
    void Add(std::uint32_t value) { mSum = (mSum ^ value) * 1099511628211u; }

    void Add(std::span<const std::uint8_t> bytes) {
        for (const std::uint8_t byte : bytes) Add(byte);
    }

    [[nodiscard]] std::uint64_t Get() const { return mSum; }

private:
    std::uint64_t mSum = 14695981039346656037u;
};

// Says a number on the standard output, in a line of its own. tools/compare-builds runs the same test in two builds
// and finds lines that differ. `what` must tell the number from all others of the run.
inline void SayForEveryBuild(std::string_view what, std::uint64_t number) {
    std::printf("in every build: %.*s %016" PRIx64 "\n", int(what.size()), what.data(), number);
}

} // namespace orvane::tests
