#include "plugins/external/ModuleEntry.h"

namespace orvane::plugins {

PluginMain FindPluginMain(void* module) {
    return static_cast<const NativeModule*>(module)->entry;
}

} // namespace orvane::plugins
