// A path in a buffer of fixed size, put together piece by piece.
#pragma once

#include <cstddef>
#include <string_view>

namespace orvane::plugins {

class PathBuffer {
public:
    static constexpr std::size_t kCapacity = 1024; // units, the terminating zero included

    // False, with the path as it was, if `text` doesn't fit behind it.
    [[nodiscard]] bool Append(std::wstring_view text);

    [[nodiscard]] std::wstring_view View() const;

    [[nodiscard]] const wchar_t* Text() const { return mUnits; }

    // For the platform to fill: kCapacity units.
    [[nodiscard]] wchar_t* Data() { return mUnits; }

private:
    wchar_t mUnits[kCapacity] = {};
};

} // namespace orvane::plugins
