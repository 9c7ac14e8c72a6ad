// Where a loaded module's exported entry is.
#pragma once

#include "plugins/external/Messages.h"

namespace orvane::plugins {

// The module's OrvanePluginMain, null if it exports none. One file for each platform: on Windows `module` is
// an HMODULE, natively it points to a NativeModule that a test owns. Not null.
[[nodiscard]] PluginMain FindPluginMain(void* module);

// What a module is in a native program.
struct NativeModule {
    PluginMain entry = nullptr;
};

} // namespace orvane::plugins
