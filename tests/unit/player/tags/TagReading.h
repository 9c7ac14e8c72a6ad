// Reads the tags of a file that a test made, from a heap block of exactly its size.
#pragma once

#include "player/tags/Tags.h"
#include "support/TagFiles.h"

#include <string_view>

namespace orvane::player {

// A file of no name, so that a title is the file's own.
[[nodiscard]] inline Tags TagsOf(std::string_view file) {
    const tests::Bytes bytes = tests::AsBytes(file);
    BytesSource source(bytes);
    return ReadTags(source, {});
}

// Every beginning of `file` is read without harm, and has no text or cover that the whole doesn't have or that
// isn't the beginning of one.
template <typename Check>
void ForEachBeginning(std::string_view file, Check check) {
    for (std::size_t length = 0; length < file.size(); ++length)
        check(length, TagsOf(file.substr(0, length)));
}

} // namespace orvane::player
