// The steps of the walk.
#include "system/windows/Walk.h"

#include "player/protocol/PulseEvent.h"

#include <algorithm>
#include <iterator>
#include <numeric>

namespace orvane::tests {

namespace {

constexpr char16_t kCloseCharacter = 20, kFullScreenCharacter = 6; // Ctrl+T, Ctrl+F
constexpr LPARAM kOnce = 1, kExtendedOnce = 0x1000001;             // of a key message
constexpr LPARAM kEnterWithAlt = 0x201C0001;
constexpr std::uint32_t kFlatTrackMarker = 0x464C4154; // "TALF" on the wire

// What a player may mean. The names that nobody bears lead to nobody.
struct Choice {
    int weight;
    std::u16string_view name;
    Who who;
};

constexpr Choice kChoices[] = {
    { 8, kFirstName, Who::kBuiltIn }, { 8, kSecondName, Who::kBuiltIn },
    { 5, u"counter", Who::kCounter }, { 3, kExampleName, Who::kExample },
    { 1, u"Particle", Who::kNobody }, { 1, u"no such one", Who::kNobody },
};

template <typename Row>
int SumOfWeights(std::span<const Row> rows) {
    return std::accumulate(rows.begin(), rows.end(), 0,
                           [](int sum, const Row& row) { return sum + row.weight; });
}

// The row in whose share of all weights the number lies.
template <typename Row>
const Row& RowAt(std::span<const Row> rows, int number) {
    const auto found = std::find_if(rows.begin(), rows.end(), [&](const Row& row) {
        number -= row.weight;
        return number < 0;
    });
    return *found;
}

} // namespace

std::span<const Walk::Step> Walk::Steps() {
    static constexpr Step kSteps[] = {
        { 240, "pulse", &Walk::SendPulse, true },
        { 100, "draw", &Walk::SendDraw, true },
        { 90, "idle", &Walk::SendIdle, true },
        { 50, "stop", &Walk::SendStop, true },
        { 50, "artwork", &Walk::SendArtwork, true },
        { 15, "no artwork", &Walk::SendNoArtwork, true },
        { 40, "track", &Walk::SendTrack, true },
        { 5, "cut track", &Walk::SendCutTrack, true },
        { 60, "player's keys", &Walk::SendKeys, true },
        { 20, "show", &Walk::SendShow, true },
        { 6, "hide", &Walk::SendHide, false },
        { 45, "select", &Walk::SendSelect, true },
        { 20, "activate", &Walk::SendActivate, true },
        { 12, "deactivate", &Walk::SendDeactivate, true },
        { 12, "full screen", &Walk::SendEnterFullScreen, false },
        { 20, "back from full screen", &Walk::SendExitFullScreen, false },
        { 15, "names", &Walk::SendNames, true },
        { 20, "line for the console", &Walk::SendConsoleLine, true },
        { 5, "move", &Walk::SendMove, true },
        { 10, "reshape", &Walk::SendReshape, true },
        { 5, "unknown request", &Walk::SendUnknown, true },
        { 60, "character", &Walk::TypeCharacter, true },
        { 40, "key", &Walk::PressKey, false }, // while a window is held, the platform takes the keys itself
        { 8, "Alt+Enter", &Walk::PressAltEnter, false },
        { 20, "system command", &Walk::CommandSystem, false },
        { 25, "size from outside", &Walk::SizeFromOutside, false },
        { 3, "drag of the strip", &Walk::DragStrip, false },
        { 2, "drag of the corner", &Walk::DragCorner, false },
    };
    return kSteps;
}

const Walk::Step& Walk::Choose(bool whileDragging) {
    static const auto sRequests = [] {
        std::vector<Step> rows;
        std::copy_if(Steps().begin(), Steps().end(), std::back_inserter(rows),
                     [](const Step& step) { return step.whileDragging; });
        return rows;
    }();
    const std::span<const Step> rows = whileDragging ? std::span<const Step>(sRequests) : Steps();
    return RowAt(rows, int(Below(std::uint32_t(SumOfWeights(rows)))));
}

void Walk::SendPulse() {
    ++mStamp;
    const auto reply =
        Exchange(WireBuilder().Raw("PULS").U32(mStamp).U32(mStamp * 16).Raw(AsText(mSound)).Get());
    const auto event = player::DecodePulseReply(reply);
    EXPECT_FALSE(std::holds_alternative<player::MalformedPulseReply>(event)) << reply.size() << " bytes";
}

void Walk::SendDraw() {
    Expect("OK", "DRAW");
}

void Walk::SendIdle() {
    PostWork(Work::kIdle, WireBuilder().Raw("IDLE").Get());
}

void Walk::SendStop() {
    PostWork(Work::kStop, WireBuilder().Raw("STOP").Get());
}

void Walk::SendArtwork() {
    const char* tag = Below(2) ? "AR13" : "AR14";
    const Bytes& image = mImages[Below(std::uint32_t(mImages.size()))];
    PostWork(Work::kArtwork, WireBuilder().Raw(tag).Raw(AsText(image)).Get());
}

void Walk::SendNoArtwork() {
    PostWork(Work::kNoArtwork, WireBuilder().Raw("NOAR").Get());
}

void Walk::SendTrack() {
    const std::u16string name(1 + Below(255), char16_t(u'a' + Below(26)));
    Expect("Start", WireBuilder().Raw("STRT").Raw(AsText(TrackBlock(name, u"Singer", u"Record"))).Get());
}

void Walk::SendCutTrack() {
    const Bytes block = SampleTrackBlock();
    const std::size_t length = Below(std::uint32_t(block.size()));
    Expect("Start", WireBuilder().Raw("STRT").Raw(AsText({ block.data(), length })).Get());
}

// Some of a visualizer's own, some that nobody takes; now and then a count beyond the request.
void Walk::SendKeys() {
    constexpr std::u16string_view kKeys = u"hHcCfFiIlLxyz \r\u20AC";
    constexpr std::uint32_t kFarTooMany = 5'000'000;
    const std::uint32_t count = Below(4);
    WireBuilder request;
    request.Raw("KEYI").U32(Below(2)).U32(Below(20) ? count : kFarTooMany);
    for (std::uint32_t i = 0; i < count; ++i) request.U16(kKeys[Below(std::uint32_t(kKeys.size()))]);
    Expect("OK", request.Get());
}

void Walk::SendShow() {
    Expect("OK", "SWND");
}

void Walk::SendHide() {
    Expect("OK", "HWND");
    mLedger.DeactivationPosted();
}

void Walk::SendSelect() {
    const std::span<const Choice> rows = kChoices;
    const Choice& choice = RowAt(rows, int(Below(std::uint32_t(SumOfWeights(rows)))));
    WireBuilder request;
    request.Raw("SWSV").String(choice.name).U8(0);
    if (Below(2)) request.U32(kFlatTrackMarker).Raw(AsText(SampleTrackBlock()));
    ChooseVisualizer(choice.who, "OK", request.Get());
}

void Walk::SendActivate() {
    const std::span<const Choice> rows = kChoices;
    const Choice& choice = RowAt(rows, int(Below(std::uint32_t(SumOfWeights(rows)))));
    ChooseVisualizer(choice.who, choice.who == Who::kNobody ? "FAIL" : "PRXY", ActivateRequest(choice.name));
}

void Walk::SendDeactivate() {
    Expect("OK", "DCTV");
    mLedger.DeactivationPosted();
}

void Walk::SendEnterFullScreen() {
    Expect("OK", "NTFS");
}

void Walk::SendExitFullScreen() {
    Expect("OK", "XTFS");
}

void Walk::SendNames() {
    const auto list =
        player::DecodePluginList(Exchange(Below(4) ? NamingRequest() : WireBuilder().Raw("UPVM").Get()));
    EXPECT_TRUE(list.whole);
    ASSERT_EQ(list.plugins.size(), mVisualizers);
    EXPECT_EQ(list.plugins[0].displayName, kFirstName);
    EXPECT_EQ(list.plugins[1].displayName, kSecondName);
}

void Walk::SendConsoleLine() {
    const std::string line = "The player says " + std::to_string(Below(1000)) + ".\n";
    Expect("OK", WireBuilder().Raw("PM2C").Raw(line).U8(0).Get());
    ++mExpectedLines[line];
}

void Walk::SendMove() {
    Expect("OK", "MOVW");
    ++mExpectedLines["MoveVisualizer override me\n"];
}

void Walk::SendReshape() {
    Expect("OK", WireBuilder().Raw("RSHP").U32(Below(100)).U32(0).U32(Below(1000)).U32(Below(1000)).Get());
}

void Walk::SendUnknown() {
    Expect("Not handled", "WALK");
}

void Walk::TypeCharacter() {
    constexpr char16_t kCharacters[] = {
        u'h', u'C', u'f', u'i', u'L', u'x', u'\r', u'\u20AC', kCloseCharacter, kFullScreenCharacter
    };
    const HWND window = EitherWindow();
    PostMessageW(window, WM_CHAR, kCharacters[Below(std::uint32_t(std::size(kCharacters)))], kOnce);
}

// Of the control key it is known what must be said.
void Walk::PressKey() {
    struct Key {
        WPARAM code;
        LPARAM bits;
    };

    constexpr Key kKeys[] = {
        { VK_CONTROL, kOnce }, { VK_RIGHT, kExtendedOnce }, { 'H', kOnce }, { VK_F5, kOnce }
    };
    const HWND window = EitherWindow();
    const Key& key = kKeys[Below(std::uint32_t(std::size(kKeys)))];
    PostMessageW(window, WM_KEYDOWN, key.code, key.bits);
    if (key.code == VK_CONTROL)
        ++mExpectedLines[window == mWindow ? "OOPWindowProc::Control key down\n"
                                           : "Proxy::Control key down\n"];
}

// A window that is minimised is restored by the character besides: that is the platform's own doing.
void Walk::PressAltEnter() {
    const HWND window = EitherWindow();
    if (Below(2)) {
        WaitForMainThread();
        if (IsIconic(window)) ExpectSystemCommand(SC_RESTORE);
        PostMessageW(window, WM_SYSCHAR, '\r', kEnterWithAlt);
    } else {
        PostMessageW(window, WM_SYSCOMMAND, SC_KEYMENU, '\r');
    }
}

void Walk::CommandSystem() {
    constexpr WPARAM kCommands[] = { SC_MINIMIZE, SC_MAXIMIZE, SC_RESTORE, SC_RESTORE };
    PostSystemCommand(kCommands[Below(std::uint32_t(std::size(kCommands)))]);
}

// Mostly a size that a user may want, now and then one with no room for a picture.
void Walk::SizeFromOutside() {
    const bool tiny = Below(8) == 0;
    const int width = int(tiny ? 1 + Below(40) : 200 + Below(900));
    const int height = int(tiny ? 1 + Below(60) : 150 + Below(700));
    SetWindowPos(mWindow, nullptr, int(Below(500)), int(Below(200)), width, height,
                 SWP_ASYNCWINDOWPOS | SWP_NOZORDER | SWP_NOACTIVATE);
}

// Never at the place of the drag before: two presses there would make a double click.
void Walk::DragStrip() {
    BringWindowToItsPlace();
    const auto rect = RectOf(mWindow);
    Drag(int(rect[0]) + (mDrags++ % 2 ? 150 : 300), int(rect[1]) + 15);
}

void Walk::DragCorner() {
    BringWindowToItsPlace();
    const auto rect = RectOf(mWindow);
    Drag(int(mDrags++ % 2 ? rect[0] + 1 : rect[2] - 2), int(rect[3]) - 2);
}

} // namespace orvane::tests
