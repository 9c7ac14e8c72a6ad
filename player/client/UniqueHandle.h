// A system handle that is closed by its owner.
#pragma once

#include <windows.h>

#include <memory>

namespace orvane::player {

struct HandleCloser {
    void operator()(HANDLE handle) const noexcept { CloseHandle(handle); }
};

using UniqueHandle = std::unique_ptr<void, HandleCloser>;

// The system spells "no handle" in two ways; both become an empty owner.
[[nodiscard]] inline UniqueHandle Adopt(HANDLE handle) noexcept {
    return UniqueHandle(handle == INVALID_HANDLE_VALUE ? nullptr : handle);
}

} // namespace orvane::player
