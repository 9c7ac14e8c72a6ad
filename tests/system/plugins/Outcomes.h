// What comes of each test module: whether it is listed, what the console says, and what it is sent. The same
// table stands in README.md, row by row, for people.
#pragma once

#include <iosfwd>
#include <span>
#include <string>
#include <string_view>

namespace orvane::tests {

// In the texts "<path>" stands for the module's path.
struct Outcome {
    const char* mode;
    const char* console;      // while it is registered
    const char16_t* listedAs; // null: not in the list
    const char* activation;   // lines of being made current and activated; null: it can't be selected
    const char* messages;     // all that its handler gets, in the life of OutcomesTest.cpp
};

[[nodiscard]] std::span<const Outcome> Outcomes();

// `text` with `to` in the place of each `from`.
[[nodiscard]] std::string Replaced(std::string_view text, std::string_view from, std::string_view to);

// For GoogleTest, which otherwise shows a row's bytes.
void PrintTo(const Outcome& outcome, std::ostream* to);

// The row of README.md.
[[nodiscard]] std::string ReadmeRow(const Outcome& outcome);

} // namespace orvane::tests
