// UTF-8 to UTF-16: our own, ICU's and the C library's iconv, each from a view to a new std::u16string.
#include "platform/Text.h"

#include "SameAnswer.h"

#include <benchmark/benchmark.h>

#include <iconv.h>
#include <unicode/ustring.h>

#include <string>
#include <string_view>

namespace {

using orvane::benches::RequireSameAnswer;

struct TextRow {
    const char* name;
    const char* phrase; // repeated to fill the size
};

constexpr TextRow kTexts[] = {
    { "ascii", "Cycle through the colour maps, " },
    { "european", "N\xC3\xA4"
                  "chste Farbpalette w\xC3\xA4hlen, \xC3\xA7"
                  "a va ? " },
    { "japanese", "\xE6\xAC\xA1\xE3\x81\xAE\xE3\x82\xAB\xE3\x83\xA9\xE3\x83\xBC\xE3\x83\x9E\xE3\x83\x83"
                  "\xE3\x83\x97\xE3\x82\x92\xE9\x81\xB8\xE3\x81\xB6\xE3\x80\x82" },
    { "emoji", "\xF0\x9F\x8E\xB5\xF0\x9F\x8E\xB6\xF0\x9F\x94\x8A" },
};
constexpr std::int64_t kSizes[] = { 32, 65536 }; // a title; a long list

std::string MakeText(const char* phrase, std::int64_t size) {
    std::string text;
    while (text.size() < std::size_t(size)) text += phrase;
    return text;
}

std::u16string Own(std::string_view text) {
    return *orvane::platform::Utf16FromUtf8(text);
}

std::u16string Icu(std::string_view text) {
    std::u16string out(text.size(), u'\0');
    int32_t length = 0;
    UErrorCode error = U_ZERO_ERROR;
    u_strFromUTF8(out.data(), int32_t(out.size()), &length, text.data(), int32_t(text.size()), &error);
    out.resize(std::size_t(length));
    return out;
}

std::u16string Iconv(std::string_view text) {
    static const iconv_t sConverter = iconv_open("UTF-16LE", "UTF-8");
    std::u16string out(text.size(), u'\0');
    char* from = const_cast<char*>(text.data());
    char* to = reinterpret_cast<char*>(out.data());
    std::size_t fromLeft = text.size(), toLeft = out.size() * 2;
    iconv(sConverter, &from, &fromLeft, &to, &toLeft);
    out.resize(out.size() - toLeft / 2);
    return out;
}

using Convert = std::u16string (*)(std::string_view);

void Utf16FromUtf8(benchmark::State& state, const TextRow& row, Convert convert) {
    const std::string text = MakeText(row.phrase, state.range(0));
    RequireSameAnswer(Own(text) == convert(text), row.name);
    for ([[maybe_unused]] auto _ : state) benchmark::DoNotOptimize(convert(text));
    state.SetBytesProcessed(state.iterations() * std::int64_t(text.size()));
}

struct ConverterRow {
    const char* name;
    Convert convert;
};

constexpr ConverterRow kConverters[] = { { "own", Own }, { "icu", Icu }, { "iconv", Iconv } };

const bool kRegistered = [] {
    for (const auto& text : kTexts)
        for (const auto& converter : kConverters)
            for (const std::int64_t size : kSizes)
                benchmark::RegisterBenchmark(
                    ("Utf16FromUtf8/" + std::string(text.name) + "/" + converter.name).c_str(), Utf16FromUtf8,
                    text, converter.convert)
                    ->Arg(size);
    return true;
}();

} // namespace
