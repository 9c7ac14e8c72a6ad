// The built-in visualizers of the product, in the order of registration. A program of its own, with a table
// of its own, links another file in this one's place.
#include "shell/server/BuiltIns.h"
#include "zephor/visualizer/Z_InternalVisualPlugIn.h"

namespace orvane::shell {

std::span<const BuiltIn> LinkedBuiltIns() {
    using plugins::PlugInOwner;
    using plugins::VisualPlugIn;
    static constexpr BuiltIn kBuiltIns[] = {
        { [] { return PlugInOwner<VisualPlugIn>(plugins::MakePlugIn<plugins::Z_InternalVisualPlugIn>()); } },
    };
    return kBuiltIns;
}

} // namespace orvane::shell
