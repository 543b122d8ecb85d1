#include "surround/grid_labels.h"

#include "core/map_design.h"
#include "core/standard_colors.h"
#include "graticule/grid_fixture.h"
#include "graticule/grid_texts.h"
#include "output/draw_target.h"
#include "output/scale_screen.h"

#include <gmock/gmock.h>

namespace quelmont {
namespace {

using testing::IsEmpty;
using testing::SizeIs;

/// The default map with labels at its frame, or none, in a window whose surface records.
class GridSurrounds : public FreshProgramTest {
protected:
    GridSurrounds() {
        Surround() = &surround;
        Start(GridLabelPlace::Frame);
    }
    void Start(GridLabelPlace place) {
        StartDesign(ProjEquirectangular);
        Design.GridLabels.place = place;
        PrepareDesign();
        SelectDevice();
    }
    /// Texts since the last call.
    std::size_t TextsDrawn() {
        const std::size_t texts = machine.window.surface.Texts().size() - before;
        before = machine.window.surface.Texts().size();
        return texts;
    }

    GridSurround surround;
    std::size_t before = 0; ///< texts of the surface that were counted already
};

TEST_F(GridSurrounds, WithoutLabelsLeaveTheFitAsItIs) {
    const double scale = Design.ScreenScaleX;
    const double logical = Design.LogicalScale;
    Start(GridLabelPlace::None);
    const double plain = Design.ScreenScaleX;
    const double plainLogical = Design.LogicalScale;
    EXPECT_LT(scale, plain) << "labels need room";
    EXPECT_LT(logical, plainLogical) << "in files too";
    EXPECT_NEAR(scale / plain, logical / plainLogical, 1e-12);
    Surround() = nullptr;
    ScaleScreen();
    EXPECT_EQ(Design.ScreenScaleX, plain);
    EXPECT_EQ(Design.LogicalScale, plainLogical);
    Start(GridLabelPlace::Lines);
    EXPECT_EQ(Design.ScreenScaleX, plain);
}

TEST_F(GridSurrounds, AreDrawnAsTextsAndTakeNothingAlong) {
    const std::size_t labels = GridLabelsOfDesign().size();
    ASSERT_GT(labels, 20U);
    TextsDrawn();
    surround.DrawTexts();
    EXPECT_EQ(TextsDrawn(), labels);
    EXPECT_EQ(Design.CurrentText, "");
    EXPECT_THAT(Design.TextItems, IsEmpty());
}

TEST_F(GridSurrounds, GoBehindTheTextItemsForAnExport) {
    Design.TextItems.push_back({.TextString = "Title", .TextFont = "Arial", .TextSize = 10});
    const std::size_t labels = GridLabelsOfDesign().size();
    surround.AddTexts();
    ASSERT_THAT(Design.TextItems, SizeIs(labels + 1));
    EXPECT_EQ(Design.TextItems[0].TextString, "Title");
    EXPECT_EQ(Design.TextItems[1].TextFont, "Arial");
    EXPECT_EQ(Design.TextItems[1].TextSize, 10);
}

TEST_F(GridSurrounds, CanBeReadOnADarkBackground) {
    Design.Fonts[GridLabelFontSlot].FontColour = SolidColor(Rgb(0, 0, 0));
    Design.BackColor = SolidColor(Rgb(16, 24, 48));
    EXPECT_EQ(GridLabelsOfDesign().at(0).item.TextColour, SolidColor(Rgb(255, 255, 255)));
    Design.Fonts[GridLabelFontSlot].FontColour = SolidColor(Rgb(255, 255, 0));
    EXPECT_EQ(GridLabelsOfDesign().at(0).item.TextColour, SolidColor(Rgb(255, 255, 0)))
        << "a colour that can be told from it stays";
    Design.BackColor = SolidColor(Rgb(255, 255, 255));
    Design.Fonts[GridLabelFontSlot].FontColour = SolidColor(Rgb(192, 192, 192));
    EXPECT_EQ(GridLabelsOfDesign().at(0).item.TextColour, SolidColor(Rgb(192, 192, 192)))
        << "though it is pale";
    Design.Fonts[GridLabelFontSlot].FontColour = SolidColor(Rgb(0, 0, 0));
    EXPECT_EQ(GridLabelsOfDesign().at(0).item.TextColour, SolidColor(Rgb(0, 0, 0)));
}

TEST_F(GridSurrounds, DrawAgainWhatTheLastDrawHadAndTextsLeaveRoomFor) {
    surround.DrawTexts();
    const std::size_t labels = TextsDrawn();
    surround.DrawTextsAgain();
    EXPECT_EQ(TextsDrawn(), labels);
    const GridLabel covered = GridLabelsOfDesign().front();
    Design.TextItems.push_back(covered.item);
    surround.DrawTextsAgain();
    EXPECT_EQ(TextsDrawn(), labels - 1);
    Design.TextItems.clear();
    Start(GridLabelPlace::None);
    TextsDrawn();
    surround.DrawTextsAgain();
    EXPECT_EQ(TextsDrawn(), labels) << "the picture is still the old one";
    surround.DrawTexts();
    surround.DrawTextsAgain();
    EXPECT_EQ(TextsDrawn(), 0U);
}

TEST_F(GridSurrounds, KeepThePageOfAPrint) {
    Design.PrintingNow = true;
    Design.ClientWidth = 11111;
    Design.ScreenScaleX = 22.0;
    const auto labels = GridLabelsOfDesign();
    EXPECT_EQ(Design.ClientWidth, 11111);
    EXPECT_EQ(Design.ScreenScaleX, 22.0);
    Design.PrintingNow = false;
    ScaleScreen();
    const auto onWindow = GridLabelsOfDesign();
    ASSERT_EQ(labels.size(), onWindow.size());
    EXPECT_EQ(labels[0].item.TextX, onWindow[0].item.TextX);
}

TEST_F(GridSurrounds, OfANumberThatNoTextItemHoldsAreAFailureWithAMessage) {
    Design.Fonts[GridLabelFontSlot].FontSize = 40000;
    surround.AddTexts();
    EXPECT_THAT(Design.TextItems, IsEmpty());
    for (const AskedBox& box : machine.boxes.Taken()) {
        EXPECT_EQ(box.title, "Error in GridLabels");
    }
}

} // namespace
} // namespace quelmont
