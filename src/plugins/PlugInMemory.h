// How plug-ins come and go, and how to tell whether one is still there.
//
// The memory of every plug-in is entered here when it is made and left when it is freed. So a module that
// calls back with a cookie can be told whether the cookie still is a plug-in, and what it is using at that
// moment can't be freed under it.
#pragma once

#include "plugins/VisualPlugIn.h"

#include <cstddef>
#include <memory>
#include <new>
#include <type_traits>
#include <utility>

namespace orvane::plugins {

// Takes the plug-in off the list of the living and releases its memory by plain free, without a destructor:
// a built-in's visualizer and a module stay as they are until the process is gone, because their windows,
// devices and threads may still be in use when the list is dropped. Memory that a callback is using at that
// moment is released when the callback ends. Null does nothing.
void FreePlugIn(VisualPlugIn* plugIn);

struct PlugInFreer {
    void operator()(VisualPlugIn* plugIn) const { FreePlugIn(plugIn); }
};

template <typename PlugIn>
using PlugInOwner = std::unique_ptr<PlugIn, PlugInFreer>;

// The plug-in whose address is `cookie`, held for as long as the result lives; null if no living plug-in is
// there. `cookie` itself is never followed. From any thread.
[[nodiscard]] std::shared_ptr<VisualPlugIn> FindLivePlugIn(const void* cookie);

namespace detail {
// Out of the compiler's sight on purpose: where it sees a constructor run on the memory, it may drop what was
// written there before.
[[nodiscard]] void* ZeroedMemory(std::size_t size);
void EnterLivePlugIn(VisualPlugIn* plugIn);
} // namespace detail

// A new plug-in, null if memory is short. Its memory is zeroed in full before the constructor runs, so that
// no byte of it, the gaps between the fields included, is ever anything that somebody else left there.
template <typename PlugIn, typename... Arguments>
[[nodiscard]] PlugInOwner<PlugIn> MakePlugIn(Arguments&&... arguments) {
    static_assert(std::is_base_of_v<VisualPlugIn, PlugIn> && alignof(PlugIn) <= alignof(std::max_align_t));
    void* memory = detail::ZeroedMemory(sizeof(PlugIn));
    if (!memory) return nullptr;
    auto* plugIn = new (memory) PlugIn(std::forward<Arguments>(arguments)...);
    detail::EnterLivePlugIn(plugIn);
    return PlugInOwner<PlugIn>(plugIn);
}

} // namespace orvane::plugins
