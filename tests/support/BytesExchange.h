// A request out of a byte vector, and its reply into one: the dispatcher's world without a pipe.
#pragma once

#include "shell/dispatch/Exchange.h"
#include "support/Wire.h"

#include <string_view>

namespace orvane::tests {

class BytesExchange final : public shell::IExchange {
public:
    BytesExchange()
        : mInput(shell::kMessageCapacity)
        , mOutput(shell::kMessageCapacity) {}

    // Puts `request` at the front of the input buffer; what an earlier one left behind it stays.
    void SetRequest(std::string_view request);

    void SetRequest(const Bytes& request) { SetRequest(AsText(request)); }

    const std::uint8_t* Input() const override { return mInput.data(); }

    std::uint32_t BytesRead() const override { return mBytesRead; }

    std::uint8_t* Output() override { return mOutput.data(); }

    bool WriteReply(std::uint32_t length) override;

    // All replies so far, and what the next WriteReply shall return.
    std::vector<std::string> mReplies;
    bool mWriteResult = true;

private:
    Bytes mInput;
    Bytes mOutput;
    std::uint32_t mBytesRead = 0;
};

} // namespace orvane::tests
