// The process's command line: one switch and nothing else.
#pragma once

namespace orvane::shell {

// Whether one of the arguments is exactly "-c", which asks for a console. The first counts as well: who starts
// the process with a program apart from its command line needn't repeat the program's name.
[[nodiscard]] bool WantsConsole(const wchar_t* commandLine);

} // namespace orvane::shell
