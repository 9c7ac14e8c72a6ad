#include "support/BytesExchange.h"

#include <cstring>

namespace orvane::tests {

void BytesExchange::SetRequest(std::string_view request) {
    if (!request.empty()) std::memcpy(mInput.data(), request.data(), request.size());
    mBytesRead = std::uint32_t(request.size());
}

bool BytesExchange::WriteReply(std::uint32_t length) {
    mReplies.emplace_back(mOutput.begin(), mOutput.begin() + length);
    return mWriteResult;
}

} // namespace orvane::tests
