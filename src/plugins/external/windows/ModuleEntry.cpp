#include "plugins/external/ModuleEntry.h"

#include <windows.h>

namespace orvane::plugins {

PluginMain FindPluginMain(void* module) {
    const FARPROC entry = GetProcAddress(static_cast<HMODULE>(module), "OrvanePluginMain");
    return reinterpret_cast<PluginMain>(reinterpret_cast<void (*)()>(entry));
}

} // namespace orvane::plugins
