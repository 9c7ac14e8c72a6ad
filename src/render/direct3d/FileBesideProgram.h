// Reads a file that lies in the program's own folder.
#pragma once

#include <cstddef>
#include <memory>

namespace orvane::render {

struct FileContents {
    std::unique_ptr<std::byte[]> bytes; // null if there is no such file, or nothing in it
    std::size_t size = 0;
};

// `fileName` is taken byte by byte to wide characters, into a buffer of 255 of them.
[[nodiscard]] FileContents ReadFileBesideProgram(const char* fileName);

} // namespace orvane::render
