// Many requests and many clients must leave the host as it was. The environment variable ORVANE_SOAK=1 asks for
// the long form.
#include "system/HostProcess.h"
#include "system/service/Expected.h"

#include <gtest/gtest.h>

#include <cstdio>
#include <cstdlib>
#include <string_view>

namespace orvane::tests {
namespace {

using player::PipeClient;

// What counts as flat: what the system itself takes and gives back goes up and down by less.
constexpr double kMemorySlack = 1.02;
constexpr std::size_t kHandleSlack = 4;

bool IsLong() {
    const char* wish = std::getenv("ORVANE_SOAK");
    return wish && std::string_view(wish) == "1";
}

// Sends all requests that have replies, over and over, `count` in all, as the host's client of that number.
void Talk(PipeClient& client, int count, int clientNumber = 1) {
    const auto conversation = ExpectedConversation(clientNumber);
    for (std::size_t i = 0; count > 0; ++i) {
        const auto& exchange = conversation[i % conversation.size()];
        if (!exchange.reply) continue;
        const auto reply = client.Exchange(exchange.request, kPatience);
        ASSERT_EQ(AsText(reply.bytes), *exchange.reply) << exchange.name;
        --count;
    }
}

void Report(const char* what, const HostProcess& host) {
    std::printf("%s: %zu KiB, %zu handles\n", what, host.WorkingSetBytes() / 1024, host.OpenHandles());
}

TEST(Soak, ThousandsOfRequestsLeaveMemoryAndHandlesAsTheyWere) {
    HostProcess host;
    ASSERT_TRUE(host.Serve());
    PipeClient client = ConnectToHost();
    ASSERT_NO_FATAL_FAILURE(Talk(client, 1000));
    Report("before", host);
    const std::size_t memory = host.WorkingSetBytes();
    const std::size_t handles = host.OpenHandles();
    ASSERT_GT(memory, 0u);
    ASSERT_GT(handles, 0u);

    ASSERT_NO_FATAL_FAILURE(Talk(client, IsLong() ? 100000 : 5000));
    Report("after", host);
    EXPECT_LE(double(host.WorkingSetBytes()), double(memory) * kMemorySlack);
    EXPECT_LE(host.OpenHandles(), handles + kHandleSlack);
}

TEST(Soak, HundredsOfClientsLeaveNoHandleBehind) {
    HostProcess host;
    ASSERT_TRUE(host.Serve());
    std::size_t handles = 0;
    const int clients = IsLong() ? 2000 : 200;
    const int warmUp = 20;
    for (int i = 0; i < warmUp + clients; ++i) {
        PipeClient client = ConnectToHost();
        ASSERT_NO_FATAL_FAILURE(Talk(client, 3, i + 1));
        if (i == warmUp) handles = host.OpenHandles(); // with a client connected, now and at the end
        if (i == warmUp) Report("before", host);
        if (i == warmUp + clients - 1) {
            Report("after", host);
            EXPECT_LE(host.OpenHandles(), handles + kHandleSlack);
        }
    }
}

} // namespace
} // namespace orvane::tests
