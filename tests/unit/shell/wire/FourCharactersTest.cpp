#include "shell/wire/FourCharacters.h"

#include <gtest/gtest.h>

namespace orvane::shell {
namespace {

TEST(FourCharacters, TheFirstCharacterIsTheMostSignificant) {
    EXPECT_EQ(FourCharacters("STR "), 0x53545220u);
    EXPECT_EQ(FourCharacters("FLAT"), 0x464C4154u);
    EXPECT_EQ(FourCharacters("TINF"), 0x54494E46u);
    EXPECT_EQ(FourCharacters("AUFM"), 0x4155464Du);
}

} // namespace
} // namespace orvane::shell
