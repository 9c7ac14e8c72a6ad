#include "player/tags/ByteSource.h"

#include <algorithm>

namespace orvane::player {

bool BytesSource::Read(std::uint64_t at, std::span<std::uint8_t> out) {
    if (at > mBytes.size() || out.size() > mBytes.size() - at) return false;
    std::ranges::copy(mBytes.subspan(std::size_t(at), out.size()), out.begin());
    return true;
}

bool BoundedSource::Read(std::uint64_t at, std::span<std::uint8_t> out) {
    if (mReadsLeft == 0 || out.size() > mBytesLeft) {
        mReadsLeft = 0;
        return false;
    }
    --mReadsLeft;
    mBytesLeft -= out.size();
    return mSource.Read(at, out);
}

FileSource::FileSource(const std::filesystem::path& path)
    : mFile(path, std::ios::binary) {
    std::error_code error;
    if (!std::filesystem::is_regular_file(path, error)) return; // a folder opens, and has no end
    if (mFile.seekg(0, std::ios::end)) mSize = std::uint64_t(std::max<std::streamoff>(mFile.tellg(), 0));
}

bool FileSource::Read(std::uint64_t at, std::span<std::uint8_t> out) {
    if (at > mSize || out.size() > mSize - at) return false;
    mFile.clear();
    mFile.seekg(std::streamoff(at));
    return bool(mFile.read(reinterpret_cast<char*>(out.data()), std::streamsize(out.size())));
}

} // namespace orvane::player
