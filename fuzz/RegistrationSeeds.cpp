// Writes the seeds of fuzz_registration into the folder that is given: a good registration, and its neighbours
// on the other side of each decision.
#include "support/Wire.h"

#include <cstdio>
#include <filesystem>
#include <fstream>

namespace {

using namespace orvane::tests;

struct Seed {
    const char* name;
    std::uint32_t majorVersion, minorVersion;
    std::uint16_t nameCount;
    std::uint32_t options;
    std::uint64_t handler; // any but 0 becomes the target's own
};

constexpr Seed kSeeds[] = {
    { "good", 10, 9, 5, 8, 1 },
    { "no-idle", 10, 9, 5, 0, 1 },
    { "no-name", 10, 9, 0, 8, 1 },
    { "name-of-255", 10, 9, 255, 8, 1 },
    { "name-of-300", 10, 9, 300, 8, 1 },
    { "name-of-65535", 10, 9, 65535, 8, 1 },
    { "minor-version-8", 10, 8, 5, 8, 1 },
    { "major-version-9", 9, 9, 5, 8, 1 },
    { "null-handler", 10, 9, 5, 8, 0 },
};

Bytes RecordOf(const Seed& seed) {
    constexpr std::u16string_view kName = u"Waves";
    WireBuilder record;
    record.U32(seed.majorVersion).U32(seed.minorVersion).U32(0).U16(seed.nameCount);
    for (const char16_t unit : kName) record.U16(unit);
    record.Zeros(2 * (255 - kName.size())).U32(seed.options).U32(1).Raw("1234").U64(seed.handler).U64(7);
    for (std::uint32_t word = 1; word <= 7; ++word) record.U32(word);
    return record.Get();
}

} // namespace

int main(int count, char** arguments) {
    if (count != 2) {
        std::fputs("usage: fuzz_registration_seeds FOLDER\n", stderr);
        return 2;
    }
    const std::filesystem::path folder = arguments[1];
    std::filesystem::create_directories(folder);
    for (const auto& seed : kSeeds) {
        std::ofstream file(folder / seed.name, std::ios::binary);
        const std::string bytes = AsText(RecordOf(seed));
        file.write(bytes.data(), std::streamsize(bytes.size()));
    }
    return 0;
}
