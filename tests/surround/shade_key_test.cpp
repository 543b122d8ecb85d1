#include "surround/shade_key_plot.h"

#include "core/map_design.h"
#include "graticule/grid_fixture.h"
#include "graticule/grid_texts.h"
#include "graticule/map_outline.h"
#include "output/output_state.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace quelmont {
namespace {

constexpr ColorValue Pale = SolidColor(Rgb(250, 240, 230));
constexpr ColorValue Strong = SolidColor(Rgb(200, 100, 50));

/// A world on a window of 1280 by 924 pixels of 15 twips, and a key of two shades.
class ShadeKeys : public FreshProgramTest {
protected:
    ShadeKeys() {
        machine.window.scaleWidth = 19200.0;
        machine.window.scaleHeight = 13860.0;
        StartDesign(ProjMercator);
        Design.Fonts[GridLabelFontSlot].FontSize = 10;
        PrepareDesign();
        Design.Distortion.kind = DistortionKind::Area;
        OutputNow.shadeKey = {"Area scale", {{Pale, "1 to 2"}, {Strong, "above 2"}}};
    }
    static std::optional<PlannedKey> Plan(double share, const std::vector<TextBox>& taken = {}) {
        const AreaFit fit = FitOfShare(share);
        return PlanShadeKey(fit, OutlineOnArea(OutlineOfMap(), fit), taken);
    }
    /// A box over a quarter of the drawing area.
    static TextBox Quarter(double x, double y) {
        return {.middle = {x, y}, .halfWidth = 4800.0, .halfHeight = 3465.0};
    }
};

TEST_F(ShadeKeys, HasAPatchAndWordsForEachShadeTheLargestOnTop) {
    const auto key = Plan(1.0);
    ASSERT_TRUE(key);
    ASSERT_EQ(key->texts.size(), 3U);
    EXPECT_EQ(key->texts[0].TextString, "Area scale");
    EXPECT_EQ(key->texts[1].TextString, "above 2");
    EXPECT_EQ(key->texts[2].TextString, "1 to 2");
    EXPECT_LT(key->texts[0].TextY, key->texts[1].TextY);
    EXPECT_LT(key->texts[1].TextY, key->texts[2].TextY);
    // The box and its paper, then an edge and a colour for each shade.
    ASSERT_EQ(key->patches.size(), 6U);
    EXPECT_EQ(key->patches[1].color, Design.BackColor);
    EXPECT_EQ(key->patches[3].color, Strong);
    EXPECT_EQ(key->patches[5].color, Pale);
    for (const PlannedKey::Patch& patch : key->patches) {
        EXPECT_GE(patch.box.middle.x - patch.box.halfWidth, key->box.middle.x - key->box.halfWidth);
        EXPECT_LE(patch.box.middle.y + patch.box.halfHeight, key->box.middle.y + key->box.halfHeight);
    }
}

TEST_F(ShadeKeys, StandsInTheCornerThatNothingElseHas) {
    const TextBox lowerRight = Quarter(14400.0, 10395.0);
    const TextBox lowerLeft = Quarter(4800.0, 10395.0);
    const TextBox upperRight = Quarter(14400.0, 3465.0);
    const auto middle = [](const std::optional<PlannedKey>& key) {
        EXPECT_TRUE(key);
        return key ? key->box.middle : AreaPoint{};
    };
    const AreaPoint free = middle(Plan(1.0));
    EXPECT_GT(free.x, 9600.0);
    EXPECT_GT(free.y, 6930.0);
    const AreaPoint second = middle(Plan(1.0, {lowerRight}));
    EXPECT_LT(second.x, 9600.0);
    EXPECT_GT(second.y, 6930.0);
    const AreaPoint last = middle(Plan(1.0, {lowerRight, lowerLeft, upperRight}));
    EXPECT_LT(last.x, 9600.0);
    EXPECT_LT(last.y, 6930.0);
}

TEST_F(ShadeKeys, ThereIsNoneWithoutShadesAndWhereItHasNoRoom) {
    Design.Distortion.kind = DistortionKind::Ellipses;
    EXPECT_FALSE(Plan(1.0)) << "circles need none";
    Design.Distortion.kind = DistortionKind::Angle;
    EXPECT_TRUE(Plan(1.0));
    OutputNow.shadeKey.rows.clear();
    EXPECT_FALSE(Plan(1.0));
    OutputNow.shadeKey.rows.assign(60, {Pale, "1"});
    EXPECT_FALSE(Plan(1.0)) << "higher than the window";
}

} // namespace
} // namespace quelmont
