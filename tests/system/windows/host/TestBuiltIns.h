// What the built-ins of the test host say, and when.
#pragma once

namespace orvane::tests {

constexpr wchar_t kTestVisualizerHost[] = L"orvane-visualizer-test.exe";

constexpr char kIdleReached[] = "Test visualizer: Idle\n";
constexpr char kStopReached[] = "Test visualizer: Stop\n";
constexpr char kArtworkReached[] = "Test visualizer: SetArtwork\n";

} // namespace orvane::tests
