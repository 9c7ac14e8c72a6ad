// The end of a program that draws, for tests and demonstrations.
#pragma once

namespace orvane::tests {

// Writes out what is buffered and ends this process with `exitCode`, without the clean-up of the libraries that
// are loaded. Wine's graphics crash or hang there now and then (about once in a thousand ends), long behind the
// last test, and a program that has said what it has to say has nothing to lose.
[[noreturn]] void EndAtOnce(int exitCode);

} // namespace orvane::tests
