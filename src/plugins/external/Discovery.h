// Finds the external modules in the plug-in folders and hands each one that came up to the caller.
//
// Nothing here fails as a whole: a module or a folder that is no good is passed over, with its line, and the
// scan goes on. A folder that doesn't exist is simply empty. No module is ever unloaded.
#pragma once

#include "plugins/PlugInMemory.h"

#include <functional>
#include <string_view>

namespace orvane::plugins {

struct DiscoveryCalls;

using AdoptPlugin = std::function<void(PlugInOwner<VisualPlugIn>)>;

class Discovery {
public:
    explicit Discovery(AdoptPlugin adopt);
    Discovery(AdoptPlugin adopt, const DiscoveryCalls& calls); // `calls` outlives it

    // Scans the three plug-in folders: below the program files, beside the executable, in the user's roaming
    // data. A process whose token is fully elevated loads no external code, and none of them is opened.
    void Run() const;

    // Registers every "*.dll" of `folder`, whose name ends in a backslash, in the file system's order.
    void RegisterPluginsInFolder(std::wstring_view folder) const;

    // Loads one module. One that fails to initialize is told to deactivate, if it got as far as registering,
    // and its plug-in is freed; the module stays loaded. No error box comes up meanwhile.
    void RegisterPlugin(const wchar_t* path) const;

private:
    class KnownFolder;

    [[nodiscard]] bool IsFullyElevated() const;
    void ScanProgramFiles() const;
    void ScanBesideExecutable() const;
    void ScanRoamingData() const;

    AdoptPlugin mAdopt;
    const DiscoveryCalls& mCalls;
};

} // namespace orvane::plugins
