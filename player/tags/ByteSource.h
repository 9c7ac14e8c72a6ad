// Bytes that are read from any place: a file without reading it whole, or memory.
#pragma once

#include <cstdint>
#include <filesystem>
#include <fstream>
#include <span>

namespace orvane::player {

class IByteSource {
public:
    virtual ~IByteSource() = default;

    [[nodiscard]] virtual std::uint64_t Size() const = 0;

    // Fills `out` with the bytes from `at` on. False if they aren't all there or can't be read; `out` may then
    // hold anything.
    [[nodiscard]] virtual bool Read(std::uint64_t at, std::span<std::uint8_t> out) = 0;
};

// Looks at bytes that somebody else keeps.
class BytesSource final : public IByteSource {
public:
    explicit BytesSource(std::span<const std::uint8_t> bytes)
        : mBytes(bytes) {}

    [[nodiscard]] std::uint64_t Size() const override { return mBytes.size(); }

    [[nodiscard]] bool Read(std::uint64_t at, std::span<std::uint8_t> out) override;

private:
    const std::span<const std::uint8_t> mBytes;
};

// Another source for a number of reads and of bytes, and none any more after that: so that no file, whatever it
// claims, keeps its reader busy for long.
class BoundedSource final : public IByteSource {
public:
    BoundedSource(IByteSource& source, std::uint64_t mostReads, std::uint64_t mostBytes)
        : mSource(source)
        , mReadsLeft(mostReads)
        , mBytesLeft(mostBytes) {}

    [[nodiscard]] std::uint64_t Size() const override { return mSource.Size(); }

    [[nodiscard]] bool Read(std::uint64_t at, std::span<std::uint8_t> out) override;

private:
    IByteSource& mSource;
    std::uint64_t mReadsLeft;
    std::uint64_t mBytesLeft;
};

// A file that can't be opened has no bytes.
class FileSource final : public IByteSource {
public:
    explicit FileSource(const std::filesystem::path& path);

    [[nodiscard]] std::uint64_t Size() const override { return mSize; }

    [[nodiscard]] bool Read(std::uint64_t at, std::span<std::uint8_t> out) override;

private:
    std::ifstream mFile;
    std::uint64_t mSize = 0; // as it was when the file was opened
};

} // namespace orvane::player
