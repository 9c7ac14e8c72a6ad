// The standard output sent elsewhere while it lives, to see what reaches it from below the test's own stdio.
#pragma once

#include <memory>
#include <string>

namespace orvane::tests {

enum class OutputTarget {
    kFile,     // a file, to be read back
    kReadOnly, // a file that refuses every write
    kMissing,  // no output at all: the process has none, or has closed it
};

// One at a time. One file for each platform.
class RedirectedOutput {
public:
    explicit RedirectedOutput(OutputTarget target);
    ~RedirectedOutput();
    RedirectedOutput(const RedirectedOutput&) = delete;
    RedirectedOutput& operator=(const RedirectedOutput&) = delete;

    // Every byte that has come so far; for kFile alone.
    [[nodiscard]] std::string Text() const;

private:
    struct State;
    std::unique_ptr<State> mState;
};

} // namespace orvane::tests
