// The console logger: the single way in which this program reports anything.
//
// A line is narrow text, written as it stands to the standard output with no newline added; its exact words
// are part of the program's interface. A failed write (no console, a closed handle) is dropped, so that
// logging costs next to nothing in normal use. No function here throws, allocates or locks.
#pragma once

#include <cstddef>
#include <string_view>

namespace orvane::platform {

// Writes `length` bytes of `text`.
void LogLine(const char* text, std::size_t length);

inline void LogLine(std::string_view text) {
    LogLine(text.data(), text.size());
}

// The bounded stack buffers in which a formatted line is made, in bytes with the terminating zero. A line is
// cut at its buffer's end, so at most one byte less is written. 256 is the rule; the service loop uses 512,
// the window procedures 512 and 1024.
enum class LineBuffer : std::size_t { k256 = 256, k512 = 512, k1024 = 1024 };

#if defined(__MINGW32__)
#    define ORVANE_PRINTF_LIKE(text, first) __attribute__((format(gnu_printf, text, first)))
#else
#    define ORVANE_PRINTF_LIKE(text, first) __attribute__((format(printf, text, first)))
#endif

// Formats as printf does into a buffer of that size and writes the result. Wide texts are passed as %s of
// their Utf8FromUtf16 (Text.h): what a line looks like never depends on the locale.
ORVANE_PRINTF_LIKE(2, 3) void LogFormat(LineBuffer size, const char* format, ...);
ORVANE_PRINTF_LIKE(1, 2) void LogFormat(const char* format, ...);

// Where lines go. A test sets a sink of its own; null restores the standard output. Returns the old sink.
using LogSink = void (*)(std::string_view line);
LogSink SetLogSink(LogSink sink);

// The platform's own end: bytes to the standard output, failure dropped. One file for each platform.
void WriteToStandardOutput(const char* text, std::size_t length);

} // namespace orvane::platform
