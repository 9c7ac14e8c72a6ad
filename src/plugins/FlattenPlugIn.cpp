#include "plugins/FlattenPlugIn.h"

namespace orvane::plugins {

void FlattenPlugIn(shell::Flattener& reply, const VisualPlugIn& plugIn) {
    for (const std::uint32_t word : { plugIn.RegisteredWord0(), plugIn.Options(), plugIn.RegisteredRate(),
                                      plugIn.RegisteredWord1(), plugIn.RegisteredWord2() })
        PutUInt32(reply, word);
    for (const std::uint32_t limit : plugIn.RegisteredLimits()) PutUInt32(reply, limit);
    PutUInt32(reply, std::uint32_t(plugIn.Kind()));
    for (const std::uint8_t byte : plugIn.RegisteredBytes()) PutUInt8(reply, byte);
    PutString(reply, plugIn.DisplayName(), records::StringBlock::kCapacity);
    PutString(reply, plugIn.Path(), records::PathBlock::kCapacity);
}

} // namespace orvane::plugins
