#include "platform/LogLine.h"

#include <algorithm>
#include <atomic>
#include <cstdarg>
#include <cstdio>

namespace orvane::platform {

namespace {

std::atomic<LogSink> sSink = nullptr;

void LogFormatted(LineBuffer size, const char* format, va_list arguments) {
    char line[std::size_t(LineBuffer::k1024)];
    const auto capacity = std::size_t(size);
    const int wanted = std::vsnprintf(line, capacity, format, arguments);
    if (wanted > 0) LogLine(line, std::min(std::size_t(wanted), capacity - 1));
}

} // namespace

void LogLine(const char* text, std::size_t length) {
    if (const LogSink sink = sSink.load(std::memory_order_acquire))
        sink({ text, length });
    else
        WriteToStandardOutput(text, length);
}

void LogFormat(LineBuffer size, const char* format, ...) {
    va_list arguments;
    va_start(arguments, format);
    LogFormatted(size, format, arguments);
    va_end(arguments);
}

void LogFormat(const char* format, ...) {
    va_list arguments;
    va_start(arguments, format);
    LogFormatted(LineBuffer::k256, format, arguments);
    va_end(arguments);
}

LogSink SetLogSink(LogSink sink) {
    return sSink.exchange(sink, std::memory_order_acq_rel);
}

} // namespace orvane::platform
