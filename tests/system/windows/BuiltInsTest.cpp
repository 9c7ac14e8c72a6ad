#include "system/windows/BuiltInsTest.h"

#include "system/windows/host/TestBuiltIns.h"

#include <cstdio>

namespace orvane::tests {

namespace {

// One entry of a group: the text that is shown, and its key.
struct Entry {
    const char *text, *key;
};

constexpr Entry kHelp[] = { { "Show this help", "h" },
                            { "Show frames a second", "f" },
                            { "Draw anew", "r" } };

void AppendGroup(WireBuilder& request, char letter, const char* title) {
    request.U8(std::uint8_t(letter)).U8(std::uint8_t(std::size(kHelp) + 1));
    for (const Entry& entry : kHelp) request.Raw("<").Raw(entry.text).Raw("><").Raw(entry.key).Raw(">");
    request.Raw("<").Raw(title).Raw("><>");
}

} // namespace

Bytes SelectRequest(std::u16string_view name) {
    return WireBuilder().Raw("SWSV").String(name).U8(0).Get();
}

Bytes NamingRequest() {
    WireBuilder request;
    request.Raw("UPVM");
    AppendGroup(request, 'Q', "Particles");
    AppendGroup(request, 'Z', "Classic");
    return request.Get();
}

void BuiltInsTest::SetUp() {
    ASSERT_NO_FATAL_FAILURE(WindowsTest::SetUp());
    NameThem();
}

void BuiltInsTest::StartProgram() {
    const std::string argument = "--usage-" + std::to_string(GetCurrentProcessId());
    ASSERT_NO_FATAL_FAILURE(
        Serve(kTestVisualizerHost, Token::kLimited, std::wstring(argument.begin(), argument.end())));
    mUsage.emplace(*mHost, argument);
}

void BuiltInsTest::TearDown() {
    if (HasFailure() && mHost) std::printf("The host said:\n%s\n", mHost->Text().c_str());
}

player::PluginList BuiltInsTest::NameThem() {
    auto list = player::DecodePluginList(mClient.Exchange(NamingRequest(), kPatience).bytes);
    EXPECT_TRUE(list.whole);
    return list;
}

void BuiltInsTest::Select(std::u16string_view name) {
    EXPECT_EQ(Ask(SelectRequest(name)), "OK");
    const std::wstring title(name.begin(), name.end());
    EXPECT_TRUE(WaitUntil([&] { return TitleOf(mWindow) == title; }));
}

void BuiltInsTest::StartTrack(std::u16string_view name, std::u16string_view artist,
                              std::u16string_view album) {
    EXPECT_EQ(Ask(WireBuilder().Raw("STRT").Raw(AsText(TrackBlock(name, artist, album))).Get()), "Start");
    const std::wstring title =
        std::wstring(name.begin(), name.end()) + L" - " + std::wstring(artist.begin(), artist.end());
    EXPECT_TRUE(WaitUntil([&] { return TitleOf(mWindow) == title; }));
}

void BuiltInsTest::TypeInProxy(char16_t character) {
    PostMessageW(mProxy, WM_CHAR, character, 1);
}

void BuiltInsTest::SendKey(char16_t character) {
    EXPECT_EQ(Ask(WireBuilder().Raw("KEYI").U32(0).U32(1).U16(character).Get()), "OK");
}

Picture BuiltInsTest::View() const {
    RECT rect = {};
    GetWindowRect(mProxy, &rect);
    return TakePicture(rect);
}

} // namespace orvane::tests
