#include "unit/visualizer/VisualizerFixture.h"

#include <vector>

namespace orvane::visualizer {
namespace {

using records::MakeLocalizedString;

class HelpTexture : public VisualizerFixture {
protected:
    struct Row {
        std::u16string text;
        Rect rect;
        bool operator==(const Row&) const = default;
    };

    // What the primary help shows.
    std::vector<Row> Rows() {
        SitesInForce().drawing->texts.clear();
        EXPECT_NE(mVisualizer->CreateHelpTexture("Help Strings", false), nullptr);
        std::vector<Row> rows;
        for (const auto& text : Drawn().texts) rows.push_back({ text.text, text.rect });
        return rows;
    }
};

TEST_F(HelpTexture, HasTheKeyToPressOnTheLeftAndTheSentenceOnTheRight) {
    Start();
    mVisualizer->mHelpStrings = { MakeLocalizedString("Show help", "H"), MakeLocalizedString("Next", "M") };
    const std::vector<Row> expected = {
        { u"H", { 0, 0, 30, 20 } },
        { u"Show help", { 30, 0, 226, 20 } },
        { u"M", { 0, 20, 30, 20 } },
        { u"Next", { 30, 20, 226, 20 } },
    };
    EXPECT_EQ(Rows(), expected);
    EXPECT_EQ(Drawn().texts[0].fontSize, 12.0f);
}

TEST_F(HelpTexture, TheSecondColumnBeginsAt30WhateverTheDisplay) {
    const tests::SetDpi large(120);
    Start();
    mVisualizer->mHelpStrings = { MakeLocalizedString("Show help", "H") };
    const std::vector<Row> expected = { { u"H", { 0, 0, 30, 25 } }, { u"Show help", { 30, 0, 290, 25 } } };
    EXPECT_EQ(Rows(), expected);
    EXPECT_EQ(Drawn().texts[0].fontSize, 15.0f);
}

TEST_F(HelpTexture, TheAlternativeListIsTheAlternativeTextures) {
    Start();
    mVisualizer->mHelpStrings = { MakeLocalizedString("Primary", "P") };
    mVisualizer->mAlternativeHelpStrings = { MakeLocalizedString("Alternative", "A") };
    SitesInForce().drawing->texts.clear();
    const auto texture = mVisualizer->CreateHelpTexture("Alternative Help Strings", true);
    ASSERT_EQ(Drawn().texts.size(), 2u);
    EXPECT_EQ(Drawn().texts[1].text, u"Alternative");
}

TEST_F(HelpTexture, AnEmptyListGivesABlankTexture) {
    Start();
    EXPECT_EQ(Rows(), std::vector<Row>());
    EXPECT_TRUE(IsBlank(*Recorder().FindResource("Help Strings")->image));
}

TEST_F(HelpTexture, ATextThatDoesntConvertDropsOutOfItsColumnAlone) {
    Start();
    mVisualizer->mHelpStrings = { MakeLocalizedString("Show help", "H"), MakeLocalizedString("\xC3(", "M") };
    const std::vector<Row> expected = { { u"H", { 0, 0, 256, 20 } }, { u"M", { 0, 20, 256, 20 } } };
    EXPECT_EQ(Rows(), expected) << "columns of unequal length: the first one alone";
}

TEST_F(HelpTexture, FullFieldsEndInsideTheirOwnEntry) {
    Start();
    const std::string key(256, 'k'), value(8, 'v');
    mVisualizer->mHelpStrings.assign(1, MakeLocalizedString(key, value));
    mVisualizer->mHelpStrings.shrink_to_fit(); // what lies behind the entry isn't the vector's
    const auto rows = Rows();
    ASSERT_EQ(rows.size(), 2u);
    EXPECT_EQ(rows[0].text, std::u16string(8, u'v'));
    EXPECT_EQ(rows[1].text, std::u16string(256, u'k') + std::u16string(8, u'v'));
}

TEST_F(HelpTexture, AListLongerThanNineRowsRunsOffTheBottom) {
    Start();
    for (int row = 0; row < 12; ++row)
        mVisualizer->mHelpStrings.push_back(MakeLocalizedString("Sentence", "K"));
    const auto rows = Rows();
    ASSERT_EQ(rows.size(), 24u);
    EXPECT_EQ(rows[23].rect[1], 220.0) << "below the texture's 183 pixels";
}

TEST_F(HelpTexture, ReplacedHelpStringsGoThroughAddHelpStringOneByOne) {
    Start();
    mVisualizer->mHelpStrings = { MakeLocalizedString("Old", "O") };
    mVisualizer->mAlternativeHelpStrings = { MakeLocalizedString("Old", "O") };
    const records::LocalizedStrings list = { MakeLocalizedString("One", "1"),
                                             MakeLocalizedString(std::string(256, 'k'), "12345678") };
    mVisualizer->ReplaceHelpStrings(list);
    EXPECT_TRUE(mVisualizer->mAlternativeHelpStrings.empty());
    ASSERT_EQ(mVisualizer->mHelpStrings.size(), 2u);
    EXPECT_EQ(records::KeyText(mVisualizer->mHelpStrings[0]), "One");
    EXPECT_EQ(records::ValueText(mVisualizer->mHelpStrings[1]), "12345678");
}

} // namespace
} // namespace orvane::visualizer
