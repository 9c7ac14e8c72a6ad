#include "shell/protocol/LocalizedGroups.h"

#include <algorithm>

namespace orvane::shell {

namespace {

using records::LocalizedString;
using records::LocalizedStrings;
using Bytes = std::span<const std::uint8_t>;

// Takes everything up to and including `mark` off the front of `bytes` and hands back what stood before it;
// nothing, and `bytes` used up, if the mark never comes.
bool TakeThrough(Bytes& bytes, char mark, Bytes& before) {
    const auto at = std::find(bytes.begin(), bytes.end(), std::uint8_t(mark));
    const auto length = std::size_t(at - bytes.begin());
    before = bytes.first(length);
    if (at == bytes.end()) {
        bytes = {};
        return false;
    }
    bytes = bytes.subspan(length + 1);
    return true;
}

// KEEP: the write index wraps inside the field, so over-long text overwrites the field's beginning and never
// overflows. It stays because a clear cut would show other letters of a title that is too long.
// Pinned by LocalizedGroups.AKeyOf300BytesKeepsItsLast44InFront.
template <std::size_t N>
void StoreWrapped(Bytes text, char (&field)[N]) {
    for (std::size_t i = 0; i < text.size(); ++i) field[i % N] = char(text[i]);
}

template <std::size_t N>
bool TakeBracketed(Bytes& bytes, char (&field)[N]) {
    Bytes passedOver;
    Bytes text;
    if (!TakeThrough(bytes, '<', passedOver) || !TakeThrough(bytes, '>', text)) return false;
    StoreWrapped(text, field);
    return true;
}

void TakeGroup(Bytes& bytes, std::size_t count, LocalizedStrings& list) {
    for (;;) {
        LocalizedString entry = {};
        if (!TakeBracketed(bytes, entry.key) || !TakeBracketed(bytes, entry.value)) return;
        list.push_back(entry);
        if (list.size() == count) return;
    }
}

} // namespace

LocalizedGroups ParseLocalizedGroups(Bytes payload) {
    LocalizedGroups groups;
    while (!payload.empty()) {
        const std::uint8_t letter = payload.front();
        payload = payload.subspan(1);
        if (letter != 'Q' && letter != 'Z') continue;
        if (payload.empty()) break;
        const std::size_t count = payload.front();
        payload = payload.subspan(1);
        TakeGroup(payload, count, letter == 'Q' ? groups.quellspire : groups.zephor);
    }
    return groups;
}

} // namespace orvane::shell
