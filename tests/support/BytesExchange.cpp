#include "support/BytesExchange.h"

#include <algorithm>

namespace orvane::tests {

void BytesExchange::SetRequest(std::string_view request) {
    std::copy(request.begin(), request.end(), mInput.begin());
    mBytesRead = std::uint32_t(request.size());
}

bool BytesExchange::WriteReply(std::uint32_t length) {
    mReplies.emplace_back(mOutput.begin(), mOutput.begin() + length);
    return mWriteResult;
}

} // namespace orvane::tests
