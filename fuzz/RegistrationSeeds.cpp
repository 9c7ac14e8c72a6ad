// Writes the seeds of fuzz_registration into the folder that is given: a good registration, and its neighbours
// on the other side of each decision.
#include "SeedFolder.h"
#include "support/Wire.h"

namespace {

using namespace orvane::tests;

struct Registration {
    const char* name;
    std::uint32_t majorVersion, minorVersion;
    std::uint16_t nameCount;
    std::uint32_t options;
    std::uint64_t handler; // any but 0 becomes the target's own
};

constexpr Registration kRegistrations[] = {
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

Bytes RecordOf(const Registration& registration) {
    constexpr std::u16string_view kName = u"Waves";
    WireBuilder record;
    record.U32(registration.majorVersion).U32(registration.minorVersion).U32(0).U16(registration.nameCount);
    for (const char16_t unit : kName) record.U16(unit);
    record.Zeros(2 * (255 - kName.size()))
        .U32(registration.options)
        .U32(1)
        .Raw("1234")
        .U64(registration.handler)
        .U64(7);
    for (std::uint32_t word = 1; word <= 7; ++word) record.U32(word);
    return record.Get();
}

} // namespace

int main(int count, char** arguments) {
    std::vector<orvane::fuzz::Seed> seeds;
    for (const auto& registration : kRegistrations)
        seeds.push_back({ registration.name, AsText(RecordOf(registration)) });
    return orvane::fuzz::WriteSeeds(count, arguments, seeds);
}
