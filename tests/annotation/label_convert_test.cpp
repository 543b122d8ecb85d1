#include "annotation/label_convert.h"

#include "label_fixture.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace quelmont {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using testing::SizeIs;

class Converting : public LabelTest {
protected:
    static std::vector<std::string> Texts() {
        std::vector<std::string> texts;
        for (const TextItem& item : Design.TextItems) {
            texts.push_back(item.TextString);
        }
        return texts;
    }
    /// An item as a label's, of unknown origin.
    static TextItem& AddItem(const std::string& text) {
        TextItem& item = Design.TextItems.emplace_back();
        item.TextString = text;
        item.TextFont = "Times";
        item.TextSize = 12;
        return item;
    }
};

TEST_F(Converting, TextItemIsAsTheLabel) {
    MapLabel& label = AddLabel("Oslo", 20, 10);
    label.LabelColour = SolidColor(Rgb(1, 2, 3));
    label.LabelBold = true;
    label.LabelStrikeout = true;
    label.LabelX = 1;
    label.LabelY = 2;
    label.LabelWidth = 3;
    label.LabelAscent = 4;
    label.LabelDescent = 5;
    label.LabelCellHeight = 6;
    AddItem("title");
    LabelConvert();
    ASSERT_THAT(Texts(), ElementsAre("title", "Oslo"));
    const TextItem& item = Design.TextItems[1];
    EXPECT_EQ(item.TextAngle, 0);
    EXPECT_EQ(item.TextFont, "Times");
    EXPECT_EQ(item.TextSize, 12);
    EXPECT_EQ(item.TextColour, SolidColor(Rgb(1, 2, 3)));
    EXPECT_TRUE(item.TextBold && item.TextStrikeout);
    EXPECT_FALSE(item.TextItalic || item.TextUnderline);
    EXPECT_EQ(item.TextX, 1);
    EXPECT_EQ(item.TextY, 2);
    EXPECT_EQ(item.TextWidth, 3);
    EXPECT_EQ(item.TextHeight, 4);
    EXPECT_EQ(item.TextDescent, 5);
    EXPECT_EQ(item.TextCellHeight, 6);
    EXPECT_TRUE(item.TextFromLabel);
    EXPECT_FALSE(item.TextPlaced);
    Design.MapLabels[0].LabelBold = false;
    Design.MapLabels[0].LabelStrikeout = false;
    Design.MapLabels[0].LabelItalic = true;
    Design.MapLabels[0].LabelUnderline = true;
    LabelConvert();
    EXPECT_TRUE(Design.TextItems[1].TextItalic && Design.TextItems[1].TextUnderline);
    EXPECT_FALSE(Design.TextItems[1].TextBold || Design.TextItems[1].TextStrikeout);
}

TEST_F(Converting, WithoutLabelsTheItemsStay) {
    AddItem("title").TextFromLabel = true;
    LabelConvert();
    ConvertLabels(0);
    EXPECT_THAT(Texts(), ElementsAre("title"));
}

TEST_F(Converting, AgainReplacesWhatWasConvertedBefore) {
    AddLabel("Oslo", 20, 10);
    AddLabel("Paris", 20, 10);
    LabelConvert();
    AddItem("title").TextPlaced = true;
    Design.TextItems[0].TextX = 77; // moved by hand
    LabelConvert();
    EXPECT_THAT(Texts(), ElementsAre("title", "Oslo", "Paris"));
    EXPECT_EQ(Design.TextItems[1].TextX, 0);
}

TEST_F(Converting, OnlyTheLabelsOfThePassAreAdded) {
    AddLabel("Of the lobe before", 20, 10);
    AddLabel("Oslo", 20, 10);
    ConvertLabels(1);
    EXPECT_THAT(Texts(), ElementsAre("Oslo"));
    ConvertLabels(2);
    EXPECT_THAT(Texts(), ElementsAre("Oslo"));
}

TEST_F(Converting, MapIsFittedToTheWindowAfterwards) {
    AddLabel("Oslo", 20, 10);
    machine.window.scaleWidth = 15015.0;
    LabelConvert();
    EXPECT_EQ(Design.ClientWidth, 15000);
}

// ---- Erasing.

TEST_F(Converting, ErasingTakesWhatIsMarkedWhateverItSaysNow) {
    AddLabel("Oslo", 20, 10);
    LabelConvert();
    AddItem("title");
    Design.TextItems[0].TextString = "Christiania";
    Design.TextItems[0].TextAngle = 90;
    Design.MapLabels.clear();
    EraseConvertedLabels();
    EXPECT_THAT(Texts(), ElementsAre("title"));
}

TEST_F(Converting, ErasingLeavesTextThatWasPlacedByHand) {
    AddLabel("Oslo", 20, 10);
    AddItem("Oslo").TextPlaced = true;
    EraseConvertedLabels();
    EXPECT_THAT(Texts(), ElementsAre("Oslo"));
}

TEST_F(Converting, ErasingTakesTheItemsOfADesignFileThatAgreeWithALabel) {
    AddLabel("Oslo", 20, 10).LabelColour = SolidColor(Rgb(1, 2, 3));
    const auto oslo = []() -> TextItem& {
        TextItem& item = AddItem("Oslo");
        item.TextColour = Rgb(1, 2, 3); // the same colour without the flag of a stored one
        return item;
    };
    oslo();
    oslo().TextString = "Oslo!";
    oslo().TextAngle = 1;
    oslo().TextFont = "Arial";
    oslo().TextSize = 13;
    oslo().TextColour = Rgb(1, 2, 4);
    oslo().TextX = 500;
    oslo().TextBold = true;
    EraseConvertedLabels();
    EXPECT_THAT(Texts(), ElementsAre("Oslo!", "Oslo", "Oslo", "Oslo", "Oslo"));
}

TEST_F(Converting, ErasingTakesThemToldApartByTheirPartsAndNotByTheirSum) {
    AddLabel("1 x", 20, 10).LabelFont = "A";
    AddItem("x").TextFont = "A 1";
    EraseConvertedLabels();
    EXPECT_THAT(Texts(), ElementsAre("x"));
}

// ---- The items of a draw.

TEST_F(Converting, WhatADrawAddsIsTakenOffAgain) {
    AddItem("title");
    AddLabel("Oslo", 20, 10);
    RememberTextItems();
    ConvertLabels(0);
    EXPECT_THAT(Texts(), SizeIs(2));
    GiveBackTextItems();
    EXPECT_THAT(Texts(), ElementsAre("title"));
    ConvertLabels(0);
    GiveBackTextItems();
    EXPECT_THAT(Texts(), SizeIs(2)) << "outside of a draw nothing is taken off";
}

} // namespace
} // namespace quelmont
