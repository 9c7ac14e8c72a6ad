// What the two window procedures share: handlers by message, looked up in a table.
#pragma once

#include <windows.h>

#include <algorithm>
#include <cstddef>
#include <iterator>
#include <optional>

namespace orvane::shell {

struct WindowMessage {
    HWND window;
    UINT number;
    WPARAM wParam;
    LPARAM lParam;
};

// A message's result; nothing where DefWindowProcW is to give it.
using MessageResult = std::optional<LRESULT>;

struct MessageHandler {
    UINT number;
    MessageResult (*handle)(const WindowMessage& message);
};

// The message's row in a table, or null.
template <typename Row, std::size_t N>
[[nodiscard]] const Row* FindRow(const Row (&rows)[N], UINT number) {
    const auto* row =
        std::find_if(std::begin(rows), std::end(rows), [&](const Row& r) { return r.number == number; });
    return row == std::end(rows) ? nullptr : row;
}

// A server's pointer that a window procedure keeps, from its window's creation message.
template <typename Server>
[[nodiscard]] Server* CreationParameter(const WindowMessage& message) {
    return static_cast<Server*>(reinterpret_cast<const CREATESTRUCTW*>(message.lParam)->lpCreateParams);
}

} // namespace orvane::shell
