#include "system/plugins/Outcomes.h"

#include "platform/Text.h"

#include <algorithm>
#include <array>
#include <ostream>

namespace orvane::tests {

namespace {

#define REGISTERING "Registering \"<path>\"\n"
#define REFUSED "Initialize failed when registering \"<path>\"\n"
#define NO_HANDLER "Cannot deactivate plugin. mVisualPluginProcPtr == null\n"
#define DEACTIVATED "Plugin deactivated.\n"
#define MAJOR_9 "Major version (9) expected to be kOrvanePluginMajorMessageVersion(10)\n"
#define NULL_RECORD "Plugin message handler passed a null inMessageInfo. Returning paramErr\n"
#define HEARD                                                                                                \
    "InitializeRequestForTrackCoverArt received from plugin.\n"                                              \
    "kPlayerSetFullScreenOptionsMessage received from plugin.\n"                                             \
    "kPlayerSetFullScreenMessage received from plugin.\n"                                                    \
    "unhandled message received from plugin.\n"
#define SELECTED "SetCurrentPlugin::Setting null plugin to valid plugin\n"
#define FAILED "ActivateInWindow: kVisualPluginActivateMessage failed. "

// The life: activation, a track, a pulse, an image, idling, drawing, the end of playback, deactivation.
#define LIFE "init Vact Vply Vpls Vdrw Vart Vdrw vstp Vdct"
#define LIFE_WITH_IDLE "init Vact Vply Vpls Vdrw Vart null Vdrw vstp Vdct"
#define NEVER_ENTERED ""

// As long as a name can be.
constexpr auto kFullName = [] {
    std::array<char16_t, 255 + 1> name = {};
    std::fill_n(name.begin(), 255, u'n');
    return name;
}();
constexpr char16_t kLoneSurrogates[] = { 0xD800, u's', 0xDC00, 0 };

constexpr Outcome kOutcomes[] = {
    { "recorder", REGISTERING, u"recorder", SELECTED, LIFE_WITH_IDLE },
    { "counter", REGISTERING, u"counter", SELECTED, "Vdct" }, // all the others it only counts
    // The entry.
    { "no-entry",
      REGISTERING "Could not find proc address for OrvanePluginMain in this plugin.\n" REFUSED NO_HANDLER,
      nullptr, nullptr, NEVER_ENTERED },
    { "entry-fails", REGISTERING REFUSED NO_HANDLER, nullptr, nullptr, "" },
    { "entry-fails-registered", REGISTERING REFUSED DEACTIVATED, nullptr, nullptr, "init Vdct" },
    { "never-registers", REGISTERING, u"", nullptr, "" },
    { "registers-twice", REGISTERING, u"registers-twice, again", SELECTED, "init " LIFE },
    { "null-record", REGISTERING NULL_RECORD REFUSED NO_HANDLER, nullptr, nullptr, "" },
    { "null-record-swallowed", REGISTERING NULL_RECORD, u"", nullptr, "" },
    { "loads-slowly", REGISTERING, u"loads-slowly", SELECTED, LIFE },
    // The registration.
    { "major-9", REGISTERING MAJOR_9 REFUSED NO_HANDLER, nullptr, nullptr, "" },
    { "major-9-swallowed", REGISTERING MAJOR_9, u"", nullptr, "" },
    { "minor-8", REGISTERING "Minor version (8) expected to be kOrvanePluginMinorMessageVersion(9)\n",
      u"minor-8", SELECTED, LIFE },
    { "name-300", REGISTERING, kFullName.data(), SELECTED, LIFE },
    { "name-0", REGISTERING, u"", nullptr, "init" },
    { "name-surrogates", REGISTERING, kLoneSurrogates, SELECTED, LIFE },
    { "null-handler", REGISTERING REFUSED NO_HANDLER, nullptr, nullptr, "" },
    { "idle-on", REGISTERING, u"idle-on", SELECTED, LIFE_WITH_IDLE },
    { "idle-off", REGISTERING, u"idle-off", SELECTED, LIFE },
    // The handler.
    { "init-fails", REGISTERING REFUSED DEACTIVATED, nullptr, nullptr, "init Vdct" },
    { "init-fails-swallowed", REGISTERING, u"init-fails-swallowed", SELECTED, LIFE },
    { "activate-unimplemented", REGISTERING, u"activate-unimplemented",
      SELECTED FAILED "Plugin returned \"unimpErr|\"\n", LIFE },
    { "activate-fails", REGISTERING, u"activate-fails", SELECTED FAILED "Error status = -103\n", LIFE },
    // What it does besides. On two threads, one behind the other.
    { "calls-host", REGISTERING, u"calls-host", SELECTED HEARD HEARD, LIFE },
    { "calls-after-failure", REGISTERING MAJOR_9 HEARD HEARD REFUSED NO_HANDLER, nullptr, nullptr, "" },
    { "changes-state", REGISTERING, u"changes-state", SELECTED, LIFE },
    { "opens-windows", REGISTERING, u"opens-windows", SELECTED, LIFE },
    // Never loaded.
    { "missing-dependency", "LoadLibraryExW failed when registering \"<path>\"\n", nullptr, nullptr,
      NEVER_ENTERED },
};

std::string Cell(const std::string& text) {
    const std::string lines = Replaced(Replaced(text, "\n", "<br>"), "|", "\\|");
    return Replaced(lines.substr(0, lines.rfind("<br>")), "<path>", "PATH");
}

std::string NameCell(const char16_t* name) {
    if (!name) return "no";
    const std::u16string_view units = name;
    if (units.empty()) return "without a name";
    if (units == kFullName.data()) return "255 times \"n\"";
    const std::string shown = platform::Utf8FromUtf16(units);
    return std::string("\"").append(shown).append("\"");
}

} // namespace

std::string Replaced(std::string_view text, std::string_view from, std::string_view to) {
    std::string result;
    for (auto at = text.find(from); at != std::string_view::npos; at = text.find(from)) {
        result.append(text.substr(0, at)).append(to);
        text.remove_prefix(at + from.size());
    }
    return result.append(text);
}

std::span<const Outcome> Outcomes() {
    return kOutcomes;
}

void PrintTo(const Outcome& outcome, std::ostream* to) {
    *to << outcome.mode;
}

std::string ReadmeRow(const Outcome& outcome) {
    const std::string cells[] = { std::string("`") + outcome.mode + "`", NameCell(outcome.listedAs),
                                  Cell(outcome.console),
                                  outcome.activation ? Cell(outcome.activation) : "can't be selected",
                                  *outcome.messages ? outcome.messages : "none" };
    std::string row = "|";
    for (const auto& cell : cells) row.append(" ").append(cell).append(" |");
    return row;
}

} // namespace orvane::tests
