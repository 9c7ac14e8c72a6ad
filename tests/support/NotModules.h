// Things whose names end in ".dll" and which are no modules. (A DLL that lacks one that it needs is made by
// tests/modules; it can't be written by hand.)
#pragma once

#include <filesystem>

namespace orvane::tests {

void MakeEmptyFile(const std::filesystem::path& path);

// The head of a 32-bit DLL: whole enough for the loader to see the wrong machine type.
void Make32BitImage(const std::filesystem::path& path);

// Text, no image at all.
void MakeTextFile(const std::filesystem::path& path);

// A folder of that name, with an empty file in it.
void MakeFolder(const std::filesystem::path& path);

} // namespace orvane::tests
