// A host without built-ins: what it lists and says is about modules alone.
#include "shell/server/BuiltIns.h"

namespace orvane::shell {

std::span<const BuiltIn> LinkedBuiltIns() {
    return {};
}

} // namespace orvane::shell
