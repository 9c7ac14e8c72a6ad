// Between UTF-8 and UTF-16, the same on every platform and in every locale.
#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace orvane::platform {

// UTF-16 of `text`; nothing if it holds an invalid sequence: overlong forms, surrogates, values above
// U+10FFFF, stray or missing continuation bytes. (MultiByteToWideChar with MB_ERR_INVALID_CHARS.)
[[nodiscard]] std::optional<std::u16string> Utf16FromUtf8(std::string_view text);

// UTF-8 of `text`; each unit of a broken surrogate pair becomes U+FFFD.
[[nodiscard]] std::string Utf8FromUtf16(std::u16string_view text);

} // namespace orvane::platform
