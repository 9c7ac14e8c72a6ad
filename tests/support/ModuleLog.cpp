#include "support/ModuleLog.h"

#include <algorithm>
#include <charconv>
#include <fstream>
#include <iterator>

namespace orvane::tests {

namespace {

constexpr std::size_t kFields = 8;
constexpr std::string_view kNothing = "-";

std::vector<std::string_view> Split(std::string_view text, char separator) {
    std::vector<std::string_view> parts;
    while (true) {
        const std::size_t at = text.find(separator);
        parts.push_back(text.substr(0, at));
        if (at == std::string_view::npos) return parts;
        text.remove_prefix(at + 1);
    }
}

template <class T>
bool Number(std::string_view text, T& value, int base) {
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), value, base);
    return error == std::errc() && end == text.data() + text.size();
}

bool Status(std::string_view text, std::optional<std::int32_t>& status) {
    if (text == kNothing) return true;
    return Number(text, status.emplace(), 10);
}

bool Hex(std::string_view text, std::optional<Bytes>& bytes) {
    if (text == kNothing) return true;
    if (text.size() % 2 != 0) return false;
    bytes.emplace(text.size() / 2);
    for (std::size_t i = 0; i < bytes->size(); ++i)
        if (!Number(text.substr(2 * i, 2), (*bytes)[i], 16)) return false;
    return true;
}

bool KindOf(std::string_view text, ModuleCall::Kind& kind) {
    static constexpr std::string_view kNames[] = { "entry", "handler", "host" };
    const auto* const found = std::find(std::begin(kNames), std::end(kNames), text);
    kind = ModuleCall::Kind(found - std::begin(kNames));
    return found != std::end(kNames);
}

} // namespace

std::optional<ModuleCall> ParseModuleCall(std::string_view line) {
    const auto fields = Split(line, ' ');
    ModuleCall call;
    if (fields.size() != kFields || fields[0].empty()) return std::nullopt;
    call.module = fields[0];
    const bool whole = Number(fields[1], call.thread, 10) && KindOf(fields[2], call.kind) &&
                       Number(fields[3], call.message, 16) && Number(fields[4], call.cookie, 16) &&
                       Status(fields[5], call.status) && Hex(fields[6], call.record) &&
                       Hex(fields[7], call.data);
    if (!whole) return std::nullopt;
    return call;
}

std::vector<ModuleCall> ReadModuleLog(const std::filesystem::path& path) {
    std::ifstream file(path, std::ios::binary);
    const std::string text{ std::istreambuf_iterator<char>(file), {} };
    auto lines = Split(text, '\n');
    lines.pop_back(); // empty, or a line that is still being written
    std::vector<ModuleCall> calls;
    for (const auto line : lines)
        if (auto call = ParseModuleCall(line)) calls.push_back(*std::move(call));
    return calls;
}

std::vector<ModuleCall> CallsOf(const std::vector<ModuleCall>& calls, std::string_view module) {
    std::vector<ModuleCall> some;
    std::copy_if(calls.begin(), calls.end(), std::back_inserter(some),
                 [&](const ModuleCall& call) { return call.module == module; });
    return some;
}

std::vector<ModuleCall> CallsOf(const std::vector<ModuleCall>& calls, ModuleCall::Kind kind,
                                std::uint32_t message) {
    std::vector<ModuleCall> some;
    std::copy_if(calls.begin(), calls.end(), std::back_inserter(some),
                 [&](const ModuleCall& call) { return call.kind == kind && call.message == message; });
    return some;
}

} // namespace orvane::tests
