// Catches what goes to the console while it lives, so that a test can compare lines whole.
#pragma once

#include "platform/LogLine.h"

#include <string>
#include <vector>

namespace orvane::tests {

// One at a time; lines may come from any thread.
class LogCapture {
public:
    LogCapture();
    ~LogCapture();
    LogCapture(const LogCapture&) = delete;
    LogCapture& operator=(const LogCapture&) = delete;

    // Each call of the logger, in order, and the same as the console would show it.
    [[nodiscard]] std::vector<std::string> Lines() const;
    [[nodiscard]] std::string Text() const;
    void Clear();

private:
    platform::LogSink mPrevious;
};

} // namespace orvane::tests
