#include "plugins/FlattenPlugIn.h"

#include "plugins/PlugInMemory.h"
#include "support/LogCapture.h"
#include "support/Wire.h"
#include "unit/plugins/BarePlugIn.h"

#include <gtest/gtest.h>

namespace orvane::plugins {
namespace {

using tests::Bytes;
using tests::LogCapture;

// A plug-in with every field different from every other.
class FullPlugIn final : public tests::BarePlugIn {
public:
    FullPlugIn()
        : BarePlugIn(PlugInKind::kQuellspire, u"P\u0141") {
        mRegisteredWord0 = 0x01020304;
        mOptions = 0x11121314;
        mRegisteredRate = 0x21222324;
        mRegisteredWord1 = 0x31323334;
        mRegisteredWord2 = 0x41424344;
        for (std::uint32_t i = 0; i < 4; ++i) {
            mRegisteredLimits[i] = 0x51525350 + i;
            mRegisteredBytes[i] = std::uint8_t(0x61 + i);
        }
        SetName(u"own name");
        SetDisplayName(u"D\xD83D");
    }

protected:
    ~FullPlugIn() = default;
};

const Bytes kFlattenedFullPlugIn = {
    1,    2,    3,    4,                            // word 0
    0x11, 0x12, 0x13, 0x14,                         // options
    0x21, 0x22, 0x23, 0x24,                         // rate
    0x31, 0x32, 0x33, 0x34,                         // word 1
    0x41, 0x42, 0x43, 0x44,                         // word 2
    0x51, 0x52, 0x53, 0x50, 0x51, 0x52, 0x53, 0x51, // limits 0, 1
    0x51, 0x52, 0x53, 0x52, 0x51, 0x52, 0x53, 0x53, // limits 2, 3
    0,    0,    0,    2,                            // kind
    0x61, 0x62, 0x63, 0x64,                         // bytes, in memory order
    0,    2,    0,    'D',  0xD8, 0x3D,             // display name
    0,    2,    0,    'P',  0x01, 0x41,             // path
};

TEST(FlattenPlugIn, PutsEveryFieldInItsPlaceBigEndian) {
    const LogCapture log;
    Bytes reply(kFlattenedFullPlugIn.size());
    shell::Flattener flattener(reply.data(), reply.size());
    FlattenPlugIn(flattener, *MakePlugIn<FullPlugIn>());
    EXPECT_EQ(flattener.Length(), reply.size());
    EXPECT_EQ(reply, kFlattenedFullPlugIn);
    EXPECT_EQ(log.Text(), "");
}

TEST(FlattenPlugIn, NamesAtTheirLimitsAreWhole) {
    const auto plugIn =
        MakePlugIn<tests::BarePlugIn>(PlugInKind::kExternal, std::u16string(1100, u'p').c_str());
    plugIn->SetDisplayName(std::u16string(300, u'd'));
    Bytes reply(0x10000);
    shell::Flattener flattener(reply.data(), reply.size());
    FlattenPlugIn(flattener, *plugIn);
    ASSERT_EQ(flattener.Length(), 44u + 2 + 2 * 255 + 2 + 2 * 1027);
    EXPECT_EQ(reply[44], 0);
    EXPECT_EQ(reply[45], 255);
    EXPECT_EQ(reply[46 + 510], 1027 >> 8);
    EXPECT_EQ(reply[46 + 511], 1027 & 0xFF);
    EXPECT_EQ(reply[46 + 512 + 2053], 'p');
}

// Values that don't fit are left out one by one; a later, smaller one may still fit.
TEST(FlattenPlugIn, NothingIsWrittenBeyondAReplyOfAnySize) {
    const auto plugIn = MakePlugIn<FullPlugIn>();
    for (std::size_t room = 0; room < kFlattenedFullPlugIn.size(); ++room) {
        const LogCapture log;
        Bytes reply(room); // exactly sized: the sanitizer sees a write beyond it
        shell::Flattener flattener(reply.data(), reply.size());
        FlattenPlugIn(flattener, *plugIn);
        EXPECT_LE(flattener.Length(), room);
        const auto whole = std::ptrdiff_t(room / 4 < 10 ? room / 4 * 4 : room / 2 * 2);
        EXPECT_TRUE(std::equal(reply.begin(), reply.begin() + whole, kFlattenedFullPlugIn.begin()))
            << "room " << room;
        ASSERT_FALSE(log.Lines().empty()) << "room " << room;
        for (const auto& line : log.Lines()) EXPECT_EQ(line, "Insufficient space in the flattener.");
    }
}

} // namespace
} // namespace orvane::plugins
