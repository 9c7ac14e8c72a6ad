#include "platform/LogLine.h"

#include <unistd.h>

namespace orvane::platform {

void WriteToStandardOutput(const char* text, std::size_t length) {
    [[maybe_unused]] const ssize_t written = ::write(STDOUT_FILENO, text, length);
}

} // namespace orvane::platform
