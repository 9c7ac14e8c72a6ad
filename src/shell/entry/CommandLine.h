// The process's command line: one switch and nothing else.
#pragma once

namespace orvane::shell {

// Whether one of the arguments behind the program's name is exactly "-c", which asks for a console.
[[nodiscard]] bool WantsConsole(const wchar_t* commandLine);

} // namespace orvane::shell
