// A plug-in's entry in the plug-in list that the player asks for.
#pragma once

#include "plugins/VisualPlugIn.h"
#include "shell/wire/Flattener.h"

namespace orvane::plugins {

// Puts the plug-in's words, bytes and names, big-endian. The window, its own name and what a derived class
// adds stay at home. What doesn't fit is left out, with the flattener's line for each value.
void FlattenPlugIn(shell::Flattener& reply, const VisualPlugIn& plugIn);

} // namespace orvane::plugins
