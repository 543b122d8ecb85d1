#include "annotation/label_print.h"

#include "core/coordinates.h"
#include "label_fixture.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace quelmont {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using testing::SizeIs;

class Labels : public LabelTest {
protected:
    RecordingSurface& surface = machine.window.surface;

    /// Upper left corner of a label, twips.
    static std::pair<int, int> Corner(std::size_t index = 0) {
        const MapLabel& label = Design.MapLabels.at(index);
        return {label.LabelX, label.LabelY - label.LabelAscent};
    }
    static std::vector<std::string> Kept() {
        std::vector<std::string> texts;
        for (const MapLabel& label : Design.MapLabels) {
            texts.push_back(label.LabelText);
        }
        return texts;
    }
    std::vector<std::string> Drawn() const {
        std::vector<std::string> texts;
        for (const RecordedText& text : surface.Texts()) {
            texts.push_back(text.text);
        }
        return texts;
    }
};

// ---- Places.

TEST_F(Labels, LabelStandsRightOfItsSymbolWithItsUpperEdgeAtThePoint) {
    AddLabel("Oslo", 20, 10);
    LabelPrint();
    EXPECT_EQ(Corner(), std::pair(1000 + 45, 13845 - 2000));
    EXPECT_EQ(Design.MapLabels[0].LabelY, 13845 - 2000 + 240) << "the baseline lies an ascent lower";
    EXPECT_EQ(Design.MapLabels[0].LabelAscent, 240);
    EXPECT_EQ(Design.MapLabels[0].LabelDescent, 60);
    EXPECT_EQ(Design.MapLabels[0].LabelCellHeight, 300);
    EXPECT_EQ(Design.MapLabels[0].LabelWidth, 120);
}

TEST_F(Labels, LabelOfASquareStandsTwoPixelsFarther) {
    for (std::int16_t type = SymbolLine; type <= SymbolTypes; ++type) {
        Design.MapLabels.clear();
        Design.InputFiles.clear();
        AddFile(type);
        AddLabel("Oslo", 20, 10);
        LabelPrint();
        const int radius = IsOpenShape(type) ? 45 - 15 / 2 : 45; // the outline lies inside
        const bool square = type == 5 || type == 6;
        EXPECT_EQ(Corner().first, 1000 + radius + (square ? 30 : 0)) << type;
        EXPECT_EQ(Corner().second, 13845 - 2000) << type;
    }
}

TEST_F(Labels, SymbolIsThatOfTheFileWhateverItsNumber) {
    while (Design.InputFiles.size() < 99) {
        AddFile();
    }
    AddFile(SymbolFilledSquare).Features[1].SymbolSize = 150;
    AddLabel("Far down the list", 20, 10, 100);
    LabelPrint();
    EXPECT_EQ(Corner().first, 1000 + 150 + 30);
    EXPECT_THAT(machine.boxes.asked, IsEmpty());
}

TEST_F(Labels, LabelThatEndsAtTheRightEdgeStays) {
    AddLabel("Oslo", 20, 186.60); // 18660 + 45 + 4 * 120 = 19185
    LabelPrint();
    EXPECT_EQ(Corner().first, 18705);
}

TEST_F(Labels, LabelThatWouldCrossTheRightEdgeEndsAtTheLeftOfItsSymbol) {
    AddLabel("Oslo", 20, 186.61);
    LabelPrint();
    EXPECT_EQ(Corner().first, 18661 - 45 - 480);
}

TEST_F(Labels, LabelThatWouldCrossTheLowerEdgeIsLiftedByItsHeight) {
    AddLabel("Stays", 3.00, 10); // 13545 + 300 = 13845
    AddLabel("Lifted", 2.99, 10);
    LabelPrint();
    EXPECT_EQ(Corner(0).second, 13545);
    EXPECT_EQ(Corner(1).second, 13546 - 300);
}

TEST_F(Labels, LabelOnAnEdgeIsInsideTheWindow) {
    AddLabel("Left", 60, 0);
    AddLabel("Right", 60, 191.85);
    AddLabel("Top", 138.45, 60);
    AddLabel("Bottom", 0, 60);
    LabelPrint();
    EXPECT_EQ(Corner(0), std::pair(45, 13845 - 6000));
    EXPECT_EQ(Corner(1), std::pair(19185 - 45 - 5 * 120, 13845 - 6000));
    EXPECT_EQ(Corner(2), std::pair(6045, 0));
    EXPECT_EQ(Corner(3), std::pair(6045, 13845 - 300));
}

TEST_F(Labels, LabelWithoutRoomOnEitherSideBeginsAtTheLeftEdge) {
    AddLabel(std::string(155, 'x'), 60, 10); // 155 * 120 = 18600: 1045 + 18600 is beyond
    AddLabel(std::string(10'000, 'x'), 60, 100);
    AddLabel("Oslo", 60, 191.85);
    LabelPrint();
    EXPECT_EQ(Corner(0).first, 0);
    EXPECT_EQ(Corner(1).first, 0);
    EXPECT_EQ(Corner(2).first, 19185 - 45 - 480) << "has room on the left";
}

TEST_F(Labels, LabelOutsideTheWindowGoesThroughTheSameSteps) {
    AddLabel("Above", 150, 10);
    AddLabel("Right", 20, 300);
    LabelPrint();
    EXPECT_EQ(Corner(0), std::pair(1045, 13845 - 15000));
    EXPECT_EQ(Corner(1), std::pair(30000 - 45 - 600, 13845 - 2000));
    EXPECT_THAT(Drawn(), ElementsAre("Above", "Right"));
}

TEST_F(Labels, PlaceIsRoundedToTheNearestTwip) {
    AddLabel("Oslo", 20.004, 10.004);
    AddLabel("Paris", 20.006, 10.006);
    LabelPrint();
    EXPECT_EQ(Corner(0), std::pair(1000 + 45, 13845 - 2000));
    EXPECT_EQ(Corner(1), std::pair(1001 + 45, 13845 - 2001));
}

TEST_F(Labels, LabelWithoutAPlaceOnTheMapIsTakenOut) {
    AddLabel("North Pole", 90, 10);
    AddLabel("South Pole", -90, 10);
    AddLabel("Oslo", 60, 10);
    Design.ProjNum = ProjConformalConic; // which has its other pole at infinity
    Design.ConeConstant = 0.5;
    Design.ConicF = 1.0;
    LabelPrint();
    EXPECT_THAT(Kept(), ElementsAre("North Pole", "Oslo"));
    EXPECT_THAT(Drawn(), ElementsAre("North Pole", "Oslo"));
    EXPECT_THAT(machine.boxes.asked, IsEmpty());
}

TEST_F(Labels, LabelsBeforeTheFirstStayWhereTheyAre) {
    AddLabel("Of the lobe before", 20, 10).LabelX = 7;
    AddLabel("Oslo", 20, 10);
    LabelPrint(1);
    EXPECT_EQ(Design.MapLabels[0].LabelX, 7);
    EXPECT_EQ(Design.MapLabels[1].LabelX, 1045);
    EXPECT_THAT(Drawn(), ElementsAre("Oslo"));
}

TEST_F(Labels, PrintedLabelsArePlacedInTheWindow) {
    AddLabel("Oslo", 20, 186.61);
    Design.LabelsVisible = false;
    Design.PrintingNow = true;
    Design.ClientWidth = 9360;
    Design.ClientHeight = 6754;
    Design.ScreenOriginX = 1.0;
    Design.ScreenScaleX = 2.0;
    Design.ScreenOriginY = 3.0;
    Design.ScreenScaleY = 4.0;
    LabelPrint();
    EXPECT_EQ(Corner(), std::pair(18661 - 45 - 480, 13845 - 2000));
    EXPECT_EQ(Design.ClientWidth, 9360) << "the page's again";
    EXPECT_EQ(Design.ClientHeight, 6754);
    EXPECT_EQ(Design.ScreenOriginX, 1.0);
    EXPECT_EQ(Design.ScreenScaleX, 2.0);
    EXPECT_EQ(Design.ScreenOriginY, 3.0);
    EXPECT_EQ(Design.ScreenScaleY, 4.0);
}

// ---- Drawing.

TEST_F(Labels, LabelIsDrawnInItsFontAndColourNotTurned) {
    MapLabel& label = AddLabel("Oslo", 20, 10);
    label.LabelFont = "Courier";
    label.LabelColour = SolidColor(Rgb(255, 0, 0));
    label.LabelBold = true;
    label.LabelUnderline = true;
    Design.CurrentTextAngle = "45";
    LabelPrint();
    ASSERT_THAT(surface.Texts(), SizeIs(1));
    const RecordedText& text = surface.Texts()[0];
    EXPECT_EQ(text.anchor, (SurfacePoint{70, 806})) << "1045 / 15, 12085 / 15, rounded";
    EXPECT_EQ(text.text, "Oslo");
    EXPECT_EQ(text.color, 0x0000FFU);
    EXPECT_EQ(text.font.face, "Courier");
    EXPECT_EQ(text.font.font.height, -16);
    EXPECT_EQ(text.font.font.escapement, 0);
    EXPECT_EQ(text.font.font.weight, 700);
    EXPECT_TRUE(text.font.font.underline);
    EXPECT_FALSE(text.font.font.italic || text.font.font.strikeout);
}

TEST_F(Labels, FilesHaveTheirOwnFonts) {
    AddLabel("Oslo", 20, 10);
    MapLabel& large = AddLabel("Paris", 40, 20);
    large.LabelFont = "Courier";
    large.LabelSize = 24; // 32 pixels: 480, 120, 600 and 240 twips
    large.LabelItalic = true;
    AddLabel("Rome", 50, 30);
    LabelPrint();
    EXPECT_EQ(Design.MapLabels[0].LabelCellHeight, 300);
    EXPECT_EQ(Design.MapLabels[1].LabelCellHeight, 600);
    EXPECT_EQ(Design.MapLabels[1].LabelWidth, 240);
    EXPECT_EQ(Design.MapLabels[2].LabelCellHeight, 300);
    ASSERT_THAT(surface.Texts(), SizeIs(3));
    EXPECT_EQ(surface.Texts()[1].font.face, "Courier");
    EXPECT_EQ(surface.Texts()[1].font.font.height, -32);
    EXPECT_TRUE(surface.Texts()[1].font.font.italic);
    EXPECT_EQ(surface.Texts()[2].font.face, "Times");
    EXPECT_FALSE(surface.Texts()[2].font.font.italic);
}

TEST_F(Labels, HiddenLabelsArePlacedAndNotDrawn) {
    AddLabel("Oslo", 20, 10);
    Design.LabelsVisible = false;
    LabelPrint();
    EXPECT_EQ(Corner(), std::pair(1045, 11845));
    EXPECT_THAT(Drawn(), IsEmpty());
}

TEST_F(Labels, NoTextIsLeftInHand) {
    AddLabel("Oslo", 20, 10);
    LabelPrint();
    EXPECT_EQ(Design.CurrentText, "");
    surface.FailAt(SurfaceOp::TextOutA, 0);
    LabelPrint();
    EXPECT_EQ(Design.CurrentText, "");
}

TEST_F(Labels, WithoutLabelsNothingIsTouched) {
    Design.CurrentText = "in hand";
    Design.CurrentSymbolType = SymbolCross;
    LabelPrint();
    EXPECT_EQ(Design.CurrentText, "in hand");
    EXPECT_EQ(Design.CurrentSymbolType, SymbolCross);
    EXPECT_THAT(machine.fonts.asked, IsEmpty());
    EXPECT_EQ(surface.Text(), "");
}

TEST_F(Labels, AreDrawnAgainWhereTheyWere) {
    AddLabel("Oslo", 20, 10).LabelX = 150;
    Design.MapLabels[0].LabelY = 300;
    DrawLabels();
    ASSERT_THAT(surface.Texts(), SizeIs(1));
    EXPECT_EQ(surface.Texts()[0].anchor, (SurfacePoint{10, 20}));
    EXPECT_THAT(machine.fonts.asked, IsEmpty()) << "nothing is measured";
    Design.LabelsVisible = false;
    DrawLabels();
    EXPECT_THAT(surface.Texts(), SizeIs(1));
}

TEST_F(Labels, EscapeIsHeardEvery800Labels) {
    for (int i = 0; i < 2000; ++i) {
        AddLabel("x", 20, 10);
    }
    LabelPrint();
    EXPECT_EQ(machine.pump.calls, 2);
    EXPECT_EQ(machine.window.refreshes, 2);
    EXPECT_THAT(surface.Texts(), SizeIs(2000));
    surface.Forget();
    machine.pump.At(3, [] { Design.PlotStopReason = StopReason::Escape; });
    LabelPrint();
    EXPECT_THAT(surface.Texts(), SizeIs(800));
    EXPECT_EQ(Design.CurrentText, "");
    EXPECT_THAT(Kept(), SizeIs(2000)) << "all were placed";
}

TEST_F(Labels, AFontIsMeasuredOnceForTheLabelsThatHaveIt) {
    for (int i = 0; i < 3; ++i) {
        AddLabel("x", 20, 10);
    }
    Design.LabelsVisible = false;
    LabelPrint();
    EXPECT_THAT(machine.fonts.asked, SizeIs(1 + 3)) << "the font, and the width of each label";
}

// ---- Failures.

TEST_F(Labels, FontWithoutMeasuresIsReportedAndItsLabelsHaveNone) {
    AddLabel("Oslo", 20, 10);
    AddLabel("Paris", 30, 20);
    machine.fonts.metricsFail = true;
    machine.fonts.extentFails = true;
    LabelPrint();
    EXPECT_THAT(machine.boxes.Taken(),
                ElementsAre(AskedBox{"Windows API Error", "GetTextMetrics error in LabelPrint"}));
    EXPECT_EQ(Corner(1), std::pair(2045, 13845 - 3000));
    EXPECT_EQ(Design.MapLabels[1].LabelCellHeight, 0);
    EXPECT_THAT(Drawn(), ElementsAre("Oslo", "Paris"));
}

TEST_F(Labels, FontThatFitsNoFieldEndsThePlacing) {
    AddLabel("Oslo", 20, 10);
    AddLabel("Huge", 20, 10).LabelSize = 32767;
    AddLabel("Paris", 30, 20);
    LabelPrint();
    EXPECT_THAT(machine.boxes.Taken(), ElementsAre(AskedBox{"Error in LabelPrint", "Error: Overflow"}));
    EXPECT_THAT(Kept(), ElementsAre("Oslo"));
    EXPECT_THAT(Drawn(), ElementsAre("Oslo"));
}

TEST_F(Labels, LabelOfAFileThatIsNotThereEndsThePlacing) {
    AddLabel("Oslo", 20, 10);
    AddLabel("Lost", 20, 10, 2);
    AddLabel("Lost too", 20, 10, 0);
    LabelPrint();
    EXPECT_THAT(machine.boxes.Taken(),
                ElementsAre(AskedBox{"Error in LabelPrint", "Error: Subscript out of range"}));
    EXPECT_THAT(Kept(), ElementsAre("Oslo"));
}

TEST_F(Labels, LabelBeyondAllTwipsEndsThePlacing) {
    AddLabel("Oslo", 20, 10);
    AddLabel("Far", 20, 1e8);
    LabelPrint();
    EXPECT_THAT(machine.boxes.Taken(), ElementsAre(AskedBox{"Error in LabelPrint", "Error: Overflow"}));
    EXPECT_THAT(Kept(), ElementsAre("Oslo"));
}

TEST_F(Labels, RefusedTextIsReportedAndTheNextOneGoesOn) {
    AddLabel("Oslo", 20, 10);
    AddLabel("Paris", 30, 20);
    surface.FailAt(SurfaceOp::TextOutA, 1);
    LabelPrint();
    EXPECT_THAT(machine.boxes.Taken(),
                ElementsAre(AskedBox{"Windows API Error", "TextOut error(1) in PrintRotatedText"}));
    EXPECT_EQ(surface.Count(SurfaceOp::TextOutA), 2);
    EXPECT_EQ(surface.LiveObjects(), 0) << "no font is left";
}

} // namespace
} // namespace quelmont
