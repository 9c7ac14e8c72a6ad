// A good 64-bit DLL with the right entry that nobody can load, because a DLL that it needs isn't there.
#include "orvane_plugin.h"

extern "C" __declspec(dllimport) int AbsentAnswer();

int32_t OrvanePluginMain(uint32_t, OrvaneEntryRecord*, void*) {
    return AbsentAnswer();
}
