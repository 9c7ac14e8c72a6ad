// Every member's field is the same, bit for bit, by its slots, in every width and on any number of threads.
#include "zephor/deltafields/ComputeDeltaField.h"

#include "platform/Random.h"
#include "support/AcrossBuilds.h"
#include "unit/zephor/deltafields/Fields.h"
#include "unit/zephor/deltafields/NamedMember.h"

#include <gtest/gtest.h>

#include <cctype>
#include <memory>
#include <string>
#include <utility>
#include <vector>

namespace orvane::zephor {
namespace {

using tests::TestField;
using Bytes = std::vector<unsigned char>;

constexpr std::uint32_t kParameterSeed = 11, kNoiseSeed = 77;

// Hands on the two slots alone, so that a field is made of one call after the other.
class BySlots final : public DeltafieldFunctor {
public:
    explicit BySlots(const DeltafieldFunctor& member)
        : DeltafieldFunctor(member.name, member.flags)
        , mMember(member) {}

    std::pair<float, float> MapPolar(float r, float theta) const override {
        return mMember.MapPolar(r, theta);
    }

    std::pair<double, double> MapCartesian(float x, float y) const override {
        return mMember.MapCartesian(x, y);
    }

private:
    const DeltafieldFunctor& mMember;
};

struct Size {
    int width, height;
};

// The rest of a row that fills no lanes has every length here.
constexpr Size kSizes[] = { { 1, 3 }, { 2, 2 },  { 3, 5 },   { 4, 4 },   { 7, 3 },
                            { 8, 5 }, { 13, 7 }, { 38, 21 }, { 121, 33 } };

// What is drawn next after the field counts too.
struct Outcome {
    Bytes cells;
    int nextDraw;

    bool operator==(const Outcome&) const = default;
};

template <class Compute>
Outcome OutcomeOf(Size size, int slices, const Compute& compute) {
    TestField field(size.width, size.height);
    field->SetSliceCount(slices);
    platform::SeedRand(kNoiseSeed);
    compute(field.Get());
    return { field.Bytes(), platform::Rand() };
}

class SameCells : public testing::TestWithParam<DeltaFactory> {};

TEST_P(SameCells, BySlotsInEveryWidthAndOnAnyNumberOfThreads) {
    platform::SeedRand(kParameterSeed);
    const std::unique_ptr<DeltafieldFunctor> functor = GetParam()();
    tests::Checksum sum;
    for (const Size size : kSizes) {
        const Outcome expected =
            OutcomeOf(size, 2, [&](auto& field) { ComputeDeltaField(field, BySlots(*functor)); });
        const std::string where = functor->name + ", " + std::to_string(size.width) + " columns";
        EXPECT_TRUE(OutcomeOf(size, 2, [&](auto& field) { ComputeDeltaField(field, *functor); }) == expected)
            << where;
        for (const single::LaneForm form : single::RunnableLaneForms()) {
            for (const int threadCount : { 1, 2, 3 }) {
                SliceThreads threads(threadCount);
                const auto compute = [&](auto& field) { ComputeDeltaField(field, *functor, threads, form); };
                EXPECT_TRUE(OutcomeOf(size, 8, compute) == expected)
                    << where << ", " << NameOf(form) << ", " << threadCount << " threads";
            }
        }
        sum.Add(expected.cells);
    }
    tests::SayForEveryBuild(functor->name, sum.Get());
}

std::string TestNameOf(const testing::TestParamInfo<DeltaFactory>& row) {
    const std::unique_ptr<DeltafieldFunctor> functor = row.param();
    std::string name;
    for (const char c : functor->name)
        if (std::isalnum(static_cast<unsigned char>(c)) != 0) name += c;
    return name + "_" + std::to_string(row.index);
}

INSTANTIATE_TEST_SUITE_P(Members, SameCells, testing::ValuesIn(tests::AllDeltaFactories()), TestNameOf);

} // namespace
} // namespace orvane::zephor
