#include "designfile/window_fit.h"

#include "designfile/designs.h"

#include <gtest/gtest.h>

#include <cmath>

namespace quelmont {
namespace {

/// A screen whose maximised window has a drawing area of 1280 x 924 pixels of 15 twips.
class FittingDesigns : public DesignFiles {
protected:
    static SavedWindow Area(float width, float height) {
        return {.TwipsPerPixelX = 15.0F,
                .TwipsPerPixelY = 15.0F,
                .AreaWidth = width * 15.0F,
                .AreaHeight = height * 15.0F};
    }
    void Present(double width, double height) {
        window.scaleWidth = width * 15.0;
        window.scaleHeight = height * 15.0;
    }
    /// A map so many times as high as it is wide.
    static void MapAspect(double aspect) {
        Design.MapXMin = 0.0;
        Design.MapXMax = 2.0;
        Design.MapYMin = -aspect;
        Design.MapYMax = aspect;
    }
};

TEST_F(FittingDesigns, WindowTakesTheSavedSizeAtTheCornerOfTheScreen) {
    window.place = {300.0, 300.0, 9000.0, 9000.0};
    FitWindow(Area(640.0F, 480.0F));
    EXPECT_EQ(window.scaleWidth, 640.0 * 15.0);
    EXPECT_EQ(window.scaleHeight, 480.0 * 15.0);
    EXPECT_EQ(window.place.left, 0.0);
    EXPECT_EQ(window.place.top, 0.0);
    EXPECT_FALSE(window.zoomed);
    EXPECT_EQ(window.settles, 1);
}

TEST_F(FittingDesigns, AreaOfTheFullScreenIsMaximised) {
    FitWindow(Area(1280.0F, 924.0F));
    EXPECT_TRUE(window.zoomed);
}

TEST_F(FittingDesigns, AreaWithoutRoomIsMaximised) {
    FitWindow(Area(1281.0F, 480.0F));
    EXPECT_TRUE(window.zoomed);
    window.zoomed = false;
    FitWindow(Area(640.0F, 925.0F));
    EXPECT_TRUE(window.zoomed);
}

TEST_F(FittingDesigns, MaximisedWindowIsMaximisedOnAnyScreen) {
    SavedWindow saved = Area(640.0F, 480.0F);
    saved.WindowState = 2;
    FitWindow(saved);
    EXPECT_TRUE(window.zoomed);
}

TEST_F(FittingDesigns, PixelsAreWholeWhereTwipsAreNot) {
    // 110 and 163 dots per inch: 1440 / 110 = 13.09091, 1440 / 163 = 8.834356 twips.
    for (const float twips : {1440.0F / 110.0F, 1440.0F / 163.0F}) {
        const SavedWindow saved = {.TwipsPerPixelX = twips,
                                   .TwipsPerPixelY = twips,
                                   .AreaWidth = 1001.0F * twips,
                                   .AreaHeight = 743.0F * twips};
        FitWindow(saved);
        EXPECT_EQ(window.scaleWidth, 1001.0 * 15.0);
        EXPECT_EQ(window.scaleHeight, 743.0 * 15.0);
        EXPECT_EQ(MapReduceFactor(saved), 1.0);
    }
}

TEST_F(FittingDesigns, TextsStayWhereTheAreaIsTheSame) {
    const TextFit fit = FitOfTexts(Area(800.0F, 600.0F));
    EXPECT_EQ(fit.fx, 1.0);
    EXPECT_EQ(fit.fy, 1.0);
    EXPECT_EQ(fit.ox, 0);
    EXPECT_EQ(fit.oy, 0);
}

TEST_F(FittingDesigns, HigherPageIsFittedByItsHeightAndCentred) {
    Present(800.0, 300.0);
    const TextFit fit = FitOfTexts(Area(800.0F, 600.0F));
    EXPECT_EQ(fit.fx, 0.5);
    EXPECT_EQ(fit.fy, 0.5);
    EXPECT_EQ(fit.ox, 3000) << "(800 - 800 / 2) / 2 pixels of 15 twips";
    EXPECT_EQ(fit.oy, 0);
}

TEST_F(FittingDesigns, WiderPageIsFittedByItsWidthAndCentred) {
    Present(400.0, 600.0);
    const TextFit fit = FitOfTexts(Area(800.0F, 600.0F));
    EXPECT_EQ(fit.fx, 0.5);
    EXPECT_EQ(fit.fy, 0.5);
    EXPECT_EQ(fit.ox, 0);
    EXPECT_EQ(fit.oy, 2250) << "600 * (1 - 0.75 / 1.5) / 2 pixels of 15 twips";
}

TEST_F(FittingDesigns, TextIsScaledWithItsMeasures) {
    TextItem text = TextOf("t");
    text.TextX = 1000;
    text.TextY = -301;
    text.TextWidth = 105;
    text.TextHeight = 180;
    text.TextDescent = 45;
    text.TextCellHeight = 225;
    FitText(text, {.fx = 0.5, .fy = 0.5, .ox = 3000, .oy = 7});
    EXPECT_EQ(text.TextSize, 5);
    EXPECT_EQ(text.TextX, 3500);
    EXPECT_EQ(text.TextY, -144) << "-150.5 + 7, ties to even";
    EXPECT_EQ(text.TextWidth, 52) << "52.5, ties to even";
    EXPECT_EQ(text.TextHeight, 90);
    EXPECT_EQ(text.TextDescent, 22) << "22.5, ties to even";
    EXPECT_EQ(text.TextCellHeight, 112) << "112.5, ties to even";
}

TEST_F(FittingDesigns, TextNeverFallsBelowOnePoint) {
    TextItem text = TextOf("t");
    FitText(text, {.fx = 0.1, .fy = 0.1});
    EXPECT_EQ(text.TextSize, 1);
}

TEST_F(FittingDesigns, TextThatLeavesItsBitsIsAnOverflow) {
    std::vector<std::string> lines = LinesOf(Saved());
    auto places = RecordPlaces(lines);
    lines[places[53]] = " 100           1 ";
    for (const char* line :
         {"\"text\"", " 0  33554432  20000 ", "Arial", " 0  0  0  0 ", " 1  1 ", " 0  0  0 ", " 1 "}) {
        lines.emplace_back(line);
    }
    lines[places[12]] = " 6000      4500"; // 400 x 300 pixels, saved maximised
    lines[places[10]] = " 2 ";
    EXPECT_FALSE(Recalled(Joined(lines)));
    EXPECT_EQ(Told(machine.boxes.Taken()), std::vector<std::string>{"Error in CnfRead: Error: Overflow"});
    EXPECT_TRUE(Design.TextItems.empty());
}

TEST_F(FittingDesigns, FactorOfTheMapFollowsWhatBoundsIt) {
    // Saved 800 x 600 (A = 0.75), present 800 x 300 (B = 0.375).
    Present(800.0, 300.0);
    MapAspect(0.25);
    EXPECT_EQ(MapReduceFactor(Area(800.0F, 600.0F)), 0.5) << "B / A: the width bounds it on both";
    MapAspect(0.5);
    EXPECT_DOUBLE_EQ(MapReduceFactor(Area(800.0F, 600.0F)), 0.5 / 0.75) << "W * M / H";
    MapAspect(1.0);
    EXPECT_EQ(MapReduceFactor(Area(800.0F, 600.0F)), 1.0) << "the height bounds it on both";
    // Saved 800 x 300, present 800 x 600.
    Present(800.0, 600.0);
    MapAspect(1.0);
    EXPECT_EQ(MapReduceFactor(Area(800.0F, 300.0F)), 0.5) << "A / B";
    MapAspect(0.5);
    EXPECT_DOUBLE_EQ(MapReduceFactor(Area(800.0F, 300.0F)), 0.375 / 0.5) << "H / (W * M)";
    MapAspect(0.25);
    EXPECT_EQ(MapReduceFactor(Area(800.0F, 300.0F)), 1.0);
}

TEST_F(FittingDesigns, MapKeepsItsSizeOnAnotherScreen) {
    // Size of the map over the size of the saved page, before and after.
    for (const double aspect : {0.2, 0.6, 1.0, 2.0}) {
        for (const auto& [width, height] : std::vector<std::pair<double, double>>{
                 {640.0, 480.0}, {1920.0, 1080.0}, {3840.0, 2160.0}, {500.0, 900.0}}) {
            MapAspect(aspect);
            Present(width, height);
            const double mapWidth = [](double w, double h, double a) {
                return std::min(w, h / a);
            }(800.0, 600.0, aspect);
            const double page = std::min(width / 800.0, height / 600.0);
            const double now = [](double w, double h, double a) { return std::min(w, h / a); }(width, height,
                                                                                               aspect);
            EXPECT_NEAR(MapReduceFactor(Area(800.0F, 600.0F)), mapWidth * page / now, 1e-12)
                << aspect << " on " << width << " x " << height;
        }
    }
}

TEST_F(FittingDesigns, TextKeepsItsPlaceOnTheMapOnAnotherScreen) {
    machine.screen.fullScreenX = 3840;
    machine.screen.fullScreenY = 2000;
    StartAgain();
    Design.TextItems.assign(1, TextOf("t"));
    Design.TextItems[0].TextSize = 20;
    Design.TextItems[0].TextX = 6000;
    Design.TextItems[0].TextY = 4500;
    const std::string file = Saved();
    // A smaller screen: the window is maximised on it.
    machine.screen.fullScreenX = 640;
    machine.screen.fullScreenY = 400;
    window.maximisedWidth = 640.0 * 15.0;
    window.maximisedHeight = 400.0 * 15.0;
    StartAgain();
    EXPECT_TRUE(Recalled(file));
    EXPECT_TRUE(window.zoomed);
    // The page of 4 : 3 is 400 pixels high and stands in the middle; the text is in its middle.
    EXPECT_EQ(Design.TextItems[0].TextX, 320 * 15);
    EXPECT_EQ(Design.TextItems[0].TextY, 200 * 15);
    EXPECT_EQ(Design.TextItems[0].TextSize, 13) << "20 * 400 / 600";
    // With parallels of true scale at 45 degrees the world is 0.5 / cos 45 = 0.7071 times as high as wide:
    // the width bounds it there, the height here.
    EXPECT_NEAR(Design.MapReduce, std::sqrt(0.5) / 0.75, 1e-12);
}

} // namespace
} // namespace quelmont
