#include "surround/grid_label_text.h"

#include "core/map_design.h"
#include "graticule/grid_fixture.h"
#include "graticule/grid_texts.h"

#include <gmock/gmock.h>

namespace quelmont {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using testing::SizeIs;

/// The numbers of a grid as CalcGraticule leaves them, seconds of arc.
class GridLabelTexts : public FreshProgramTest {
protected:
    static void Bound(std::int32_t south, std::int32_t north, std::int32_t latGrid, std::int32_t west,
                      std::int32_t east, std::int32_t lonGrid) {
        StartDesign(ProjEquirectangular);
        Design.GridText[GridTextSouth] = LatitudeText(south);
        Design.GridText[GridTextNorth] = LatitudeText(north);
        Design.GridText[GridTextLatSpacing] = ArcText(latGrid);
        Design.GridText[GridTextWest] = LongitudeText(west);
        Design.GridText[GridTextEast] = LongitudeText(east);
        Design.GridText[GridTextLonSpacing] = ArcText(lonGrid);
        PrepareDesign();
    }
    static std::vector<std::string> Texts(const std::vector<GridLine>& lines) {
        std::vector<std::string> texts;
        for (const GridLine& line : lines) {
            texts.push_back(line.text);
        }
        return texts;
    }
    static std::vector<std::string> Parallels(GridLabelStyle style) { return Texts(ParallelsOfGrid(style)); }
    static std::vector<std::string> Meridians(GridLabelStyle style) { return Texts(MeridiansOfGrid(style)); }
};

constexpr std::int32_t Degree = 3600;
constexpr std::int32_t Minute = 60;

TEST_F(GridLabelTexts, TellTheHemisphereInThreeWays) {
    Bound(-60 * Degree, 60 * Degree, 30 * Degree, -180 * Degree, 180 * Degree, 90 * Degree);
    EXPECT_THAT(Parallels(GridLabelStyle::DegreeSign),
                ElementsAre("60\u00B0S", "30\u00B0S", "0\u00B0", "30\u00B0N", "60\u00B0N"));
    EXPECT_THAT(Parallels(GridLabelStyle::Letter), ElementsAre("60 S", "30 S", "0", "30 N", "60 N"));
    EXPECT_THAT(Parallels(GridLabelStyle::Sign), ElementsAre("-60", "-30", "0", "30", "60"));
    EXPECT_THAT(Meridians(GridLabelStyle::DegreeSign),
                ElementsAre("180\u00B0", "90\u00B0W", "0\u00B0", "90\u00B0E", "180\u00B0"));
    EXPECT_THAT(Meridians(GridLabelStyle::Letter), ElementsAre("180", "90 W", "0", "90 E", "180"));
    EXPECT_THAT(Meridians(GridLabelStyle::Sign), ElementsAre("-180", "-90", "0", "90", "180"));
}

TEST_F(GridLabelTexts, GoOnBeyondTheAntimeridian) {
    Bound(0, 10 * Degree, 10 * Degree, 170 * Degree, -170 * Degree, 5 * Degree);
    EXPECT_THAT(Meridians(GridLabelStyle::DegreeSign),
                ElementsAre("170\u00B0E", "175\u00B0E", "180\u00B0", "175\u00B0W", "170\u00B0W"));
    EXPECT_THAT(Meridians(GridLabelStyle::Sign), ElementsAre("170", "175", "180", "-175", "-170"));
}

TEST_F(GridLabelTexts, HaveMinutesAndSecondsOnlyWhereTheSpacingNeedsThem) {
    Bound(-1 * Degree, Degree, 30 * Minute, -30, 30, 30);
    EXPECT_THAT(Parallels(GridLabelStyle::DegreeSign),
                ElementsAre("1\u00B000'S", "0\u00B030'S", "0\u00B000'", "0\u00B030'N", "1\u00B000'N"));
    EXPECT_THAT(Parallels(GridLabelStyle::Letter),
                ElementsAre("1 00 S", "0 30 S", "0 00", "0 30 N", "1 00 N"));
    EXPECT_THAT(Parallels(GridLabelStyle::Sign), ElementsAre("-1 00", "-0 30", "0 00", "0 30", "1 00"));
    EXPECT_THAT(Meridians(GridLabelStyle::DegreeSign),
                ElementsAre("0\u00B000'30\"W", "0\u00B000'00\"", "0\u00B000'30\"E"));
    EXPECT_THAT(Meridians(GridLabelStyle::Letter), ElementsAre("0 00 30 W", "0 00 00", "0 00 30 E"));
}

TEST_F(GridLabelTexts, OfASpacingThatDoesNotMeetTheDegreesHaveMinutesEverywhere) {
    Bound(51 * Degree + 30 * Minute, 61 * Degree + 30 * Minute, 5 * Degree, 0, 10 * Degree, 10 * Degree);
    EXPECT_THAT(Parallels(GridLabelStyle::DegreeSign),
                ElementsAre("51\u00B030'N", "56\u00B030'N", "61\u00B030'N"));
    EXPECT_THAT(Meridians(GridLabelStyle::DegreeSign), ElementsAre("0\u00B0", "10\u00B0E"));
}

TEST_F(GridLabelTexts, OfTheUtmGridAreKilometresWithTheirUnit) {
    StartDesign(ProjUtm);
    PrepareDesign();
    EXPECT_THAT(Parallels(GridLabelStyle::DegreeSign),
                ElementsAre("5600 km N", "5700 km N", "5800 km N", "5900 km N", "6000 km N", "6100 km N",
                            "6200 km N"));
    EXPECT_THAT(Meridians(GridLabelStyle::Letter),
                ElementsAre("300 km E", "400 km E", "500 km E", "600 km E", "700 km E", "800 km E"));
    EXPECT_THAT(Meridians(GridLabelStyle::Sign),
                ElementsAre("300 km", "400 km", "500 km", "600 km", "700 km", "800 km"));
    Design.LatSouthSec = 5600000;
    Design.LatNorthSec = 5600500;
    Design.LatGridSec = 250;
    EXPECT_THAT(Parallels(GridLabelStyle::Sign), ElementsAre("5600.00 km", "5600.25 km", "5600.50 km"));
    Design.LonZeroSec = -2500;
    Design.LonSpanSec = 2500;
    Design.LonGridSec = 2500;
    EXPECT_THAT(Meridians(GridLabelStyle::Sign), ElementsAre("-2.5 km", "0.0 km", "2.5 km"));
}

TEST_F(GridLabelTexts, OfAVeryDenseGridAreThoseOfRoundValues) {
    Bound(-90 * Degree, 90 * Degree, 1, -180 * Degree, 180 * Degree, Degree);
    // 648000 lines: at most 200 of them, 5000 seconds apart.
    const std::vector<GridLine> lines = ParallelsOfGrid(GridLabelStyle::DegreeSign);
    EXPECT_THAT(lines, SizeIs(129));
    EXPECT_THAT(Texts(lines), testing::Contains("0\u00B000'00\""));
    EXPECT_THAT(MeridiansOfGrid(GridLabelStyle::Sign), SizeIs(181)) << "361 meridians: every second one";
}

TEST_F(GridLabelTexts, OfAnAzimuthalMapCountFromItsCentreAndNameEachMeridianOnce) {
    StartDesign(ProjOrthographic);
    Design.GridText[GridTextCentralLat] = LatitudeText(-20 * Degree);
    Design.GridText[GridTextCentralLon] = LongitudeText(-60 * Degree);
    Design.GridText[GridTextRange] = ArcText(90 * Degree);
    Design.GridText[GridTextLonSpacing] = ArcText(90 * Degree);
    PrepareDesign();
    EXPECT_THAT(Meridians(GridLabelStyle::DegreeSign),
                ElementsAre("120\u00B0E", "150\u00B0W", "60\u00B0W", "30\u00B0E"));
    const std::vector<GridLine> parallels = ParallelsOfGrid(GridLabelStyle::DegreeSign);
    ASSERT_THAT(parallels, SizeIs(7));
    EXPECT_LT(parallels[2].outerness, parallels[3].outerness)
        << "30 S is nearer to the centre than the equator";
}

TEST_F(GridLabelTexts, NeedASpacing) {
    EXPECT_THAT(Parallels(GridLabelStyle::Sign), IsEmpty());
    EXPECT_THAT(Meridians(GridLabelStyle::Sign), IsEmpty());
}

} // namespace
} // namespace quelmont
