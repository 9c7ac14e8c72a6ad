#include "shell/dispatch/Dispatcher.h"

#include "support/BytesExchange.h"
#include "support/LogCapture.h"

#include <gtest/gtest.h>

#include <array>
#include <bit>
#include <cstddef>
#include <iterator>
#include <string>
#include <vector>

namespace orvane::shell {
namespace {

using tests::BytesExchange;
using tests::LogCapture;
using namespace std::string_literals;

// A server with every operation as it is by nature, fed with bytes.
template <typename Server>
struct Fixture {
    BytesExchange* exchange = new BytesExchange; // the server's own
    Server server{ std::unique_ptr<IExchange>(exchange) };

    // Dispatches one request and hands back its replies: one, or none.
    std::vector<std::string> Send(const std::string& request) {
        exchange->mReplies.clear();
        exchange->SetRequest(request);
        result = DispatchRequest(server, *exchange);
        return exchange->mReplies;
    }

    bool result = false;
};

class BaseServer : public RequestOperations {
public:
    using RequestOperations::RequestOperations;

    bool Initialize(std::uint8_t) override { return true; }
};

using Base = Fixture<BaseServer>;
using Replies = std::vector<std::string>;

struct BaseRow {
    const char* tag;
    const char* line;
    const char* reply;
};

constexpr BaseRow kBaseAnswers[] = {
    { "UPVM", "HandleUPVMMessage override me\n", nullptr },
    { "PULS", "PulseVisualizer override me\n", "OK" },
    { "KEYI", "KeyInputVisualizer override me\n", "OK" },
    { "SWND", "ShowVisualizerWindow override me\n", "OK" },
    { "SWSV", "ShowVisualizerWindowAndSelectVisualizer override me\n", "OK" },
    { "HWND", "HideVisualizerWindow override me\n", "OK" },
    { "NTFS", "EnterFullscreen override me\n", "OK" },
    { "XTFS", "ExitFullscreen override me\n", "OK" },
    { "PM2C", "PostMessageToConsole override me\n", "OK" },
    { "DCTV", "DeactivateVisualizer override me\n", "OK" },
    { "STRT", "StartVisualizerPlaybackWithTrackInfo: override me\n", "Start" },
    { "DRAW", "", "OK" },
    { "IDLE", "", "OK" },
    { "STOP", "", "OK" },
    { "MOVW", "MoveVisualizer override me\n", "OK" },
    { "RSHP", "ReshapeVisualizer override me\n", "OK" },
    { "ACTV", "ActivateVisualizer override me\n", "OK" },
    { "NOAR", "", "OK" },
    { "AR13", "", "OK" },
    { "AR14", "", "OK" },
};
static_assert(std::size(kBaseAnswers) == 20);

TEST(Dispatcher, EveryTagGetsTheBaseServersLineAndReply) {
    Base base;
    for (const auto& row : kBaseAnswers)
        for (const char* payload : { "", "\x01\x02", "a payload that nobody reads" }) {
            const LogCapture log;
            const Replies expected = row.reply ? Replies{ row.reply } : Replies{};
            EXPECT_EQ(base.Send(row.tag + std::string(payload)), expected) << row.tag;
            EXPECT_EQ(base.result, row.reply != nullptr) << row.tag;
            EXPECT_EQ(log.Text(), row.line) << row.tag;
        }
}

TEST(Dispatcher, SaysWhetherTheReplyWasWrittenAtOnce) {
    Base base;
    const LogCapture log;
    for (const char* request : { "PULS", "STRT", "DRAW", "XXXX", "ABC" })
        for (const bool written : { false, true }) {
            base.exchange->mWriteResult = written;
            EXPECT_EQ(base.Send(request).size(), 1u);
            EXPECT_EQ(base.result, written) << request;
        }
}

// Keeps the tag of the operation that was called.
class TellingServer : public BaseServer {
public:
    using BaseServer::BaseServer;

    bool HandleUPVMMessage() override { return Tell("UPVM"); }

    bool PulseVisualizer() override { return Tell("PULS"); }

    bool KeyInputVisualizer() override { return Tell("KEYI"); }

    bool ShowVisualizerWindow() override { return Tell("SWND"); }

    bool ShowVisualizerWindowAndSelectVisualizer() override { return Tell("SWSV"); }

    bool HideVisualizerWindow() override { return Tell("HWND"); }

    bool EnterFullscreen() override { return Tell("NTFS"); }

    bool ExitFullscreen() override { return Tell("XTFS"); }

    bool PostMessageToConsole() override { return Tell("PM2C"); }

    bool DeactivateVisualizer() override { return Tell("DCTV"); }

    bool StartVisualizerPlaybackWithTrackInfo() override { return Tell("STRT"); }

    bool DrawVisualizer() override { return Tell("DRAW"); }

    bool IdleVisualizer() override { return Tell("IDLE"); }

    bool StopVisualizer() override { return Tell("STOP"); }

    bool MoveVisualizer() override { return Tell("MOVW"); }

    bool ReshapeVisualizer() override { return Tell("RSHP"); }

    bool ActivateVisualizer() override { return Tell("ACTV"); }

    bool SetArtworkVisualizer(std::uint32_t format) override {
        return Tell(format == 0 ? "NOAR" : "AR" + std::to_string(format));
    }

    std::string mTold;

private:
    bool Tell(const std::string& tag) {
        mTold += tag;
        return Answer("told " + tag);
    }
};

TEST(Dispatcher, EveryTagReachesItsOwnOperationAndArtworkCarriesItsFormat) {
    Fixture<TellingServer> telling;
    for (const auto& row : kBaseAnswers) {
        telling.server.mTold.clear();
        EXPECT_EQ(telling.Send(row.tag), Replies{ "told "s + row.tag });
        EXPECT_EQ(telling.server.mTold, row.tag) << "once, and nothing else";
    }
}

TEST(Dispatcher, AFourByteRequestWithAnUnknownTagIsNotHandledAndTheNextOneIsServed) {
    Base base;
    const LogCapture log;
    for (const char* tag : { "ABCD", "puls", "SLUP", "AR15", "AR12", "\xD0ULS" })
        EXPECT_EQ(base.Send(tag), Replies{ "Not handled" }) << tag;
    EXPECT_EQ(base.Send("\0\0\0\0"s), Replies{ "Not handled" });
    EXPECT_EQ(base.Send("PULSE"), Replies{ "OK" }) << "the fifth byte is payload";
    EXPECT_EQ(log.Text(), "PulseVisualizer override me\n") << "an unknown tag prints nothing";
}

TEST(Dispatcher, AThreeByteRequestIsAnsweredWithItsSize) {
    Base base;
    const LogCapture log;
    EXPECT_EQ(base.Send("PUL"), Replies{ "No input message. Buffer size = 3" });
    EXPECT_EQ(log.Text(), "HandleRequest mBytesRead < 4\n");
}

TEST(Dispatcher, ShorterRequestsAreAnsweredWithTheirSizeWhateverAnEarlierOneLeftBehind) {
    Base base;
    base.Send("DRAW");
    const LogCapture log;
    EXPECT_EQ(base.Send("D"), Replies{ "No input message. Buffer size = 1" });
    EXPECT_EQ(base.Send("DR"), Replies{ "No input message. Buffer size = 2" });
    EXPECT_EQ(base.Send(""), Replies{ "No input message. Buffer size = 0" });
    EXPECT_EQ(log.Lines(), std::vector<std::string>(3, "HandleRequest mBytesRead < 4\n"));
}

TEST(Dispatcher, MoveVisualizerIgnoresItsPayloadAndAnswers) {
    Base base;
    const LogCapture log;
    EXPECT_EQ(base.Send("MOVW" + std::string(5000, '\xFF')), Replies{ "OK" });
    EXPECT_EQ(log.Text(), "MoveVisualizer override me\n");
}

TEST(Dispatcher, TheLargestRequestIsServed) {
    Base base;
    const LogCapture log;
    EXPECT_EQ(base.Send("AR14" + std::string(kMessageCapacity - 4, 'x')), Replies{ "OK" });
}

TEST(RequestOperations, ActivateVisualizerWindowAnswersThoughNoTagReachesIt) {
    Base base;
    RequestOperations& server = base.server;
    const LogCapture log;
    EXPECT_TRUE(server.ActivateVisualizerWindow());
    EXPECT_EQ(base.exchange->mReplies, Replies{ "OK" });
    EXPECT_EQ(log.Text(), "ActivateVisualizerWindow override me\n");
}

TEST(RequestOperations, OperationsOfTheMainThreadWriteNoReply) {
    Base base;
    RequestOperations& server = base.server;
    const LogCapture log;
    server.StartVisualizerWithTrackParam();
    server.Reserved18();
    server.ShapeVisualizerInMainThread(1, 2, 3, 4);
    server.DrawVisualizerInMainThread();
    server.StopVisualizerInMainThread();
    server.IdleVisualizerInMainThread();
    EXPECT_EQ(log.Text(), "");
    server.DeactivateVisualizerOnMainThread();
    server.ActivateProxyWindowInMainThread(1, 2, 3, 4);
    server.SetArtworkInMainThread(nullptr);
    EXPECT_EQ(log.Lines(), (std::vector<std::string>{ "DeactivateVisualizerOnMainThread override me\n",
                                                      "ActivateProxyWindowInMainThread override me\n",
                                                      "SetArtworkInMainThread override me\n" }));
    EXPECT_EQ(base.exchange->mReplies, Replies{});
}

// The place of an operation in the virtual table: both compilers keep its offset plus one in the pointer,
// and the destructor in slot 0 has two entries there.
template <typename Operation>
std::ptrdiff_t SlotOf(Operation operation) {
    static_assert(sizeof(operation) == 2 * sizeof(std::ptrdiff_t));
    const auto words = std::bit_cast<std::array<std::ptrdiff_t, 2>>(operation);
    return (words[0] - 1) / std::ptrdiff_t(sizeof(void*)) - 1;
}

TEST(RequestOperations, SlotsStandInTheirOrder) {
    using S = RequestOperations;
    const std::vector<std::ptrdiff_t> slots = {
        SlotOf(&S::Initialize),
        SlotOf(&S::HandleUPVMMessage),
        SlotOf(&S::PulseVisualizer),
        SlotOf(&S::KeyInputVisualizer),
        SlotOf(&S::ActivateVisualizerWindow),
        SlotOf(&S::ShowVisualizerWindow),
        SlotOf(&S::ShowVisualizerWindowAndSelectVisualizer),
        SlotOf(&S::HideVisualizerWindow),
        SlotOf(&S::EnterFullscreen),
        SlotOf(&S::ExitFullscreen),
        SlotOf(&S::PostMessageToConsole),
        SlotOf(&S::DeactivateVisualizer),
        SlotOf(&S::StartVisualizerPlaybackWithTrackInfo),
        SlotOf(&S::StartVisualizerWithTrackParam),
        SlotOf(&S::DrawVisualizer),
        SlotOf(&S::IdleVisualizer),
        SlotOf(&S::StopVisualizer),
        SlotOf(&S::Reserved18),
        SlotOf(&S::ShapeVisualizerInMainThread),
        SlotOf(&S::DrawVisualizerInMainThread),
        SlotOf(&S::StopVisualizerInMainThread),
        SlotOf(&S::IdleVisualizerInMainThread),
        SlotOf(&S::DeactivateVisualizerOnMainThread),
        SlotOf(&S::MoveVisualizer),
        SlotOf(&S::ReshapeVisualizer),
        SlotOf(&S::ActivateVisualizer),
        SlotOf(&S::ActivateProxyWindowInMainThread),
        SlotOf(&S::SetArtworkInMainThread),
        SlotOf(&S::SetArtworkVisualizer),
    };
    ASSERT_EQ(slots.size(), 29u);
    for (std::size_t i = 0; i < slots.size(); ++i) EXPECT_EQ(slots[i], std::ptrdiff_t(i + 1));
}

} // namespace
} // namespace orvane::shell
