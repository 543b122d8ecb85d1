#include "surround/label_layout.h"

#include "core/map_design.h"
#include "graticule/grid_fixture.h"
#include "graticule/grid_texts.h"
#include "output/scale_screen.h"
#include "surround/grid_labels.h"

#include <gmock/gmock.h>

#include <algorithm>
#include <utility>

namespace quelmont {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using testing::SizeIs;

/// An equirectangular map from 60 S to 60 N and 90 W to 90 E, lines 30 and 45 degrees apart, at half the
/// size of its window, 1280 x 924 pixels of 15 twips: a degree is 19185 / 2 / 180 twips, its middle at
/// 9592.5, 6922.5. Arial of 12 points: 16 pixels, an ascent of 240 twips, a descent of 60, characters of 120,
/// digits 192 high.
class LabelLayout : public FreshProgramTest {
protected:
    LabelLayout() {
        StartDesign(ProjEquirectangular);
        Design.GridText[GridTextNorth] = LatitudeText(60 * 3600);
        Design.GridText[GridTextSouth] = LatitudeText(-60 * 3600);
        Design.GridText[GridTextWest] = LongitudeText(-90 * 3600);
        Design.GridText[GridTextEast] = LongitudeText(90 * 3600);
        Design.MapReduce = 0.5;
        Design.StdParText[StdParTextNorth] = "00    00    00    N";
        Design.Fonts[GridLabelFontSlot].FontSize = 12;
        Design.GridLabels = {.place = GridLabelPlace::Frame, .style = GridLabelStyle::DegreeSign};
        PrepareDesign();
        Design.CosStdPar = 1.0;
        Design.MapXMax = 180.0 * DegToRad;
        ScaleScreen();
    }

    static std::vector<GridLabel> Place(double clearance = 0.0) {
        return PlaceGridLabels(LabelledLines(Design.GridLabels), TextsOnMap(), clearance);
    }
    static std::vector<TextItem> ItemsOf(const std::vector<GridLabel>& labels, const std::string& text) {
        std::vector<TextItem> items;
        for (const GridLabel& label : labels) {
            if (label.item.TextString == text) {
                items.push_back(label.item);
            }
        }
        return items;
    }
    static std::vector<std::string> TextsOf(const std::vector<GridLabel>& labels) {
        std::vector<std::string> texts;
        for (const GridLabel& label : labels) {
            texts.push_back(label.item.TextString);
        }
        return texts;
    }

    const double degree = 19185.0 / 2.0 / 180.0;
};

TEST_F(LabelLayout, StandsBesideItsParallelAndUnderItsMeridian) {
    const auto labels = Place();
    const auto thirty = ItemsOf(labels, "30\u00B0N");
    ASSERT_THAT(thirty, SizeIs(2));
    const double y = 6922.5 - 30.0 * degree;
    for (const TextItem& item : thirty) {
        EXPECT_NEAR(item.TextY, y + 96.0, 1.0) << "its digits' middle is level with the parallel";
        EXPECT_EQ(item.TextAngle, 0);
    }
    // Four characters of 120 twips, half a digit's height from the frame.
    EXPECT_NEAR(thirty[0].TextX, 9592.5 - 90.0 * degree - 96.0 - 480.0, 1.0);
    EXPECT_NEAR(thirty[1].TextX, 9592.5 + 90.0 * degree + 96.0, 1.0);
    const auto fortyFive = ItemsOf(labels, "45\u00B0E");
    ASSERT_THAT(fortyFive, SizeIs(2));
    for (const TextItem& item : fortyFive) {
        EXPECT_NEAR(item.TextX, 9592.5 + 45.0 * degree - 240.0, 1.0) << "centred on the meridian";
    }
    EXPECT_NEAR(fortyFive[0].TextY, 6922.5 + 60.0 * degree + 144.0 + 192.0, 1.0) << "under the map";
    EXPECT_NEAR(fortyFive[1].TextY, 6922.5 - 60.0 * degree - 144.0, 1.0) << "above it";
}

TEST_F(LabelLayout, HasALabelForEachEndOfEachLine) {
    // Five parallels and five meridians.
    EXPECT_THAT(Place(), SizeIs(20));
}

TEST_F(LabelLayout, KeepsItsDistanceFromWhatStandsOutsideTheOutline) {
    const auto without = ItemsOf(Place(), "30\u00B0N");
    const auto with = ItemsOf(Place(200.0), "30\u00B0N");
    ASSERT_THAT(with, SizeIs(2));
    EXPECT_EQ(with[0].TextX, without[0].TextX - 200);
    EXPECT_EQ(with[1].TextX, without[1].TextX + 200);
}

TEST_F(LabelLayout, HasTheLookOfItsSlot) {
    Design.Fonts[GridLabelFontSlot] = {.FontName = "Times",
                                       .FontSize = 14,
                                       .FontColour = SolidColor(StandardColors[9]),
                                       .FontBold = true,
                                       .FontItalic = true};
    const auto labels = Place();
    ASSERT_FALSE(labels.empty());
    const TextItem& item = labels.front().item;
    EXPECT_EQ(item.TextFont, "Times");
    EXPECT_EQ(item.TextSize, 14);
    EXPECT_EQ(item.TextColour, SolidColor(StandardColors[9]));
    EXPECT_TRUE(item.TextBold && item.TextItalic);
    EXPECT_EQ(item.TextHeight, 19 * 15) << "14 points are 18.7 pixels";
}

TEST_F(LabelLayout, IsSeenOnADarkBackgroundAndOnADarkSea) {
    const auto color = [] { return ColorBits(Place().front().item.TextColour); };
    Design.Fonts[GridLabelFontSlot].FontColour = Rgb(0, 0, 0);
    Design.BackColor = Rgb(16, 32, 64);
    EXPECT_EQ(color(), Rgb(255, 255, 255));
    Design.Fonts[GridLabelFontSlot].FontColour = Rgb(255, 255, 0);
    EXPECT_EQ(color(), Rgb(255, 255, 0)) << "a colour that is seen is kept";
    Design.BackColor = Rgb(255, 255, 255);
    EXPECT_EQ(color(), Rgb(0, 0, 0));
    // The sea lies under labels on the lines, not under those beside the map.
    Design.Fonts[GridLabelFontSlot].FontColour = Rgb(0, 0, 0);
    Design.Fill.sea = Rgb(0, 16, 48);
    EXPECT_EQ(color(), Rgb(0, 0, 0));
    Design.GridLabels.place = GridLabelPlace::Lines;
    EXPECT_EQ(color(), Rgb(255, 255, 255));
}

TEST_F(LabelLayout, IsSeenOnTheLightShadesThatHideADarkSea) {
    Design.GridLabels.place = GridLabelPlace::Lines;
    Design.Fonts[GridLabelFontSlot].FontColour = Rgb(0, 0, 0);
    Design.BackColor = Rgb(0, 0, 0);
    Design.Fill.sea = Rgb(0, 16, 48);
    for (const auto& [kind, color] : {std::pair{DistortionKind::None, Rgb(255, 255, 255)},
                                      {DistortionKind::Ellipses, Rgb(255, 255, 255)},
                                      {DistortionKind::Area, Rgb(0, 0, 0)},
                                      {DistortionKind::Angle, Rgb(0, 0, 0)}}) {
        Design.Distortion.kind = kind;
        const auto labels = Place();
        ASSERT_FALSE(labels.empty());
        EXPECT_EQ(ColorBits(labels.front().item.TextColour), color) << static_cast<int>(kind);
    }
}

TEST_F(LabelLayout, GivesWayToATextOfTheMap) {
    const TextItem label = ItemsOf(Place(), "30\u00B0N").at(0);
    TextItem text = label;
    text.TextString = "A";
    text.TextX += 100;
    Design.TextItems.push_back(text);
    EXPECT_THAT(ItemsOf(Place(), "30\u00B0N"), SizeIs(1)) << "the one on the other side";
    Design.TextItems[0].TextY -= 400;
    EXPECT_THAT(ItemsOf(Place(), "30\u00B0N"), SizeIs(2)) << "above it";
    Design.TextItems[0].TextAngle = 270;
    Design.TextItems[0].TextString = "A longer one";
    EXPECT_THAT(ItemsOf(Place(), "30\u00B0N"), SizeIs(1)) << "it hangs down over the label";
}

TEST_F(LabelLayout, GivesWayToLabelsOfMapFilesThatAreShown) {
    const TextItem item = ItemsOf(Place(), "30\u00B0N").at(1);
    Design.MapLabels.push_back({.LabelText = "Town",
                                .LabelX = item.TextX,
                                .LabelY = item.TextY,
                                .LabelFont = "Arial",
                                .LabelSize = 10,
                                .LabelAscent = 200,
                                .LabelDescent = 50});
    EXPECT_THAT(ItemsOf(Place(), "30\u00B0N"), SizeIs(1));
    Design.LabelsVisible = false;
    EXPECT_THAT(ItemsOf(Place(), "30\u00B0N"), SizeIs(2));
}

TEST_F(LabelLayout, LeavesOutTheOuterOneOfTwo) {
    Design.Fonts[GridLabelFontSlot].FontSize = 100; // a character of 66 pixels: four reach over 45 degrees
    const auto texts = TextsOf(Place());
    EXPECT_THAT(texts, testing::Contains("0\u00B0"));
    EXPECT_THAT(texts, testing::Not(testing::Contains("45\u00B0E"))) << "the middle one has its place first";
}

TEST_F(LabelLayout, LeavesOutWhatWouldReachOverTheEdgeOfThePage) {
    Design.GridLabels.place = GridLabelPlace::None; // no room is made
    Design.MapReduce = 1.0;
    ScaleScreen();
    const auto labels = PlaceGridLabels(LabelledLines({.place = GridLabelPlace::Frame}), TextsOnMap(), 0.0);
    EXPECT_THAT(ItemsOf(labels, "30\u00B0N"), IsEmpty()) << "the map fills the width";
    EXPECT_THAT(ItemsOf(labels, "45\u00B0E"), SizeIs(2));
}

TEST_F(LabelLayout, RunsAlongItsLineAboveIt) {
    Design.GridLabels.place = GridLabelPlace::Lines;
    const auto labels = Place();
    const auto thirty = ItemsOf(labels, "30\u00B0N");
    ASSERT_THAT(thirty, SizeIs(1));
    EXPECT_EQ(thirty[0].TextAngle, 0);
    // Between 0 and 45 E, a quarter of a digit's height above the parallel.
    EXPECT_NEAR(thirty[0].TextX, 9592.5 + 22.5 * degree - 240.0, 1.0);
    EXPECT_NEAR(thirty[0].TextY, 6922.5 - 30.0 * degree - 48.0, 1.0);
    const auto east = ItemsOf(labels, "45\u00B0E");
    ASSERT_THAT(east, SizeIs(1));
    EXPECT_EQ(east[0].TextAngle, 90) << "upward";
    EXPECT_NEAR(east[0].TextX, 9592.5 + 45.0 * degree - 48.0, 1.0) << "its baseline to the left of the line";
    EXPECT_NEAR(east[0].TextY, 6922.5 - 15.0 * degree + 240.0, 1.0) << "midway between 0 and 30 N";
}

TEST_F(LabelLayout, OnTheMapsEdgeStandsInsideIt) {
    Design.GridLabels.place = GridLabelPlace::Lines;
    const auto labels = Place();
    const auto north = ItemsOf(labels, "60\u00B0N");
    ASSERT_THAT(north, SizeIs(1));
    EXPECT_NEAR(north[0].TextY, 6922.5 - 60.0 * degree + 48.0 + 192.0, 1.0) << "under the line";
    EXPECT_THAT(ItemsOf(labels, "90\u00B0E"), SizeIs(1));
    const auto west = ItemsOf(labels, "90\u00B0W");
    ASSERT_THAT(west, SizeIs(1));
    EXPECT_GT(west[0].TextX, 9592.5 - 90.0 * degree);
}

TEST_F(LabelLayout, WithoutAFontThereAreNone) {
    machine.fonts.metricsFail = true;
    EXPECT_THAT(Place(), IsEmpty());
    machine.fonts.metricsFail = false;
    machine.fonts.extentFails = true;
    EXPECT_THAT(Place(), IsEmpty());
}

/// The share of a map of 180 x 120 degrees in a window in which its width governs.
class ShareOfMap : public LabelLayout {
protected:
    double Share(double share) {
        return ShareBesideLabels(LabelledLines(Design.GridLabels), share, 19185.0, 13845.0, 0.0);
    }
};

TEST_F(ShareOfMap, IsUntouchedWhereLabelsHaveRoom) { EXPECT_EQ(Share(0.5), 0.5); }

TEST_F(ShareOfMap, IsThatWhichTheWidestLabelLeaves) {
    // 60 S and its like: 480 twips, 96 from the frame, a pixel from the edge: half a map of 9592.5 - 591.
    EXPECT_NEAR(Share(1.0), (9592.5 - 480.0 - 96.0 - 15.0) / 9592.5, 1e-12);
    Design.Fonts[GridLabelFontSlot].FontSize = 24;
    EXPECT_NEAR(Share(1.0), (9592.5 - 960.0 - 192.0 - 15.0) / 9592.5, 1e-12);
}

TEST_F(ShareOfMap, NeverFallsBelowHalf) {
    Design.Fonts[GridLabelFontSlot].FontSize = 200;
    EXPECT_EQ(Share(0.8), 0.4);
}

TEST_F(ShareOfMap, IsWholeWithLabelsOnTheLines) {
    Design.GridLabels.place = GridLabelPlace::Lines;
    EXPECT_EQ(Share(1.0), 1.0);
}

} // namespace
} // namespace quelmont
