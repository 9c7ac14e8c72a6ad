#include "system/windows/Walk.h"

#include "Counts.h"
#include "system/windows/host/TestBuiltIns.h"
#include "unit/render/draw2d/ImageFiles.h"

#include <cstdio>
#include <cstdlib>

namespace orvane::tests {

namespace {

using Clock = std::chrono::steady_clock;

constexpr std::chrono::seconds kUsualReply{ 1 };
constexpr double kLatestReply = 5; // seconds
constexpr unsigned kDefaultSeed = 20'000;
constexpr int kMostSamplesInTenth = 5; // each costs a rest
constexpr int kLeastStepsToSample = 100;
constexpr std::size_t kVisualizersInScan = 5; // two built-ins, the example, the counter, the recorder
constexpr std::size_t kShownOnFailure = 4000; // bytes of the host's last words
constexpr int kExitCode = 7;

// A message to the proxy window that does nothing and has its line, by which it is known that it came.
constexpr UINT kFirstFence = 0x9000, kFences = 0x1000;

constexpr char kIdleOfNobody[] = "Current plugin is null. Cannot idle\n";
constexpr char kArtworkOfNobody[] = "SetArtworkInMainThread : Current plugin is null. Cannot set artwork\n";

unsigned ChosenSeed() {
    const char* wish = std::getenv("ORVANE_WALK_SEED");
    return wish ? unsigned(std::strtoul(wish, nullptr, 10)) : kDefaultSeed;
}

std::vector<Bytes> Images() {
    const auto png = [](std::uint32_t width, std::uint32_t height) {
        return render::tests::MakePng(width, height, Bytes(std::size_t(width) * height * 4, 200));
    };
    Bytes half = png(64, 64);
    half.resize(half.size() / 2);
    return {
        png(8, 8), png(300, 200),     render::tests::Encode(GUID_ContainerFormatJpeg, 120, 90, 0, 0, 255),
        half,      Bytes(2000, 0x5A), {}
    };
}

} // namespace

void Walk::SetUp() {
    ASSERT_NO_FATAL_FAILURE(BuiltInsTest::SetUp());
    mSeed = ChosenSeed();
    mRandom.seed(mSeed);
    mVisualizers = kVisualizersInScan;
    mSound = SampleSound();
    mImages = Images();
    ASSERT_FALSE(mImages[2].empty()) << "no JPEG was made";
    mUsageByTenths.emplace(*mUsage);
    SetWindowPos(mWindow, nullptr, 0, 0, 500, 400, SWP_NOMOVE | SWP_NOZORDER | SWP_NOACTIVATE);
}

void Walk::TearDown() {
    if (!HasFailure() || !mHost) return;
    const std::string text = mHost->Text();
    std::printf("The host's last words:\n%s\n",
                text.substr(text.size() - std::min(text.size(), kShownOnFailure)).c_str());
}

void Walk::StartProgram() {
    mFolders.Lay(Folder::kRoamingData, "counter");
    BuiltInsTest::StartProgram();
}

void Walk::TakeStep() {
    const Step& step = Choose(false);
    (this->*step.take)();
    ++mTaken[step.name];
    ASSERT_FALSE(HasFailure() || !mHost->IsRunning())
        << "in " << step.name << ", with ORVANE_WALK_SEED=" << mSeed;
}

void Walk::Take(int steps, int reconnectEvery, int warmingUp) {
    const int sampleEvery = std::max(kLeastStepsToSample, steps / (kTenths * kMostSamplesInTenth));
    for (int i = -warmingUp; i < steps; ++i) {
        ASSERT_NO_FATAL_FAILURE(TakeStep()) << "at step " << i;
        if (reconnectEvery && (i + 1) % reconnectEvery == 0) Reconnect();
        if (i % sampleEvery == 0) {
            Rest();
            if (i >= 0) mUsageByTenths->Sample(i * kTenths / steps);
            std::printf("step %d: %zu KiB, longest wait for a reply %.3f s\n", i,
                        mUsage->MemoryBytes() / 1024, mLongestReply);
            std::fflush(stdout);
            SendSelect(); // nobody was current at rest
        }
    }
    ASSERT_FALSE(HasFailure());
    std::printf("%d steps with seed %u, %d reconnections; longest wait for a reply %.3f s\n", steps, mSeed,
                mReconnections, mLongestReply);
    for (const auto& [name, times] : mTaken) std::printf("%6d %s\n", times, name.c_str());
    mUsageByTenths->Print();
}

// Waits for longer than a reply may take, so that one that is late can be told from one that never comes. A machine
// that is busy with other things may give the host no processor for seconds; that time isn't the host's.
player::Bytes Walk::Exchange(const Bytes& request) {
    const auto start = Clock::now();
    auto reply = mClient.Exchange(request, kUsualReply);
    double starved = 0;
    if (reply.outcome.failure == player::Failure::kNoReplyInTime) {
        const double before = mUsage->StarvedSeconds();
        reply = mClient.Receive(kPatience);
        starved = mUsage->StarvedSeconds() - before;
    }
    const double took = std::chrono::duration<double>(Clock::now() - start).count();
    mLongestReply = std::max(mLongestReply, took);
    const std::string tag = AsText({ request.data(), 4 });
    EXPECT_TRUE(reply.outcome) << tag << ": failure " << int(reply.outcome.failure) << ", error "
                               << reply.outcome.systemCode;
    EXPECT_LT(took - starved, kLatestReply) << tag << " took " << took << " s, starved " << starved << " s";
    if (starved > 0) std::printf("%s took %.3f s, starved %.3f s\n", tag.c_str(), took, starved);
    return std::move(reply.bytes);
}

void Walk::Expect(std::string_view reply, const Bytes& request) {
    EXPECT_EQ(AsText(Exchange(request)), reply) << AsText({ request.data(), 4 });
}

void Walk::Expect(std::string_view reply, std::string_view tag) {
    Expect(reply, WireBuilder().Raw(tag).Get());
}

void Walk::PostWork(Work work, const Bytes& request) {
    if (mLedger.IsOpen()) FindOutWhoIsCurrent();
    Expect("OK", request);
    mLedger.Posted(work);
}

// By an idle, which alone is heard of when nobody is current.
void Walk::FindOutWhoIsCurrent() {
    WaitForMainThread();
    Expect("OK", "IDLE");
    const std::string said = WaitForMainThread();
    mLedger.FoundCurrent(said.find(kIdleOfNobody) == std::string::npos);
    mLedger.Posted(Work::kIdle);
    mLedger.Settled();
}

void Walk::ChooseVisualizer(Who who, std::string_view reply, const Bytes& request) {
    if (mLedger.MustSettleBefore(who)) WaitForMainThread();
    Expect(reply, request);
    mLedger.Selected(who);
}

std::string Walk::WaitForMainThread() {
    const UINT fence = kFirstFence + mFences++ % kFences;
    char line[64];
    std::snprintf(line, sizeof(line), "Message 0x%X not handled\n", fence);
    PostMessageW(mProxy, fence, 0, 0);
    std::string said;
    EXPECT_TRUE(WaitUntil([&] {
        said += mHost->TextFrom(mRead + said.size());
        return said.find(line) != std::string::npos || !mHost->IsRunning();
    })) << "the main thread stands still";
    mRead += said.size();
    mLedger.Settled();
    return said;
}

void Walk::PostSystemCommand(WPARAM command) {
    PostMessageW(mWindow, WM_SYSCOMMAND, command, 0);
    ExpectSystemCommand(command);
}

void Walk::ExpectSystemCommand(WPARAM command) {
    ++mExpectedLines[command == SC_MINIMIZE   ? "OOPWindowProc:SYSTEMCOMMAND:SC_MINIMIZE\n"
                     : command == SC_MAXIMIZE ? "OOPWindowProc:SYSTEMCOMMAND:SC_MAXIMIZE\n"
                                              : "OOPWindowProc:SYSTEMCOMMAND:SC_RESTORE\n"];
}

// Some leave without waiting for a reply.
void Walk::Reconnect() {
    if (Below(2)) {
        EXPECT_TRUE(mClient.Send(WireBuilder().Raw("DRAW").Get(), kPatience));
    }
    mClient.Disconnect();
    EXPECT_TRUE(mClient.Connect(kPatience));
    ++mReconnections;
    mVisualizers += kVisualizersInScan;
    SendNames();
}

// Windowed, shown, in the middle of the screen and in front of others.
void Walk::BringWindowToItsPlace() {
    constexpr int kLeft = 300, kTop = 150, kWidth = 700, kHeight = 500;
    WaitForMainThread();
    Expect("OK", "XTFS");
    Expect("OK", "SWND");
    for (int i = 0; i < 2; ++i) { // one that was minimised may come back maximised
        if (IsIconic(mWindow) || IsZoomed(mWindow)) PostSystemCommand(SC_RESTORE);
        WaitForMainThread();
    }
    SetWindowPos(mWindow, HWND_TOP, kLeft, kTop, kWidth, kHeight, SWP_ASYNCWINDOWPOS);
    WaitForMainThread();
    EXPECT_EQ(RectOf(mWindow), (std::vector<long>{ kLeft, kTop, kLeft + kWidth, kTop + kHeight }));
}

bool Walk::IsBeingDragged() const {
    GUITHREADINFO info = {};
    info.cbSize = sizeof(info);
    return GetGUIThreadInfo(mHost->MainThreadId(), &info) && (info.flags & GUI_INMOVESIZE);
}

// What a press of the mouse fell on, for when it wasn't heard.
std::string Walk::UnderMouse() const {
    POINT at = {};
    GetCursorPos(&at);
    HWND window = WindowFromPoint(at);
    char name[64] = {};
    GetClassNameA(window, name, sizeof(name));
    GUITHREADINFO info = {};
    info.cbSize = sizeof(info);
    GetGUIThreadInfo(mHost->MainThreadId(), &info);
    char text[200];
    std::snprintf(
        text, sizeof(text),
        "the mouse at %ld, %ld is over %p \"%s\", the host's are %p and %p; flags 0x%lX, capture %p", at.x,
        at.y, static_cast<void*>(window), name, static_cast<void*>(mWindow), static_cast<void*>(mProxy),
        info.flags, static_cast<void*>(info.hwndCapture));
    return text;
}

void Walk::Drag(int x, int y) {
    MoveMouse(x, y);
    PressMouse();
    EXPECT_TRUE(WaitUntil([&] { return IsBeingDragged() || !mHost->IsRunning(); })) << UnderMouse();
    for (auto moves = 3 + Below(6); moves > 0; --moves) {
        x += int(Below(61)) - 30;
        y += int(Below(61)) - 30;
        MoveMouse(x, y);
        (this->*Choose(true).take)();
    }
    ReleaseMouse();
    EXPECT_TRUE(WaitUntil([&] { return !IsBeingDragged() || !mHost->IsRunning(); }));
    MoveMouse(0, 0);
}

// Each built-in is activated and deactivated once, since one that is replaced keeps its visualizer.
void Walk::Rest() {
    BringWindowToItsPlace();
    for (const auto name : { kFirstName, kSecondName }) {
        WaitForMainThread();
        ChooseVisualizer(Who::kBuiltIn, "PRXY", ActivateRequest(name));
        SendDeactivate();
    }
    WaitForMainThread();
}

void Walk::CloseTheBooks() {
    if (HasFailure()) return;
    WaitForMainThread();
    ChooseVisualizer(Who::kCounter, "PRXY", ActivateRequest(u"counter"));
    SendDeactivate();
    WaitForMainThread();
    EXPECT_EQ(mHost->Quit(kExitCode), kExitCode);
    const std::string text = mHost->Text();
    const auto marked = [&](Work work, Mark mark) { return mLedger.Marked(work, mark); };
    EXPECT_EQ(Count(text, kIdleReached), marked(Work::kIdle, Mark::kBuiltInLine));
    EXPECT_EQ(Count(text, kIdleOfNobody), marked(Work::kIdle, Mark::kHostLine));
    EXPECT_EQ(Count(text, kStopReached), marked(Work::kStop, Mark::kBuiltInLine));
    EXPECT_EQ(Count(text, kArtworkReached),
              marked(Work::kArtwork, Mark::kBuiltInLine) + marked(Work::kNoArtwork, Mark::kBuiltInLine));
    EXPECT_EQ(Count(text, kArtworkOfNobody),
              marked(Work::kArtwork, Mark::kHostLine) + marked(Work::kNoArtwork, Mark::kHostLine));
    for (const auto& [line, times] : mExpectedLines) EXPECT_EQ(Count(text, line), times) << line;
    EXPECT_EQ(Count(text, "Could not post"), 0);

    CountsRecord counts = {};
    for (const auto& call : Calls())
        if (call.data && call.data->size() == sizeof(counts) && call.message == ORVANE_MSG_DEACTIVATE)
            std::memcpy(&counts, call.data->data(), sizeof(counts)); // the last one is the whole sum
    EXPECT_EQ(int(counts.of[IndexOfCount(ORVANE_MSG_IDLE)]), marked(Work::kIdle, Mark::kCounted));
    EXPECT_EQ(int(counts.of[IndexOfCount(ORVANE_MSG_STOP)]), marked(Work::kStop, Mark::kCounted));
    EXPECT_EQ(int(counts.of[IndexOfCount(ORVANE_MSG_ARTWORK)]), marked(Work::kArtwork, Mark::kCounted));

    for (const auto& [work, name] : { std::pair{ Work::kIdle, "idles" },
                                      { Work::kStop, "stops" },
                                      { Work::kArtwork, "images" },
                                      { Work::kNoArtwork, "removals of the image" } })
        std::printf("%d %s, of which %d can't be heard of\n", mLedger.Sent(work), name,
                    marked(work, Mark::kNone));
}

} // namespace orvane::tests
