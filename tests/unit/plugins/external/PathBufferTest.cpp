#include "plugins/external/PathBuffer.h"

#include <gtest/gtest.h>

#include <string>

namespace orvane::plugins {
namespace {

TEST(PathBuffer, IsPutTogetherPieceByPiece) {
    PathBuffer path;
    EXPECT_EQ(path.View(), L"");
    EXPECT_TRUE(path.Append(L"C:\\"));
    EXPECT_TRUE(path.Append(L""));
    EXPECT_TRUE(path.Append(L"\u00FC.dll"));
    EXPECT_EQ(path.View(), L"C:\\\u00FC.dll");
    EXPECT_STREQ(path.Text(), L"C:\\\u00FC.dll");
}

TEST(PathBuffer, TakesAPathOf1023UnitsAndRefusesOneOf1024) {
    PathBuffer path;
    EXPECT_FALSE(path.Append(std::wstring(1024, L'x')));
    EXPECT_EQ(path.View(), L"");
    EXPECT_TRUE(path.Append(std::wstring(1023, L'x')));
    EXPECT_EQ(path.View().size(), 1023u);
    EXPECT_EQ(path.Text()[1023], L'\0');
    EXPECT_FALSE(path.Append(L"y"));
    EXPECT_TRUE(path.Append(L""));
}

TEST(PathBuffer, ATextThatDoesNotFitLeavesThePathAsItWas) {
    PathBuffer path;
    EXPECT_TRUE(path.Append(std::wstring(1000, L'x')));
    EXPECT_FALSE(path.Append(std::wstring(24, L'y')));
    EXPECT_EQ(path.View(), std::wstring(1000, L'x'));
    EXPECT_TRUE(path.Append(std::wstring(23, L'y')));
    EXPECT_EQ(path.View().size(), 1023u);
}

TEST(PathBuffer, WhatThePlatformFilledIsFoundAndNeverReadBeyond) {
    PathBuffer path;
    for (std::size_t i = 0; i < PathBuffer::kCapacity; ++i) path.Data()[i] = L'f';
    EXPECT_EQ(path.View().size(), 1023u);
    EXPECT_FALSE(path.Append(L"y"));
    path.Data()[2] = L'\0';
    EXPECT_TRUE(path.Append(L"g"));
    EXPECT_EQ(path.View(), L"ffg");
}

} // namespace
} // namespace orvane::plugins
