#include "output/print_text.h"

#include "output_fixture.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace quelmont {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class WindowText : public OutputTest {
protected:
    static TextItem Item(const std::string& text) {
        TextItem item;
        item.TextString = text;
        item.TextFont = "Arial";
        item.TextSize = 12;
        item.TextColour = 0x02804020; // with the flag of a stored colour
        item.TextX = 1500;
        item.TextY = 750;
        return item;
    }

    static void InHand(const std::string& text, const std::string& angle) {
        Design.CurrentText = text;
        Design.CurrentTextAngle = angle;
        Design.CurrentLook = {.FontName = "Arial", .FontSize = 12};
    }
};

TEST_F(WindowText, TextStandsOnItsBaselineAtItsPixel) {
    const SurfaceHandle fontBefore = surface.CurrentFontHandle();
    Design.TextItems = {Item("Nuuk")};
    PrintText();
    // 12 points are 240 twips, 16 pixels; fields are height, width, two angles, weight, three styles,
    // character set, precisions of output and clipping, quality, pitch.
    EXPECT_EQ(surface.Text(), "CreateFontIndirectA(-16, 0, 0, 0, 400, 0, 0, 0, 1, 0, 16, 0, 0, 4, 'Arial')\n"
                              "SelectObject(4)\n"
                              "SetTextAlign(24)\n"
                              "SetTextColor(8405024, 0)\n"
                              "TextOutA(100, 50, 'Nuuk')\n"
                              "SetTextColor(0, 8405024)\n"
                              "SelectObject(1000000000)\n"
                              "DeleteObject(4)\n");
    EXPECT_EQ(surface.CurrentFontHandle(), fontBefore);
    EXPECT_EQ(surface.LiveObjects(), 0);
    EXPECT_THAT(machine.boxes.asked, IsEmpty());
}

/// Text of a window of 19200 twips on a map of 6.5 inches, at 300 dots with strips of 71 dots.
class PageText : public WindowText {
protected:
    PageText() {
        machine.window.scaleWidth = 19200.0;
        Design.PrintUnitTwips = 1440;
        Design.PrintWidth = 6.5F;
        Design.PrintLeft = 1.0F;
        Design.PrintTop = 2.0F;
        OutputNow.PrinterTwipsPerPixelX = 4.8F;
        OutputNow.PrinterTwipsPerPixelY = 4.8F;
        OutputNow.page.PrinterOffsetX = 71.0F / 300.0F;
        OutputNow.page.PrinterOffsetY = 71.0F / 300.0F;
        Design.PrintingNow = true;
    }
};

TEST_F(PageText, StandsAtItsPlaceOnTheMapAndKeepsItsShareOfIt) {
    Design.TextItems = {Item("Nuuk")};
    PrintText();
    // The map is 0.4875 times as large as in the window. x: 1099.2 + 731.25 twips, 1830, 381.25 dots;
    // y: 2539.2 + 365.625, 2905, 605.2. 12 points: 117 twips, 24.4 dots.
    ASSERT_EQ(surface.Texts().size(), 1U);
    EXPECT_EQ(surface.Texts()[0].anchor, (SurfacePoint{381, 605}));
    EXPECT_EQ(surface.Texts()[0].font.font.height, -24);
    EXPECT_EQ(surface.Texts()[0].align, AlignBaseline);
}

TEST_F(PageText, IsTurnedTheSameWayAsInTheWindow) {
    InHand("turned", "30");
    PrintRotatedText();
    EXPECT_EQ(surface.Texts()[0].font.font.escapement, 300);
    EXPECT_EQ(surface.Texts()[0].font.font.orientation, 300);
}

TEST_F(PageText, ReachesTheFarEndOfALargePaper) {
    // 46 inches are 66240 twips.
    Design.PrintWidth = 44.0F;
    TextItem item = Item("far");
    item.TextX = 19200;
    Design.TextItems = {item};
    PrintText();
    EXPECT_THAT(machine.boxes.asked, IsEmpty());
    // 1099.2 + 63360 twips are 64459, 13429 dots.
    EXPECT_EQ(surface.Texts()[0].anchor.x, 13429);
}

TEST_F(PageText, TooSmallToBeReadIsStillOfOneDot) {
    Design.PrintWidth = 0.05F;
    InHand("tiny", "0");
    PrintRotatedText();
    EXPECT_EQ(surface.Texts()[0].font.font.height, -1) << "0 would be a height of the printer's choice";
}

TEST_F(PageText, FailureOfThePageIsReported) {
    InHand("a", "0");
    surface.FailAt(SurfaceOp::CreateFontIndirectA, 1);
    surface.FailAt(SurfaceOp::TextOutA, 1);
    PrintRotatedText();
    EXPECT_THAT(machine.boxes.Taken(),
                ElementsAre(AskedBox{"Windows API Error", "CreateFontIndirect error(1) in PrintRotatedText"},
                            AskedBox{"Windows API Error", "TextOut error(1) in PrintRotatedText"}));
    surface.FailAt(SurfaceOp::DeleteObject, 1);
    PrintRotatedText();
    EXPECT_THAT(machine.boxes.Taken(),
                ElementsAre(AskedBox{"Windows API Error", "DeleteObject error(2) in PrintRotatedText"}));
}

TEST_F(WindowText, PositionsAreRoundedToTheNearestPixelTiesToEven) {
    TextItem item = Item("a");
    item.TextX = 22; // 1.47
    item.TextY = -23;
    Design.TextItems = {item};
    Design.TwipsPerPixelY = 10.0F; // -2.3
    item.TextX = 38;               // 2.53
    item.TextY = 25;               // 2.5
    Design.TextItems.push_back(item);
    PrintText();
    ASSERT_EQ(surface.Texts().size(), 2U);
    EXPECT_EQ(surface.Texts()[0].anchor, (SurfacePoint{1, -2}));
    EXPECT_EQ(surface.Texts()[1].anchor, (SurfacePoint{3, 2}));
}

TEST_F(WindowText, HeightIsOfCharactersInPixelsOfTheWindow) {
    struct Case {
        float twipsPerPixel;
        std::int32_t points;
        std::int32_t height;
    };
    for (const Case& c : {Case{15.0F, 6, -8}, Case{15.0F, 10, -13}, Case{15.0F, 72, -96},
                          Case{10.0F, 10, -20}, Case{7.5F, 10, -27}, Case{7.5F, 72, -192}}) {
        Design.TwipsPerPixelY = c.twipsPerPixel;
        const SurfaceFont font = WindowFont({.FontName = "Arial", .FontSize = c.points});
        EXPECT_EQ(font.height, c.height) << c.points << " points at " << c.twipsPerPixel;
    }
}

TEST_F(WindowText, AnglesAreTenthsOfADegreeCounterClockwise) {
    for (const auto& [digits, tenths] : {std::pair{"45", 450}, std::pair{"007", 70}, std::pair{"359", 3590},
                                         std::pair{"", 0}, std::pair{"0", 0}}) {
        InHand("a", digits);
        PrintRotatedText();
        EXPECT_EQ(surface.Texts().back().font.font.escapement, tenths) << digits;
        EXPECT_EQ(surface.Texts().back().font.font.orientation, tenths) << digits;
    }
}

TEST_F(WindowText, EachStyleReachesTheFont) {
    TextLook look{.FontName = "Times", .FontSize = 12};
    EXPECT_EQ(WindowFont(look).weight, 400);
    EXPECT_EQ(WindowFont(look).faceName, "Times");
    look.FontBold = true;
    EXPECT_EQ(WindowFont(look).weight, 700);
    look.FontItalic = true;
    EXPECT_TRUE(WindowFont(look).italic);
    EXPECT_FALSE(WindowFont(look).underline);
    look.FontUnderline = true;
    EXPECT_TRUE(WindowFont(look).underline);
    EXPECT_FALSE(WindowFont(look).strikeout);
    look.FontStrikeout = true;
    EXPECT_TRUE(WindowFont(look).strikeout);
}

TEST_F(WindowText, ItemsComeInTheirOrderEachInItsOwnFontAndColour) {
    Design.TextItems = {Item("one"), Item(""), Item("three")};
    Design.TextItems[1].TextAngle = 90;
    Design.TextItems[2].TextFont = "Times";
    Design.TextItems[2].TextSize = 24;
    Design.TextItems[2].TextColour = 0xFF;
    PrintText();
    const std::vector<RecordedText>& texts = surface.Texts();
    ASSERT_EQ(texts.size(), 3U);
    EXPECT_EQ(texts[0].text, "one");
    EXPECT_EQ(texts[1].text, "");
    EXPECT_EQ(texts[1].font.font.escapement, 900);
    EXPECT_EQ(texts[1].color, 0x804020U);
    EXPECT_EQ(texts[2].text, "three");
    EXPECT_EQ(texts[2].font.face, "Times");
    EXPECT_EQ(texts[2].font.font.height, -32);
    EXPECT_EQ(texts[2].font.font.escapement, 0);
    EXPECT_EQ(texts[2].color, 0xFFU);
}

TEST_F(WindowText, NoTextIsInHandAfterwards) {
    InHand("in hand", "0");
    PrintText();
    EXPECT_EQ(Design.CurrentText, "") << "without any item too";
    Design.TextItems = {Item("a")};
    Design.TwipsPerPixelX = 0.0F;
    PrintText();
    EXPECT_EQ(Design.CurrentText, "") << "after a failure";
}

TEST_F(WindowText, ItsTextIsDrawnAsItStands) {
    const std::string text("a\0b\r\n\"\xE2\x80\x8F%1\t", 13);
    InHand(text, "0");
    PrintRotatedText();
    EXPECT_EQ(surface.Texts().at(0).text, text);
}

TEST_F(WindowText, FontThatCannotBeMadeLeavesTheTextInTheFontThatIsThere) {
    InHand("a", "0");
    surface.FailAt(SurfaceOp::CreateFontIndirectA, 0);
    PrintRotatedText();
    EXPECT_THAT(
        machine.boxes.asked,
        ElementsAre(AskedBox{"Windows API Error", "CreateFontIndirect error(1) in PrintRotatedText"}));
    EXPECT_EQ(surface.Texts().size(), 1U);
    EXPECT_EQ(surface.Count(SurfaceOp::SelectObject), 0);
    EXPECT_EQ(surface.TextColor(), 0U);
}

TEST_F(WindowText, TextThatCannotBeDrawnGivesItsFontBack) {
    InHand("a", "0");
    surface.FailAt(SurfaceOp::TextOutA, 0);
    PrintRotatedText();
    EXPECT_THAT(machine.boxes.asked,
                ElementsAre(AskedBox{"Windows API Error", "TextOut error(1) in PrintRotatedText"}));
    EXPECT_EQ(surface.LiveObjects(), 0);
    EXPECT_EQ(surface.TextColor(), 0U);
}

TEST_F(WindowText, FontThatCannotBeFreedIsReported) {
    InHand("a", "0");
    surface.FailAt(SurfaceOp::DeleteObject, 0);
    PrintRotatedText();
    EXPECT_THAT(machine.boxes.asked,
                ElementsAre(AskedBox{"Windows API Error", "DeleteObject error(2) in PrintRotatedText"}));
}

TEST_F(WindowText, ItemBehindOneThatFailsIsDrawn) {
    Design.TextItems = {Item("far"), Item("near")};
    Design.TwipsPerPixelX = 1e-7F; // 15000 million pixels
    Design.TextItems[1].TextX = 0;
    PrintText();
    EXPECT_THAT(machine.boxes.asked, ElementsAre(AskedBox{"Error in PrintRotatedText", "Error: Overflow"}));
    ASSERT_EQ(surface.Texts().size(), 1U);
    EXPECT_EQ(surface.Texts()[0].text, "near");
}

} // namespace
} // namespace quelmont
