#include "support/NotModules.h"

#include "support/Wire.h"

#include <cstdint>
#include <fstream>
#include <string_view>

namespace orvane::tests {

namespace {

void Write(const std::filesystem::path& path, const Bytes& bytes) {
    std::ofstream file(path, std::ios::binary);
    file.write(reinterpret_cast<const char*>(bytes.data()), std::streamsize(bytes.size()));
}

constexpr std::size_t kDosHeaderSize = 64;      // its last word is the place of the image header
constexpr std::uint16_t kMachineI386 = 0x14C;   //
constexpr std::uint16_t kMagic32 = 0x10B;       // of the optional header
constexpr std::uint16_t kOptionalSize32 = 224;  //
constexpr std::uint16_t kDllCharacter = 0x2102; // executable, 32-bit, DLL
constexpr std::size_t kFileAlignment = 0x200;

} // namespace

void MakeEmptyFile(const std::filesystem::path& path) {
    Write(path, {});
}

void MakeTextFile(const std::filesystem::path& path) {
    static constexpr std::string_view kText = "This is a visualizer, isn't it?\r\n";
    Write(path, Bytes(kText.begin(), kText.end()));
}

void Make32BitImage(const std::filesystem::path& path) {
    WireBuilder image;
    image.Raw("MZ").Zeros(kDosHeaderSize - 6).U32(kDosHeaderSize);
    image.Raw("PE").U16(0);
    image.U16(kMachineI386).U16(0).U32(0).U32(0).U32(0).U16(kOptionalSize32).U16(kDllCharacter);
    image.U16(kMagic32).Zeros(kOptionalSize32 - 2);
    image.Zeros(kFileAlignment - image.Get().size());
    Write(path, image.Get());
}

void MakeFolder(const std::filesystem::path& path) {
    std::filesystem::create_directories(path);
    MakeEmptyFile(path / "inside.dll");
}

} // namespace orvane::tests
