#include "support/RedirectedOutput.h"

#include <fcntl.h>
#include <unistd.h>

#include <cstdio>

namespace orvane::tests {

struct RedirectedOutput::State {
    int original = -1;
    std::FILE* file = nullptr; // the system's own nameless file, for kFile
};

RedirectedOutput::RedirectedOutput(OutputTarget target)
    : mState(std::make_unique<State>()) {
    std::fflush(stdout);
    mState->original = dup(STDOUT_FILENO);
    if (target == OutputTarget::kFile) {
        mState->file = std::tmpfile();
        dup2(fileno(mState->file), STDOUT_FILENO);
    } else if (target == OutputTarget::kReadOnly) {
        const int readOnly = open("/dev/null", O_RDONLY);
        dup2(readOnly, STDOUT_FILENO);
        close(readOnly);
    } else {
        close(STDOUT_FILENO);
    }
}

RedirectedOutput::~RedirectedOutput() {
    dup2(mState->original, STDOUT_FILENO);
    close(mState->original);
    if (mState->file) std::fclose(mState->file);
}

std::string RedirectedOutput::Text() const {
    std::string text;
    char bytes[4096];
    for (;;) {
        // Read at a place of our own: the descriptor's place is where the next line goes.
        const ssize_t count = pread(fileno(mState->file), bytes, sizeof(bytes), off_t(text.size()));
        if (count <= 0) return text;
        text.append(bytes, std::size_t(count));
    }
}

} // namespace orvane::tests
