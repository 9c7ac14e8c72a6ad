// The main of every test program on Windows.
#include "support/windows/EndAtOnce.h"

#include <gtest/gtest.h>

int main(int argc, char** argv) {
    testing::InitGoogleTest(&argc, argv);
    orvane::tests::EndAtOnce(RUN_ALL_TESTS());
}
