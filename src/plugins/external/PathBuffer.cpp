#include "plugins/external/PathBuffer.h"

#include <algorithm>

namespace orvane::plugins {

bool PathBuffer::Append(std::wstring_view text) {
    const std::size_t length = View().size();
    if (text.size() >= kCapacity - length) return false;
    std::copy(text.begin(), text.end(), mUnits + length);
    mUnits[length + text.size()] = L'\0';
    return true;
}

std::wstring_view PathBuffer::View() const {
    const wchar_t* last = mUnits + kCapacity - 1; // taken for a terminator, whatever it is
    return { mUnits, std::size_t(std::find(mUnits, last, L'\0') - mUnits) };
}

} // namespace orvane::plugins
