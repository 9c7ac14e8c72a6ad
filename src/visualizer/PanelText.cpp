#include "visualizer/PanelText.h"

#include "platform/Text.h"

#include <utility>

namespace orvane::visualizer {

namespace {

constexpr std::size_t kMostUnits = 2047;

} // namespace

std::optional<std::u16string> PanelText(std::string_view utf8) {
    auto text = platform::Utf16FromUtf8(utf8);
    if (text && text->size() > kMostUnits) return std::nullopt;
    return text;
}

void AppendPanelText(TextColumn& column, std::string_view utf8) {
    if (auto text = PanelText(utf8)) column.push_back(*std::move(text));
}

} // namespace orvane::visualizer
