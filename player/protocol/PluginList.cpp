#include "player/protocol/PluginList.h"

#include <optional>
#include <utility>

namespace orvane::player {

namespace {

// Big-endian values off the front of a reply. Once a value is cut off, everything after it fails too.
class ReplyReader {
public:
    explicit ReplyReader(std::span<const std::uint8_t> reply)
        : mRest(reply) {}

    template <typename T>
    void Take(T& value) {
        if (mRest.size() < sizeof(T)) {
            mFailed = true;
            return;
        }
        value = 0;
        for (const std::uint8_t byte : mRest.first(sizeof(T))) value = T(value << 8 | byte);
        mRest = mRest.subspan(sizeof(T));
    }

    template <typename T, std::size_t N>
    void Take(std::array<T, N>& values) {
        for (T& value : values) Take(value);
    }

    void Take(std::u16string& text, std::size_t limit) {
        std::uint16_t count = 0;
        Take(count);
        mFailed = mFailed || count > limit || mRest.size() / sizeof(char16_t) < count;
        if (mFailed) return;
        text.resize(count);
        for (char16_t& unit : text) Take(unit);
    }

    [[nodiscard]] bool Failed() const { return mFailed; }

    [[nodiscard]] bool AtEnd() const { return mRest.empty(); }

private:
    std::span<const std::uint8_t> mRest;
    bool mFailed = false;
};

std::optional<PluginEntry> TakeEntry(ReplyReader& reader) {
    PluginEntry entry;
    for (auto* word : { &entry.word0, &entry.options, &entry.rate, &entry.word1, &entry.word2 })
        reader.Take(*word);
    reader.Take(entry.limits);
    reader.Take(entry.kind);
    reader.Take(entry.bytes);
    reader.Take(entry.displayName, kDisplayNameLimit);
    reader.Take(entry.path, kPathLimit);
    if (reader.Failed()) return std::nullopt;
    return entry;
}

} // namespace

PluginList DecodePluginList(std::span<const std::uint8_t> reply) {
    PluginList list;
    ReplyReader reader(reply);
    reader.Take(list.claimed);
    while (!reader.Failed() && list.plugins.size() < list.claimed)
        if (auto entry = TakeEntry(reader)) list.plugins.push_back(std::move(*entry));
    list.whole = !reader.Failed() && reader.AtEnd();
    return list;
}

} // namespace orvane::player
