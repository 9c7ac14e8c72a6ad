// A wrong result must never get a time.
#pragma once

#include <cstdio>
#include <cstdlib>

namespace orvane::benches {

// Ends the program if `same` is false.
inline void RequireSameAnswer(bool same, const char* what) {
    if (same) return;
    std::fprintf(stderr, "%s: the answers differ\n", what);
    std::exit(EXIT_FAILURE);
}

} // namespace orvane::benches
