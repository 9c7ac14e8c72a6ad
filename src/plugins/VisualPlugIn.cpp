#include "plugins/VisualPlugIn.h"

#include "platform/LogLine.h"

namespace orvane::plugins {

using platform::LogFormat;
using platform::LogLine;

namespace {

constexpr std::uint32_t kDefaultRate = 60;

} // namespace

VisualPlugIn::VisualPlugIn(PlugInKind kind, const char16_t* path)
    : mKind(kind)
    , mRegisteredRate(kDefaultRate) {
    if (path)
        mPath.Assign(path);
    else if (kind == PlugInKind::kZephor || kind == PlugInKind::kQuellspire)
        mPath.Assign(u"Built-In");
}

bool VisualPlugIn::Initialize() {
    return true;
}

// KEEP: the lines speak of posting the key to the window, and nothing is posted anywhere. The player has the
// key already and offers it again by its own road; posted as well, it would be acted upon twice.
// Pinned by VisualPlugIn.KeyInputIsFalseWithAWindowPresentAndPostsNothing.
bool VisualPlugIn::KeyInput(std::uint32_t count, const char16_t* characters, std::uint32_t) {
    if (count == 0) return false;
    if (!characters)
        LogLine("VisualPlugIn::KeyInput cannot use a null character buffer.\n");
    else if (!mWindow)
        LogLine("VisualPlugIn::No HWND to post keyboard messages to.\n");
    return false;
}

void VisualPlugIn::ParkLocalizedStrings(const records::LocalizedStrings&) {}

bool VisualPlugIn::NameIs(const char16_t* name, std::uint16_t length) const {
    if (!name) {
        LogLine("NameIs: inName is null\n");
        return false;
    }
    if (length == 0) {
        LogLine("NameIs: inNameLength is 0\n");
        return false;
    }
    if (length != mDisplayName.count) {
        // KEEP: the line shows the count of mName, though the display name's was compared. A built-in whose
        // strings haven't come yet so shows its real title's length, not the 0 that was met. The line is part
        // of the interface. Pinned by VisualPlugIn.ALengthMismatchLineShowsTheCountOfMName.
        LogFormat("NameIs: inNameLength(%d) != mName[0] (%d)\n", int(length), int(mName.count));
        return false;
    }
    return std::u16string_view(name, length) == mDisplayName.View();
}

} // namespace orvane::plugins
