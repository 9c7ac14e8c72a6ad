// The names of the two window classes of the process.
#pragma once

namespace orvane::shell {

inline constexpr wchar_t kProxyClassName[] = L"ORVANE PROXY";      // the child window in which plug-ins draw
inline constexpr wchar_t kTopLevelClassName[] = L"ORVANE OOPWIND"; // the window around it

} // namespace orvane::shell
