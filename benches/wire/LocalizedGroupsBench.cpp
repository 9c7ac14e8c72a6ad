// The entries of a localized group of one mebibyte: our own scan, and PCRE2's just-in-time compiled matcher
// doing the same extraction into the same list.
#include "shell/protocol/LocalizedGroups.h"

#include "SameAnswer.h"

#define PCRE2_CODE_UNIT_WIDTH 8
#include <pcre2.h>

#include <benchmark/benchmark.h>

#include <cstring>
#include <string>
#include <string_view>

namespace {

using orvane::benches::RequireSameAnswer;
using orvane::records::LocalizedString;
using orvane::records::LocalizedStrings;

constexpr std::size_t kPayloadSize = 0x100000;

struct PayloadRow {
    const char* name;
    const char* entry; // repeated to fill the payload
};

constexpr PayloadRow kPayloads[] = {
    { "texts", "<Cycle through the colour maps><C>\n" },
    { "empty", "<><>" },
};

// One group that runs to the payload's end.
std::string MakePayload(std::string_view entry) {
    std::string payload = "Q";
    payload += '\0';
    while (payload.size() + entry.size() <= kPayloadSize) payload += entry;
    return payload;
}

LocalizedStrings Own(std::string_view payload) {
    return orvane::shell::ParseLocalizedGroups(
               { reinterpret_cast<const std::uint8_t*>(payload.data()), payload.size() })
        .quellspire;
}

pcre2_code* CompilePattern() {
    const char pattern[] = "<([^>]*)>[^<]*<([^>]*)>";
    int error = 0;
    PCRE2_SIZE place = 0;
    pcre2_code* code = pcre2_compile(reinterpret_cast<PCRE2_SPTR>(pattern), PCRE2_ZERO_TERMINATED,
                                     PCRE2_DOTALL, &error, &place, nullptr);
    pcre2_jit_compile(code, PCRE2_JIT_COMPLETE);
    return code;
}

LocalizedStrings Pcre2(std::string_view payload) {
    static pcre2_code* const sPattern = CompilePattern();
    static pcre2_match_data* const sMatch = pcre2_match_data_create_from_pattern(sPattern, nullptr);
    const auto* subject = reinterpret_cast<PCRE2_SPTR>(payload.data());
    const PCRE2_SIZE* at = pcre2_get_ovector_pointer(sMatch);
    LocalizedStrings list;
    for (PCRE2_SIZE from = 2;
         pcre2_jit_match(sPattern, subject, payload.size(), from, 0, sMatch, nullptr) > 0; from = at[1]) {
        LocalizedString entry = {};
        std::memcpy(entry.key, payload.data() + at[2], at[3] - at[2]);
        std::memcpy(entry.value, payload.data() + at[4], at[5] - at[4]);
        list.push_back(entry);
    }
    return list;
}

bool Same(const LocalizedStrings& one, const LocalizedStrings& other) {
    return one.size() == other.size() &&
           std::memcmp(one.data(), other.data(), one.size() * sizeof(LocalizedString)) == 0;
}

using Extract = LocalizedStrings (*)(std::string_view);

void ParseLocalizedGroups(benchmark::State& state, const PayloadRow& row, Extract extract) {
    const std::string payload = MakePayload(row.entry);
    const LocalizedStrings list = Own(payload);
    RequireSameAnswer(list.size() == (payload.size() - 2) / std::strlen(row.entry), row.name);
    RequireSameAnswer(Same(list, extract(payload)), row.name);
    for ([[maybe_unused]] auto _ : state) benchmark::DoNotOptimize(extract(payload));
    state.SetBytesProcessed(state.iterations() * std::int64_t(payload.size()));
}

BENCHMARK_CAPTURE(ParseLocalizedGroups, texts / own, kPayloads[0], Own)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(ParseLocalizedGroups, texts / pcre2, kPayloads[0], Pcre2)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(ParseLocalizedGroups, empty / own, kPayloads[1], Own)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(ParseLocalizedGroups, empty / pcre2, kPayloads[1], Pcre2)->Unit(benchmark::kMillisecond);

} // namespace
