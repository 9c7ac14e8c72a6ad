// What the test program does when a test starts it once more.
#pragma once

namespace orvane::tests {

// Talks to the host without end, and says so when its first reply has come.
constexpr wchar_t kEndlessClientRole[] = L"--endless-client";
constexpr char kTalking[] = "talking";

// Followed by a process id: exit code 0 if that process has a console, else 1.
constexpr wchar_t kAttachConsoleRole[] = L"--attach-console";

} // namespace orvane::tests
