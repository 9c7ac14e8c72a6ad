#include "records/StringBlock.h"

#include <gtest/gtest.h>

#include <memory>
#include <string>

namespace orvane::records {
namespace {

TEST(StringBlock, StartsEmptyAndAllZero) {
    const StringBlock block;
    EXPECT_EQ(block.count, 0);
    EXPECT_EQ(block.View(), u"");
    EXPECT_EQ(std::u16string(block.units, 255), std::u16string(255, u'\0'));
}

TEST(StringBlock, AShorterTextEndsInAZeroUnit) {
    StringBlock block;
    block.Assign(u"a longer one");
    block.Assign(u"two");
    EXPECT_EQ(block.count, 3);
    EXPECT_EQ(block.View(), u"two");
    EXPECT_EQ(std::u16string(block.units + 3, 252), std::u16string(252, u'\0')) << "nothing of the old text";
}

TEST(StringBlock, AFullBlockHasNoTerminator) {
    StringBlock block;
    block.Assign(std::u16string(255, u'x'));
    EXPECT_EQ(block.count, 255);
    EXPECT_EQ(block.units[254], u'x');
}

TEST(StringBlock, KeepsTheFirst255UnitsOfALongerText) {
    StringBlock block;
    std::u16string text(256, u'x');
    text[254] = u'y';
    text[255] = u'z';
    block.Assign(text);
    EXPECT_EQ(block.count, 255);
    EXPECT_EQ(block.View(), text.substr(0, 255));
}

TEST(StringBlock, ViewStaysInsideTheBlockWhateverItClaims) {
    // In a heap block of its own, so that a read past its end is seen by the sanitizer.
    const auto block = std::make_unique<StringBlock>();
    block->Assign(std::u16string(255, u'x'));
    for (const unsigned claimed : { 255u, 256u, 300u, 65535u }) {
        block->count = std::uint16_t(claimed);
        EXPECT_EQ(std::u16string(block->View()), std::u16string(255, u'x')) << claimed;
    }
}

TEST(StringBlock, AssignTakesAPartOfItsOwnText) {
    StringBlock block;
    block.Assign(u"Quellspire");
    block.Assign(block.View().substr(6));
    EXPECT_EQ(block.View(), u"pire");
    EXPECT_EQ(block.units[4], u'\0');
}

TEST(StringBlock, BlocksAreEqualByCountAndEveryUnit) {
    StringBlock one, other;
    one.Assign(u"same");
    other.Assign(u"same");
    EXPECT_EQ(one, other);
    other.units[200] = u'x';
    EXPECT_NE(one, other);
}

TEST(PathBlock, APathOf2000UnitsKeepsItsFirst1027) {
    std::u16string path(2000, u'p');
    path[1026] = u'q';
    PathBlock block;
    block.Assign(path);
    EXPECT_EQ(block.count, 1027);
    EXPECT_EQ(block.View(), path.substr(0, 1027));
}

} // namespace
} // namespace orvane::records
