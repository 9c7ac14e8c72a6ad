#include "support/LogCapture.h"

#include <mutex>

namespace orvane::tests {

namespace {

std::mutex sMutex;
std::vector<std::string> sLines;

void Keep(std::string_view line) {
    const std::lock_guard lock(sMutex);
    sLines.emplace_back(line);
}

} // namespace

LogCapture::LogCapture()
    : mPrevious(platform::SetLogSink(&Keep)) {
    Clear();
}

LogCapture::~LogCapture() {
    platform::SetLogSink(mPrevious);
}

std::vector<std::string> LogCapture::Lines() const {
    const std::lock_guard lock(sMutex);
    return sLines;
}

std::string LogCapture::Text() const {
    std::string text;
    for (const auto& line : Lines()) text += line;
    return text;
}

void LogCapture::Clear() {
    const std::lock_guard lock(sMutex);
    sLines.clear();
}

} // namespace orvane::tests
