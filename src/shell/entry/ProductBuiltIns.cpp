// The built-in visualizers of the product, in the order of registration. A program of its own, with a table
// of its own, links another file in this one's place.
#include "shell/server/BuiltIns.h"

namespace orvane::shell {

std::span<const BuiltIn> LinkedBuiltIns() {
    return {};
}

} // namespace orvane::shell
