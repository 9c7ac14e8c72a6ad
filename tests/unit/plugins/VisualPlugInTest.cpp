#include "plugins/VisualPlugIn.h"

#include "plugins/PlugInMemory.h"
#include "support/LogCapture.h"
#include "unit/plugins/BarePlugIn.h"

#include <gtest/gtest.h>

#include <cstring>
#include <string>

namespace orvane::plugins {
namespace {

using tests::BarePlugIn;
using tests::LogCapture;

PlugInOwner<BarePlugIn> Named(std::u16string_view name, std::u16string_view displayName) {
    auto plugIn = MakePlugIn<BarePlugIn>(PlugInKind::kZephor);
    plugIn->SetName(name);
    plugIn->SetDisplayName(displayName);
    return plugIn;
}

TEST(VisualPlugIn, TheConstructorSetsARateOf60AndClearsEverythingElse) {
    const auto plugIn = MakePlugIn<BarePlugIn>(PlugInKind::kExternal);
    EXPECT_EQ(plugIn->Kind(), PlugInKind::kExternal);
    EXPECT_EQ(plugIn->RegisteredRate(), 60u);
    EXPECT_EQ(plugIn->RegisteredWord0(), 0u);
    EXPECT_EQ(plugIn->Options(), 0u);
    EXPECT_EQ(plugIn->RegisteredWord1(), 0u);
    EXPECT_EQ(plugIn->RegisteredWord2(), 0u);
    for (const auto limit : plugIn->RegisteredLimits()) EXPECT_EQ(limit, 0u);
    for (const auto byte : plugIn->RegisteredBytes()) EXPECT_EQ(byte, 0u);
    EXPECT_EQ(plugIn->Name(), records::StringBlock());
    EXPECT_EQ(plugIn->DisplayName(), records::StringBlock());
    EXPECT_FALSE(plugIn->Window());
    EXPECT_TRUE(plugIn->Initialize());
}

TEST(VisualPlugIn, ANullPathIsBuiltInForTheTwoBuiltInsAndEmptyForAnyOtherKind) {
    EXPECT_EQ(MakePlugIn<BarePlugIn>(PlugInKind::kZephor)->Path().View(), u"Built-In");
    EXPECT_EQ(MakePlugIn<BarePlugIn>(PlugInKind::kQuellspire)->Path().View(), u"Built-In");
    EXPECT_EQ(MakePlugIn<BarePlugIn>(PlugInKind::kExternal)->Path().View(), u"");
    EXPECT_EQ(MakePlugIn<BarePlugIn>(PlugInKind(3))->Path().View(), u"");
}

TEST(VisualPlugIn, AGivenPathIsTakenWhateverTheKind) {
    const auto plugIn = MakePlugIn<BarePlugIn>(PlugInKind::kZephor, u"C:\\Pl\u00FCg.dll");
    EXPECT_EQ(plugIn->Path().View(), u"C:\\Pl\u00FCg.dll");
    EXPECT_EQ(MakePlugIn<BarePlugIn>(PlugInKind::kZephor, u"")->Path().View(), u"");
}

TEST(VisualPlugIn, APathOf2000UnitsKeepsItsFirst1027) {
    std::u16string path(2000, u'x');
    path[1026] = u'e';
    path[1027] = u'f';
    const auto plugIn = MakePlugIn<BarePlugIn>(PlugInKind::kExternal, path.c_str());
    EXPECT_EQ(plugIn->Path().count, 1027);
    EXPECT_EQ(plugIn->Path().View(), std::u16string_view(path).substr(0, 1027));
}

TEST(VisualPlugIn, NameIsComparesTheDisplayNameUnitByUnitAndMindsTheCase) {
    const LogCapture log;
    const auto plugIn = Named(u"own", u"Zo\u00EB 1");
    EXPECT_TRUE(plugIn->NameIs(u"Zo\u00EB 1", 5));
    EXPECT_FALSE(plugIn->NameIs(u"zo\u00EB 1", 5));
    EXPECT_EQ(log.Text(), "");
}

TEST(VisualPlugIn, NameIsWithEqualLengthAndOneUnitDifferentIsFalseAndPrintsNothing) {
    const LogCapture log;
    const auto plugIn = Named(u"Waves", u"Waves");
    EXPECT_FALSE(plugIn->NameIs(u"Wavez", 5));
    EXPECT_FALSE(plugIn->NameIs(u"xaves", 5));
    EXPECT_EQ(log.Text(), "");
}

TEST(VisualPlugIn, NameIsTakesUnitsBehindAZeroAndAFullNameOf255) {
    const LogCapture log;
    const auto zeroInside = Named(u"", std::u16string_view(u"a\0b", 3));
    EXPECT_TRUE(zeroInside->NameIs(u"a\0b", 3));
    EXPECT_FALSE(zeroInside->NameIs(u"a\0c", 3));
    const std::u16string full(255, u'n');
    EXPECT_TRUE(Named(u"", full)->NameIs(full.c_str(), 255));
    EXPECT_EQ(log.Text(), "");
}

TEST(VisualPlugIn, NameIsRefusesANullNameAndThenAnEmptyOne) {
    const LogCapture log;
    const auto plugIn = Named(u"", u"");
    EXPECT_FALSE(plugIn->NameIs(nullptr, 0));
    EXPECT_FALSE(plugIn->NameIs(nullptr, 4));
    EXPECT_FALSE(plugIn->NameIs(u"abc", 0));
    EXPECT_EQ(log.Lines(), (std::vector<std::string>{ "NameIs: inName is null\n", "NameIs: inName is null\n",
                                                      "NameIs: inNameLength is 0\n" }));
}

TEST(VisualPlugIn, ALengthMismatchLineShowsTheCountOfMName) {
    const LogCapture log;
    const auto plugIn = Named(u"seven__", u"four");
    EXPECT_FALSE(plugIn->NameIs(u"fours", 5));
    EXPECT_EQ(log.Text(), "NameIs: inNameLength(5) != mName[0] (7)\n");
}

TEST(VisualPlugIn, ABuiltInWithoutLocalizedStringsDoesNotKnowItsOwnTitle) {
    const LogCapture log;
    const auto plugIn = MakePlugIn<BarePlugIn>(PlugInKind::kQuellspire);
    plugIn->SetName(u"Orvane Visualizer");
    EXPECT_EQ(plugIn->DisplayName().count, 0);
    EXPECT_FALSE(plugIn->NameIs(u"Orvane Visualizer", 17));
    EXPECT_EQ(log.Text(), "NameIs: inNameLength(17) != mName[0] (17)\n");
}

TEST(VisualPlugIn, NoPartOfALongerNameIsRead) {
    const auto plugIn = Named(u"", u"ab");
    const auto onlyTwo = std::make_unique<char16_t[]>(2); // a read beyond it is seen by the sanitizer
    onlyTwo[0] = u'a';
    onlyTwo[1] = u'b';
    EXPECT_TRUE(plugIn->NameIs(onlyTwo.get(), 2));
}

TEST(VisualPlugIn, KeyInputIsFalseWithAWindowPresentAndPostsNothing) {
    const LogCapture log;
    const auto plugIn = MakePlugIn<BarePlugIn>(PlugInKind::kExternal);
    int window = 0;
    plugIn->ActivateInWindow({ &window });
    EXPECT_FALSE(plugIn->KeyInput(1, u"a", 0));
    EXPECT_EQ(log.Text(), "");
}

TEST(VisualPlugIn, KeyInputSaysWhatIsMissing) {
    const LogCapture log;
    const auto plugIn = MakePlugIn<BarePlugIn>(PlugInKind::kExternal);
    EXPECT_FALSE(plugIn->KeyInput(0, nullptr, 0));
    EXPECT_FALSE(plugIn->KeyInput(0, u"a", 0));
    EXPECT_EQ(log.Text(), "");
    EXPECT_FALSE(plugIn->KeyInput(1, nullptr, 0));
    EXPECT_FALSE(plugIn->KeyInput(1, u"a", 0));
    EXPECT_EQ(log.Lines(),
              (std::vector<std::string>{ "VisualPlugIn::KeyInput cannot use a null character buffer.\n",
                                         "VisualPlugIn::No HWND to post keyboard messages to.\n" }));
}

TEST(VisualPlugIn, ParkingStringsInTheBaseClassChangesNothing) {
    const auto plugIn = Named(u"own", u"shown");
    plugIn->ParkLocalizedStrings({ { "Title", "" } });
    EXPECT_EQ(plugIn->DisplayName().View(), u"shown");
}

// The place of a virtual operation in the class's table: a pointer to it holds its offset there, plus 1.
template <typename Operation>
std::size_t SlotOf(Operation operation) {
    std::size_t offset = 0;
    std::memcpy(&offset, &operation, sizeof(offset));
    return (offset - 1) / sizeof(void*);
}

TEST(VisualPlugIn, TheTwelveOperationsStandInTheirSlots) {
    EXPECT_EQ(SlotOf(&VisualPlugIn::Initialize), 0u);
    EXPECT_EQ(SlotOf(&VisualPlugIn::ActivateInWindow), 1u);
    EXPECT_EQ(SlotOf(&VisualPlugIn::Deactivate), 2u);
    EXPECT_EQ(SlotOf(&VisualPlugIn::Reshape), 3u);
    EXPECT_EQ(SlotOf(&VisualPlugIn::Draw), 4u);
    EXPECT_EQ(SlotOf(&VisualPlugIn::Stop), 5u);
    EXPECT_EQ(SlotOf(&VisualPlugIn::Idle), 6u);
    EXPECT_EQ(SlotOf(&VisualPlugIn::SetArtwork), 7u);
    EXPECT_EQ(SlotOf(&VisualPlugIn::Pulse), 8u);
    EXPECT_EQ(SlotOf(&VisualPlugIn::StartExternalVisualPlayback), 9u);
    EXPECT_EQ(SlotOf(&VisualPlugIn::KeyInput), 10u);
    EXPECT_EQ(SlotOf(&VisualPlugIn::ParkLocalizedStrings), 11u);
}

} // namespace
} // namespace orvane::plugins
