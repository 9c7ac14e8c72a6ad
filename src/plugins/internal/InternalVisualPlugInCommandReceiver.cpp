#include "plugins/internal/InternalVisualPlugInCommandReceiver.h"

#include "platform/LogLine.h"

namespace orvane::plugins {

using platform::LogLine;

void InternalVisualPlugInCommandReceiver::ResetTrackChangeTime() {
    LogLine("InternalVisualPlugInCommandReceiver::ResetTrackChangeTime\n");
}

void InternalVisualPlugInCommandReceiver::SetTrackInfoToDisplayAlways(bool) {
    LogLine("InternalVisualPlugInCommandReceiver::SetTrackInfoToDisplayAlways\n");
}

void InternalVisualPlugInCommandReceiver::HelpToggled(bool) {}

void InternalVisualPlugInCommandReceiver::ToggleConfigDisplay() {
    LogLine("InternalVisualPlugInCommandReceiver::ToggleConfigDisplay\n");
}

void InternalVisualPlugInCommandReceiver::FPSToggled() {}

} // namespace orvane::plugins
