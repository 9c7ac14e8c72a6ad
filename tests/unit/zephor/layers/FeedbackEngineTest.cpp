// What the engine keeps of a field, and when it makes it anew.
#include "zephor/layers/FeedbackEngine.h"

#include "AllocationCount.h"
#include "FeedbackOracle.h"

#include <gtest/gtest.h>

#include <chrono>
#include <thread>

namespace orvane::zephor {
namespace {

using tests::AllEngines;
using tests::CellKind;
using tests::FedBack;
using tests::TestField;
using tests::TestImage;

TestImage StepVersion(FeedbackEngine& engine, const TestImage& source, const TestField& field,
                      std::uint64_t version, int sliceCount = 2) {
    TestImage target(source.width, source.height);
    engine.Step({ source.bytes.data(), source.rowBytes, target.bytes.data(), target.rowBytes, source.width,
                  source.height },
                field.Get(), version, sliceCount);
    return target;
}

struct Scene {
    std::mt19937 random{ 77 };
    TestImage source = tests::MakeNoise(50, 9, random);
    TestField turn = tests::MakeField(50, 9, CellKind::Turn, random);
    TestField anywhere = tests::MakeField(50, 9, CellKind::Anywhere, random);
};

TEST(FeedbackEngine, EachImageOfOneFieldIsMadeFromItsOwnSource) {
    Scene scene;
    const TestImage other = tests::MakeNoise(50, 9, scene.random);
    for (const auto& [name, engine] : AllEngines()) {
        EXPECT_EQ(StepVersion(*engine, scene.source, scene.turn, 1).bytes,
                  FedBack(scene.source, scene.turn).bytes);
        EXPECT_EQ(StepVersion(*engine, other, scene.turn, 1).bytes, FedBack(other, scene.turn).bytes) << name;
    }
}

TEST(FeedbackEngine, AFieldOfANewVersionIsInForceWithTheNextStep) {
    Scene scene;
    for (const auto& [name, engine] : AllEngines()) {
        static_cast<void>(StepVersion(*engine, scene.source, scene.turn, 1));
        EXPECT_EQ(StepVersion(*engine, scene.source, scene.anywhere, 2).bytes,
                  FedBack(scene.source, scene.anywhere).bytes)
            << name;
        EXPECT_EQ(StepVersion(*engine, scene.source, scene.turn, 3).bytes,
                  FedBack(scene.source, scene.turn).bytes)
            << name;
    }
}

TEST(FeedbackEngine, AnotherSizeOrSliceCountOfTheSameVersionIsPreparedAnew) {
    Scene scene;
    TestImage smaller = tests::MakeNoise(31, 8, scene.random);
    for (const auto& [name, engine] : AllEngines()) {
        static_cast<void>(StepVersion(*engine, scene.source, scene.turn, 1));
        EXPECT_EQ(StepVersion(*engine, smaller, scene.turn, 1).bytes, FedBack(smaller, scene.turn).bytes)
            << name;
        EXPECT_EQ(StepVersion(*engine, scene.source, scene.turn, 1, 5).bytes,
                  FedBack(scene.source, scene.turn).bytes)
            << name;
    }
}

TEST(FeedbackEngine, AnotherFormTakesOverWithinAField) {
    Scene scene;
    FeedbackEngine engine(2);
    for (int round = 0; round < 2; ++round)
        for (const FeedbackForm form : RunnableForms()) {
            engine.UseForm(form);
            EXPECT_EQ(engine.Form(), form);
            EXPECT_EQ(StepVersion(engine, scene.source, scene.turn, 1).bytes,
                      FedBack(scene.source, scene.turn).bytes)
                << NameOf(form);
        }
}

TEST(FeedbackEngine, AFieldThatIsSmallerThanTheImageWritesNothing) {
    Scene scene;
    for (const auto& [name, engine] : AllEngines()) {
        const TestField narrow(49, 9), low(50, 8);
        EXPECT_EQ(StepVersion(*engine, scene.source, narrow, 1).bytes, TestImage(50, 9).bytes) << name;
        EXPECT_EQ(StepVersion(*engine, scene.source, low, 2).bytes, TestImage(50, 9).bytes) << name;
    }
}

TEST(FeedbackEngine, AnImageWithoutPixelsIsLeftAlone) {
    std::uint8_t nothing = 7;
    const TestField field(1, 1);
    for (const auto& [name, engine] : AllEngines()) {
        engine->Step({ &nothing, 1, &nothing, 1, 0, 1 }, field.Get(), 1, 2);
        engine->Step({ &nothing, 1, &nothing, 1, 1, 0 }, field.Get(), 2, 2);
        EXPECT_EQ(nothing, 7) << name;
    }
}

TEST(FeedbackEngine, WithoutMemoryToPrepareInTheStepIsDoneByItsDefinition) {
    Scene scene;
    const TestImage expected = FedBack(scene.source, scene.turn);
    const auto engines = AllEngines();
    // Their threads have come up and sleep; the system may take memory for that.
    std::this_thread::sleep_for(std::chrono::milliseconds(100));
    for (const auto& [name, engine] : engines) {
        TestImage target(50, 9);
        const FeedbackImages images{
            scene.source.bytes.data(), scene.source.rowBytes, target.bytes.data(), target.rowBytes, 50, 9
        };
        {
            const tests::NoMemory noMemory;
            engine->Step(images, scene.turn.Get(), 1, 2);
        }
        EXPECT_EQ(target.bytes, expected.bytes) << name;
        EXPECT_EQ(engine->PreparedBytes(), 0u) << name;
        // With memory again the same field is prepared.
        engine->Step(images, scene.turn.Get(), 1, 2);
        EXPECT_EQ(target.bytes, expected.bytes) << name;
        EXPECT_EQ(engine->PreparedBytes() != 0, engine->Form() != FeedbackForm::Definition) << name;
    }
}

TEST(FeedbackEngine, TheBestFormIsTheLastThatRunsHere) {
    EXPECT_EQ(RunnableForms()[0], FeedbackForm::Definition);
    EXPECT_EQ(RunnableForms()[1], FeedbackForm::Portable);
    EXPECT_EQ(BestForm(), RunnableForms().back());
    EXPECT_STREQ(NameOf(FeedbackForm::Definition), "definition");
    EXPECT_STREQ(NameOf(FeedbackForm::Portable), "portable");
    EXPECT_STREQ(NameOf(FeedbackForm::Sse41), "sse41");
    EXPECT_STREQ(NameOf(FeedbackForm::Avx2), "avx2");
}

} // namespace
} // namespace orvane::zephor
