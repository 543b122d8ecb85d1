#include "reports/dist_err_select.h"

#include "core/map_design.h"
#include "reports/report_fixture.h"
#include "reports/reports_state.h"

#include <gmock/gmock.h>

#include <cmath>

namespace quelmont {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class ScaleErrors : public ReportTest {
protected:
    /// Values are printed with five digits.
    static void ExpectScales(double h, double k, double area) {
        EXPECT_NEAR(Sampled().h, h, 5.1e-5 * h);
        EXPECT_NEAR(Sampled().k, k, 5.1e-5 * k);
        EXPECT_NEAR(Sampled().area, area, 5.1e-5 * area);
    }
    /// A cone of these standard parallels; its constants by hand from Snyder's equations.
    static void StartCone(std::int16_t projNum, double north, double south) {
        Start(projNum);
        Design.StdParNorth = north;
        Design.StdParSouth = south;
        const double p1 = north * DegToRad;
        const double p2 = south * DegToRad;
        const auto t = [](double p) { return std::tan(p / 2.0 + QuarterPi); };
        if (projNum == ProjConformalConic) {
            Design.ConeConstant = std::log(std::cos(p2) / std::cos(p1)) / std::log(t(p1) / t(p2));
        } else {
            Design.ConeConstant = (std::sin(p1) + std::sin(p2)) / 2.0;
            Design.ConicC = std::cos(p2) * std::cos(p2) + 2.0 * Design.ConeConstant * std::sin(p2);
        }
    }
};

TEST_F(ScaleErrors, HammerAtNinetyDegreesFromTheCentre) {
    Start(ProjHammer);
    SampleAt(30.0, Design.LonCentral + 90.0);
    ExpectScales(1.207819, 0.939068, 1.0);
    SampleAt(90.0, Design.LonCentral + 90.0);
    ExpectScales(2.061553, 1.030776, 1.0);
}

TEST_F(ScaleErrors, HammerIsTrueAtItsCentre) {
    Start(ProjHammer);
    SampleAt(0.0, Design.LonCentral);
    ExpectScales(1.0, 1.0, 1.0);
}

TEST_F(ScaleErrors, MollweideAtNinetyDegreesFromTheCentre) {
    Start(ProjMollweide);
    SampleAt(30.0, Design.LonCentral + 90.0);
    ExpectScales(1.149505, 0.950992, 1.0);
}

TEST_F(ScaleErrors, MollweidePoleHasTheAreaAsTextAndStretchesWithoutLimit) {
    Start(ProjMollweide);
    SampleAt(90.0, Design.LonSpan);
    EXPECT_THAT(SampledTexts(), ElementsAre("Infinite", "Infinite", "1.0000E+00"));
    SampleAt(-90.0, Design.LonCentral);
    EXPECT_THAT(SampledTexts(), ElementsAre("0.0000E+00", "Infinite", "1.0000E+00"));
    SampleAt(89.99994, Design.LonSpan);
    EXPECT_THAT(SampledTexts(), ElementsAre("Infinite", "Infinite", "1.0000E+00"));
}

TEST_F(ScaleErrors, RobinsonAtNinetyDegreesFromTheCentre) {
    Start(ProjRobinson);
    SampleAt(30.0, Design.LonCentral + 90.0);
    ExpectScales(0.995320, 0.940149, 0.907905);
    SampleAt(-30.0, Design.LonCentral + 90.0);
    ExpectScales(0.995320, 0.940149, 0.907905);
}

TEST_F(ScaleErrors, RobinsonPoleIsALineAndHasAScaleAlongTheMeridianOnly) {
    Start(ProjRobinson);
    SampleAt(90.0, Design.LonCentral);
    EXPECT_EQ(SampledTexts()[1], "Infinite");
    EXPECT_EQ(SampledTexts()[2], "Infinite");
    EXPECT_GT(Sampled().h, 0.0);
}

TEST_F(ScaleErrors, ConicsWithParallels45And33) {
    StartCone(ProjEquidistantConic, 45.0, 33.0);
    SampleAt(60.0, 0.0);
    ExpectScales(1.0, 1.085304, 1.085304);
    StartCone(ProjConformalConic, 45.0, 33.0);
    SampleAt(60.0, 0.0);
    ExpectScales(1.074599, 1.074599, 1.154763);
    StartCone(ProjAlbers, 45.0, 33.0);
    SampleAt(60.0, 0.0);
    ExpectScales(0.911241, 1.097405, 1.0);
}

TEST_F(ScaleErrors, ConicPolesHaveTexts) {
    Start(ProjEquidistantConic);
    SampleAt(90.0, 0.0);
    EXPECT_THAT(SampledTexts(), ElementsAre("1.0000E+00", "Infinite", "Infinite"));
    Start(ProjConformalConic);
    SampleAt(-90.0, 0.0);
    EXPECT_THAT(SampledTexts(), ElementsAre("Infinite", "Infinite", "Infinite"));
    Start(ProjAlbers);
    SampleAt(90.0, 0.0);
    EXPECT_THAT(SampledTexts(), ElementsAre("1.0000E+00", "Infinite", "Infinite"));
}

TEST_F(ScaleErrors, EquidistantConicLeavesItsConstantAsItIsDrawnWith) {
    Start(ProjEquidistantConic);
    const double before = Design.ConicG;
    SampleAt(10.0, 0.0);
    EXPECT_EQ(Design.ConicG, before);
}

TEST_F(ScaleErrors, AzimuthalThirtyDegreesNorthOfTheCentre) {
    struct Row {
        std::int16_t projNum;
        double h, k, area;
    };
    for (const Row& row : {Row{ProjGnomonic, 1.333333, 1.154701, 1.539601},
                           Row{ProjStereographic, 1.071797, 1.071797, 1.148748},
                           Row{ProjOrthographic, 0.866025, 1.0, 0.866025},
                           Row{ProjVerticalPerspective, 0.803483, 0.976738, 0.784793},
                           Row{ProjAzimuthalEquidistant, 1.0, 1.047198, 1.047198},
                           Row{ProjAzimuthalEqualArea, 0.965926, 1.035276, 1.0}}) {
        SCOPED_TRACE(row.projNum);
        Start(row.projNum);
        SampleAt(70.0, 0.0);
        ExpectScales(row.h, row.k, row.area);
    }
}

TEST_F(ScaleErrors, EquidistantBeyondThePole) {
    Start(ProjAzimuthalEquidistant);
    SampleAt(80.0, 180.0);
    ExpectScales(1.0, 1.209200, 1.209200);
}

TEST_F(ScaleErrors, AzimuthalMapsAreTrueAtTheirCentre) {
    for (const std::int16_t projNum :
         {ProjGnomonic, ProjStereographic, ProjOrthographic, ProjVerticalPerspective,
          ProjAzimuthalEquidistant, ProjAzimuthalEqualArea}) {
        Start(projNum);
        SampleAt(40.0, 0.0);
        EXPECT_THAT(SampledTexts(), ElementsAre("1.0000E+00", "1.0000E+00", "1.0000E+00")) << projNum;
    }
}

TEST_F(ScaleErrors, AntipodeHasTextsWhereItIsACircle) {
    Start(ProjAzimuthalEquidistant, 180);
    SampleAt(-40.0, 180.0);
    EXPECT_THAT(SampledTexts(), ElementsAre("1.0000E+00", "Infinite", "Infinite"));
    Start(ProjAzimuthalEqualArea, 180);
    SampleAt(-40.0, 180.0);
    EXPECT_THAT(SampledTexts(), ElementsAre("0.0000E+00", "Infinite", "Infinite"));
}

TEST_F(ScaleErrors, StereographicAntipodeIsAFailureWithItsBox) {
    Start(ProjStereographic);
    ReportsNow.ScaleErrLat = -40.0;
    ReportsNow.ScaleErrLon = 180.0;
    ReportsNow.ScaleErrIndex = 1;
    EXPECT_FALSE(DistErrSelect());
    ASSERT_EQ(machine.boxes.asked.size(), 1U);
    EXPECT_EQ(machine.boxes.asked[0].title, "Error in DistErrSelect");
    EXPECT_EQ(machine.boxes.asked[0].text, "Error: Division by zero");
    EXPECT_EQ(ReportsNow.ScaleErrMeridian[1], "");
}

TEST_F(ScaleErrors, OrthographicRimHasNoScaleOutward) {
    Start(ProjOrthographic, 90);
    SampleAt(50.0, 180.0);
    EXPECT_THAT(SampledTexts(), ElementsAre("0.0000E+00", "1.0000E+00", "0.0000E+00"));
}

TEST_F(ScaleErrors, MercatorIsTrueAtTheEquatorOfAMapThatHasIt) {
    Start(ProjMercator);
    SampleAt(0.0, 0.0);
    ExpectScales(1.0, 1.0, 1.0);
    SampleAt(-60.0, 0.0);
    ExpectScales(2.0, 2.0, 4.0);
}

TEST_F(ScaleErrors, MercatorIsTrueAtTheBoundaryNearestToTheEquator) {
    Start(ProjMercator);
    SetBounds("70    00    00    N", "10    00    00    N", "010    00    00");
    SampleAt(10.0, 0.0);
    ExpectScales(1.0, 1.0, 1.0);
    SetBounds("10    00    00    S", "70    00    00    S", "010    00    00");
    SampleAt(-10.0, 0.0);
    ExpectScales(1.0, 1.0, 1.0);
    SetBounds("70    00    00    N", "00    00    00    N", "010    00    00");
    SampleAt(60.0, 0.0);
    ExpectScales(2.0, 2.0, 4.0);
}

TEST_F(ScaleErrors, CylindricalPolesHaveTexts) {
    Start(ProjEquirectangular);
    SampleAt(-90.0, 0.0);
    EXPECT_THAT(SampledTexts(), ElementsAre("1.0000E+00", "Infinite", "Infinite"));
    Start(ProjCylindricalEqualArea);
    SampleAt(90.0, 0.0);
    EXPECT_THAT(SampledTexts(), ElementsAre("0.0000E+00", "Infinite", "Infinite"));
}

TEST_F(ScaleErrors, ZoneIsTrueAwayFromItsCentralMeridian) {
    Start(ProjUtm);
    struct Row {
        double easting, scale;
        const char* text;
    };
    for (const Row& row : {Row{300000.0, 1.000091, "0,300,000"}, Row{500000.0, 0.999600, "0,500,000"},
                           Row{800000.0, 1.000705, "0,800,000"}}) {
        SampleAt(5900000.0 / Design.SpheroidA, row.easting - 500000.0);
        ExpectScales(row.scale, row.scale, row.scale * row.scale);
        EXPECT_EQ(ReportsNow.ScaleErrLonText[1], row.text);
        EXPECT_EQ(ReportsNow.ScaleErrLatText[1], "05,900,000");
    }
}

TEST_F(ScaleErrors, PlaceIsAnAngleText) {
    Start(ProjEquirectangular);
    SampleAt(-37.5, -122.25);
    EXPECT_EQ(ReportsNow.ScaleErrLatText[1], "37 30 00 S");
    EXPECT_EQ(ReportsNow.ScaleErrLonText[1], "122 15 00 W");
}

TEST_F(ScaleErrors, NotesAreThoseOfTheProjectionAndOneAloneClearsTheSecond) {
    Start(ProjMercator);
    SampleAt(10.0, 0.0);
    EXPECT_EQ(ReportsNow.ScaleErrNotes[1],
              "Latitude and longitude scales are equal at any point on the projection.");
    EXPECT_EQ(ReportsNow.ScaleErrNotes[2], "The scale is symmetrical about the equator.");
    Start(ProjStereographic);
    SampleAt(40.0, 0.0);
    EXPECT_EQ(ReportsNow.ScaleErrNotes[1],
              "The scale is constant along any circle centered on the central point.");
    EXPECT_EQ(ReportsNow.ScaleErrNotes[2], "");
    Start(ProjConformalConic);
    SampleAt(10.0, 0.0);
    EXPECT_EQ(ReportsNow.ScaleErrNotes[1],
              "The scale is only true along the two standard parallels.  The scale is equal");
    EXPECT_EQ(ReportsNow.ScaleErrNotes[2], "in all directions at any point on the projection.");
    Start(ProjRobinson);
    SampleAt(10.0, 0.0);
    EXPECT_EQ(ReportsNow.ScaleErrNotes[1], "The scale is true along latitudes 37°50' North and South.");
    EXPECT_EQ(ReportsNow.ScaleErrNotes[2], "");
}

TEST_F(ScaleErrors, InterruptedProjectionHasNoSample) {
    Start(ProjMollweide);
    Design.ProjNum = ProjInterruptedMollweide;
    SampleAt(30.0, 90.0);
    EXPECT_THAT(SampledTexts(), ElementsAre("", "", ""));
    EXPECT_THAT(machine.boxes.asked, IsEmpty());
}

TEST_F(ScaleErrors, RowOutsideTheTableIsAFailure) {
    Start(ProjMollweide);
    for (const int row : {0, 15, -1}) {
        ReportsNow.ScaleErrIndex = static_cast<std::int16_t>(row);
        EXPECT_FALSE(DistErrSelect());
    }
    EXPECT_EQ(machine.boxes.Taken().at(0).text, "Error: Subscript out of range");
}

} // namespace
} // namespace quelmont
