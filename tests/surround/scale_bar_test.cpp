#include "surround/scale_bar.h"

#include "core/map_design.h"
#include "graticule/grid_fixture.h"
#include "graticule/grid_texts.h"
#include "surround/frame_lines.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <numbers>

namespace quelmont {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using testing::SizeIs;

std::vector<std::string> TextsOf(const ScaleBar& bar) {
    std::vector<std::string> texts;
    for (const TextItem& item : bar.texts) {
        texts.push_back(item.TextString);
    }
    return texts;
}

/// A window of 1280 by 924 pixels of 15 twips, and letters of 13 pixels whose digits are 10.4 high.
class ScaleBars : public FreshProgramTest {
protected:
    ScaleBars() {
        machine.window.scaleWidth = 19200.0;
        machine.window.scaleHeight = 13860.0;
    }
    static void Rectangle(std::int16_t projNum, int north, int south, int west, int east) {
        StartDesign(projNum);
        Design.GridText[GridTextNorth] = LatitudeText(north * 3600);
        Design.GridText[GridTextSouth] = LatitudeText(south * 3600);
        Design.GridText[GridTextWest] = LongitudeText(west * 3600);
        Design.GridText[GridTextEast] = LongitudeText(east * 3600);
        Design.GridText[GridTextLatSpacing] = ArcText(10 * 3600);
        Design.GridText[GridTextLonSpacing] = ArcText(10 * 3600);
        Design.Fonts[GridLabelFontSlot].FontSize = 10;
        Design.Frame.unit = ScaleBarUnit::Kilometres;
        PrepareDesign();
    }
    static std::optional<ScaleBar> Plan(double share, const std::vector<TextBox>& texts = {}) {
        const AreaFit fit = FitOfShare(share);
        return PlanScaleBar(fit, OutlineOnArea(OutlineOfMap(), fit), texts, 0.0);
    }
};

TEST_F(ScaleBars, HasARoundLengthOfAQuarterOfTheMapAtMost) {
    // The equator of a world 1280 pixels wide: 40 030 kilometres, of which 24 heights of a digit, 250 pixels,
    // show 7800.
    Rectangle(ProjMercator, 60, -60, -180, 180);
    const auto bar = Plan(1.0);
    ASSERT_TRUE(bar);
    EXPECT_EQ(bar->value, 5000.0);
    EXPECT_EQ(bar->km, 5000.0);
    EXPECT_NEAR((bar->right.x - bar->left.x) / 15.0, 1279.0 * 5000.0 / (2.0 * std::numbers::pi * 6371.0),
                0.01);
    EXPECT_EQ(bar->left.y, bar->right.y);
    EXPECT_THAT(TextsOf(*bar),
                ElementsAre("0", "1000", "2000", "3000", "4000", "5000 km", "Scale along the equator"));
}

TEST_F(ScaleBars, ANarrowMapHasTheShortestRoundLengthThatCanBeRead) {
    // 93 pixels for ten degrees; a quarter of them is less than four heights of a digit, 42 pixels.
    Rectangle(ProjMercator, 70, 0, 10, 20);
    const auto bar = Plan(1.0);
    ASSERT_TRUE(bar);
    EXPECT_EQ(bar->value, 500.0);
    EXPECT_EQ(bar->texts.back().TextString, "Scale at 35\u00B0N");
    // Mercator's ordinate of 70 degrees is 1.735415; its scale is that of the secant.
    const double pixelsPerRadian = 923.0 / 1.735415;
    EXPECT_NEAR((bar->right.x - bar->left.x) / 15.0,
                500.0 / 6371.0 / std::cos(35.0 * std::numbers::pi / 180.0) * pixelsPerRadian, 0.01);
}

TEST_F(ScaleBars, MeasuresInTheUnitOfTheChoice) {
    Rectangle(ProjMercator, 60, -60, -180, 180);
    Design.Frame.unit = ScaleBarUnit::NauticalMiles;
    auto bar = Plan(1.0);
    ASSERT_TRUE(bar);
    EXPECT_EQ(bar->value, 2000.0) << "21 600 go round";
    EXPECT_NEAR((bar->right.x - bar->left.x) / 15.0, 1279.0 * 2000.0 / 21600.0, 0.01);
    EXPECT_EQ(bar->texts.at(bar->texts.size() - 2).TextString, "2000 nmi");
    Design.Frame.unit = ScaleBarUnit::StatuteMiles;
    bar = Plan(1.0);
    ASSERT_TRUE(bar);
    EXPECT_EQ(bar->value, 2000.0);
    EXPECT_NEAR(bar->km, 2000.0 * 1.609344, 1e-3);
    EXPECT_EQ(bar->texts.at(bar->texts.size() - 2).TextString, "2000 mi");
    Design.Frame.unit = ScaleBarUnit::None;
    EXPECT_FALSE(Plan(1.0));
}

TEST_F(ScaleBars, HasDecimalsOnMapsOfAFewMetres) {
    StartDesign(ProjUtm);
    Design.UtmText[UtmTextNorth] = "05600400";
    Design.UtmText[UtmTextEast] = "0300500";
    Design.UtmText[UtmTextNorthingSpacing] = "00000100";
    Design.UtmText[UtmTextEastingSpacing] = "0000100";
    Design.Frame.unit = ScaleBarUnit::Kilometres;
    PrepareDesign();
    const auto bar = Plan(0.8);
    ASSERT_TRUE(bar);
    EXPECT_EQ(bar->value, 0.1) << "of 500 metres a quarter is 125";
    EXPECT_EQ(bar->texts.at(bar->texts.size() - 2).TextString, "0.1 km");
}

TEST_F(ScaleBars, StandsOnThePageBesideTheMapAndItsTexts) {
    Rectangle(ProjMollweide, 90, -90, -180, 180);
    auto bar = Plan(1.0);
    ASSERT_TRUE(bar);
    const auto onPage = [](const ScaleBar& b) {
        return b.box.middle.x - b.box.halfWidth > 0.0 &&
               b.box.middle.x + b.box.halfWidth < Design.ClientWidth &&
               b.box.middle.y - b.box.halfHeight > 0.0 &&
               b.box.middle.y + b.box.halfHeight < Design.ClientHeight;
    };
    EXPECT_TRUE(onPage(*bar));
    // In its way a text: the bar goes elsewhere.
    const TextBox text = bar->box;
    bar = Plan(1.0, {text});
    ASSERT_TRUE(bar);
    EXPECT_TRUE(onPage(*bar));
    EXPECT_FALSE(Overlap(bar->box, text));
    // Everywhere a text: there is none.
    EXPECT_FALSE(Plan(1.0, {{.middle = {9600.0, 6900.0}, .halfWidth = 9600.0, .halfHeight = 6900.0}}));
}

TEST_F(ScaleBars, HasNoPlaceBesideAMapThatFillsThePage) {
    machine.window.scaleHeight = 19200.0 / 2.0 + 15.0;
    Rectangle(ProjEquirectangular, 90, -90, -180, 180);
    Design.StdParNorth = 0.0;
    Design.CosStdPar = 1.0;
    Design.MapXMax = 2.0 * std::numbers::pi;
    EXPECT_FALSE(Plan(1.0));
    EXPECT_TRUE(Plan(0.8));
}

TEST_F(ScaleBars, IsShorterWhereTheScaleChangesAlongIt) {
    StartDesign(ProjGnomonic);
    Design.GridText[GridTextCentralLat] = LatitudeText(40 * 3600);
    Design.GridText[GridTextRange] = ArcText(26 * 3600);
    Design.Frame.unit = ScaleBarUnit::Kilometres;
    PrepareDesign();
    const auto bar = Plan(0.9);
    ASSERT_TRUE(bar);
    const double pixels = (bar->right.x - bar->left.x) / 15.0;
    // What half of it covers is the arc tangent of it.
    const double half = bar->km / 2.0 / 6371.0;
    EXPECT_LT(std::fabs(std::atan(half) / half - 1.0) * pixels, 0.5);
}

TEST_F(ScaleBars, TextsHaveTheFontOfTheGridsLabelsInAColourThatIsSeen) {
    Rectangle(ProjMollweide, 90, -90, -180, 180);
    Design.Fonts[GridLabelFontSlot].FontName = "Times";
    Design.Fonts[GridLabelFontSlot].FontColour = Rgb(0, 0, 128);
    Design.BackColor = Rgb(255, 255, 255);
    EXPECT_EQ(Plan(1.0)->texts.at(0).TextFont, "Times");
    EXPECT_EQ(Plan(1.0)->texts.at(0).TextColour, Rgb(0, 0, 128));
    Design.BackColor = Rgb(20, 20, 40);
    EXPECT_EQ(ColorBits(Plan(1.0)->texts.at(0).TextColour), Rgb(255, 255, 255));
    Design.Fonts[GridLabelFontSlot].FontColour = Rgb(255, 255, 200);
    Design.BackColor = Rgb(255, 255, 255);
    EXPECT_EQ(ColorBits(Plan(1.0)->texts.at(0).TextColour), Rgb(0, 0, 0));
}

TEST_F(ScaleBars, AFontWithoutMeasuresHasNone) {
    Rectangle(ProjMollweide, 90, -90, -180, 180);
    machine.fonts.metricsFail = true;
    EXPECT_FALSE(Plan(1.0));
}

// ---- The frame.

TEST_F(ScaleBars, AFrameGoesAlongTheOutlineWithTicksOutward) {
    Rectangle(ProjMercator, 60, -60, -180, 180);
    const AreaFit fit = FitOfShare(0.9);
    EXPECT_THAT(FrameStrokes(OutlineOfMap(), fit), IsEmpty()) << "it is off";
    Design.Frame.frame = true;
    const auto strokes = FrameStrokes(OutlineOfMap(), fit);
    // 35 meridians above and below, and 11 parallels on either side.
    ASSERT_THAT(strokes, SizeIs(1 + 2 * 35 + 2 * 11));
    EXPECT_TRUE(strokes[0].closed);
    EXPECT_THAT(strokes[0].points, SizeIs(4));
    for (std::size_t i = 1; i < strokes.size(); ++i) {
        ASSERT_THAT(strokes[i].points, SizeIs(2));
        const PlanePlace tip = strokes[i].points[1];
        EXPECT_TRUE(tip.x < Design.MapXMin || tip.x > Design.MapXMax || tip.y < Design.MapYMin ||
                    tip.y > Design.MapYMax);
    }
}

TEST_F(ScaleBars, TicksThatWouldMergeAreLeftOut) {
    Rectangle(ProjMercator, 60, -60, -180, 180);
    Design.Frame.frame = true;
    Design.LonGrid = 0.5; // 719 meridians on 1151 pixels
    const auto strokes = FrameStrokes(OutlineOfMap(), FitOfShare(0.9));
    EXPECT_LT(strokes.size(), 2U * 300U);
    EXPECT_GT(strokes.size(), 2U * 150U);
}

} // namespace
} // namespace quelmont
