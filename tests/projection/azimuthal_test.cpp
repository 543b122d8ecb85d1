#include "core/map_design.h"
#include "projection/map_fields.h"
#include "projection/param_select.h"
#include "projection/project_select.h"
#include "support/fresh_program.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <array>
#include <cmath>
#include <initializer_list>
#include <limits>

namespace quelmont {
namespace {

using testing::IsEmpty;

constexpr std::array<std::int16_t, 6> Azimuthals = {ProjGnomonic,
                                                    ProjStereographic,
                                                    ProjOrthographic,
                                                    ProjVerticalPerspective,
                                                    ProjAzimuthalEquidistant,
                                                    ProjAzimuthalEqualArea};
constexpr std::array<std::int16_t, 3> ShowTheGlobe = {ProjStereographic, ProjAzimuthalEquidistant,
                                                      ProjAzimuthalEqualArea};

class Azimuthal : public FreshProgramTest {
protected:
    static void Disc(std::int16_t projNum, double latCentral, double range) {
        SetDisc(projNum, latCentral, range);
        Design.VpDistanceKm = 35840.0;
        ParamSelect();
    }
};

// ---- Who is visible.

TEST_F(Azimuthal, CentreIsTheOrigin) {
    for (const std::int16_t projNum : Azimuthals) {
        for (const double centre : {90.0, -90.0, 0.0, 37.0, -61.5}) {
            Disc(projNum, centre, 60.0);
            ProjectAt(centre, 180.0);
            EXPECT_FALSE(Design.ProjOffMap);
            // cosC is 1 within a rounding, so that the place is within the root of it at worst.
            EXPECT_NEAR(Design.ProjX, 0.0, 1e-15);
            EXPECT_NEAR(Design.ProjY, 0.0, 1e-15);
        }
    }
}

/// On a pole-centred map sin(90 degrees) is 1 exactly, so that cosC is.
TEST_F(Azimuthal, EquidistantTakesScaleOneAtTheCentre) {
    Disc(ProjAzimuthalEquidistant, 90.0, 180.0);
    ProjectAt(90.0, 123.0);
    EXPECT_FALSE(Design.ProjOffMap);
    EXPECT_NEAR(std::hypot(Design.ProjX, Design.ProjY), 0.0, 1e-14);
    EXPECT_THAT(machine.boxes.asked, IsEmpty());
}

TEST_F(Azimuthal, AntipodeHasNoPlaceForAnyWholeDegree) {
    for (const std::int16_t projNum : ShowTheGlobe) {
        for (int lat = -90; lat <= 90; ++lat) {
            Disc(projNum, lat, 180.0);
            for (const double lon : {0.0, 360.0}) {
                ProjectAt(-lat, lon);
                EXPECT_TRUE(Design.ProjOffMap) << projNum << " centred on " << lat;
                EXPECT_EQ(Design.PointStatus, PointBeyondHorizon);
            }
        }
    }
}

TEST_F(Azimuthal, AntipodeHasNoPlaceForAnyMinute) {
    for (const std::int16_t projNum : ShowTheGlobe) {
        for (int minutes = -5399; minutes <= 5399; minutes += 7) {
            Disc(projNum, minutes / 60.0, 180.0);
            ProjectAt(-minutes / 60.0, 0.0);
            EXPECT_TRUE(Design.ProjOffMap) << projNum << " centred on " << minutes / 60.0;
        }
    }
}

/// One second of arc from the antipode: 1 + cosC is 1.2e-11.
TEST_F(Azimuthal, OneSecondFromTheAntipodeIsOnTheMap) {
    for (const std::int16_t projNum : ShowTheGlobe) {
        for (const double centre : {0.0, 40.0, -75.0}) {
            Disc(projNum, centre, 180.0);
            ProjectAt(-centre + 1.0 / 3600.0, 0.0);
            EXPECT_FALSE(Design.ProjOffMap) << projNum << " centred on " << centre;
        }
    }
}

TEST_F(Azimuthal, VisibleMeansStrictlyGreater) {
    for (const std::int16_t projNum : Azimuthals) {
        Disc(projNum, 90.0, 60.0);
        // On a map about the pole sinLat is cosC, but for a term of 1e-14.
        Design.CosLatCentral = 0.0;
        Design.SinLatCentral = 1.0;
        const double cosC = std::sin(50.0 * DegToRad);
        const auto index = static_cast<std::size_t>(projNum - ProjGnomonic);
        Design.HorizonCos[index] = cosC;
        Design.PointStatus = PointContinues;
        ProjectAt(50.0, 180.0);
        EXPECT_TRUE(Design.ProjOffMap) << projNum << ": equal is not visible";
        EXPECT_EQ(Design.PointStatus, PointBeyondHorizon);
        Design.HorizonCos[index] = std::nextafter(cosC, 0.0);
        Design.PointStatus = PointContinues;
        ProjectAt(50.0, 180.0);
        EXPECT_FALSE(Design.ProjOffMap) << projNum;
        EXPECT_EQ(Design.PointStatus, PointContinues);
    }
}

TEST_F(Azimuthal, PointBeyondTheHorizonKeepsTheCoordinates) {
    for (const std::int16_t projNum : {ProjGnomonic, ProjOrthographic, ProjVerticalPerspective}) {
        Disc(projNum, 0.0, 60.0);
        Design.ProjX = 4.0;
        Design.ProjY = 5.0;
        ProjectAt(0.0, 300.0);
        EXPECT_TRUE(Design.ProjOffMap);
        EXPECT_EQ(Design.ProjX, 4.0);
        EXPECT_EQ(Design.ProjY, 5.0);
    }
}

/// On a map about the pole whose cosine is taken as 0, the equator has a cosC of exactly 0.
TEST_F(Azimuthal, GnomonicStopsAtTheHorizonItself) {
    Disc(ProjGnomonic, 90.0, 60.0);
    Design.CosLatCentral = 0.0;
    ProjectAt(0.0, 100.0);
    EXPECT_TRUE(Design.ProjOffMap);
    EXPECT_EQ(Design.PointStatus, PointBeyondHorizon);
    ProjectAt(1e-9, 100.0);
    EXPECT_FALSE(Design.ProjOffMap);
}

TEST_F(Azimuthal, OrthographicShowsItsRim) {
    for (const double centre : {0.0, 30.0, -45.0, 90.0}) {
        Disc(ProjOrthographic, centre, 90.0);
        for (const double lon : {90.0, 270.0}) {
            ProjectAt(0.0, lon);
            EXPECT_FALSE(Design.ProjOffMap) << centre;
            EXPECT_NEAR(std::hypot(Design.ProjX, Design.ProjY), 1.0, 1e-15);
        }
        ProjectAt(0.0, 270.00001);
        EXPECT_EQ(Design.ProjOffMap, centre != 90.0) << "1.7e-7 radians behind the rim";
    }
}

TEST_F(Azimuthal, PerspectiveShowsItsHorizon) {
    for (const double height : {1.0, 400.0, 35840.0, 384400.0}) {
        SetDisc(ProjVerticalPerspective, 0.0, 60.0);
        Design.VpDistanceKm = height;
        ParamSelect();
        const double horizon = std::acos(6371.0 / (6371.0 + height)) / DegToRad;
        ProjectAt(0.0, 180.0 + horizon);
        EXPECT_FALSE(Design.ProjOffMap) << height;
        ProjectAt(0.0, 180.0 + horizon + 1e-3);
        EXPECT_TRUE(Design.ProjOffMap) << height;
    }
}

// ---- Far points of the equidistant.

TEST_F(Azimuthal, EquidistantMeasuresEveryDistanceFromTheCentre) {
    Disc(ProjAzimuthalEquidistant, 0.0, 180.0);
    for (const double away : {0.001, 1.0, 45.0, 89.999999, 90.0, 90.000001, 91.0, 135.0, 179.0}) {
        ProjectAt(0.0, 180.0 + away);
        // The scale c / s has the root of 1 - cosC^2 below it: 2e-16 of the cosine are 2e-16 / s in
        // the distance, and c / s^2 times as much in the scale.
        const double s = std::sin(away * DegToRad);
        const double c = away * DegToRad;
        EXPECT_NEAR(Design.ProjX, c, 4e-15 + 2e-16 * (1.0 / s + c / (s * s))) << away;
        EXPECT_NEAR(Design.ProjY, 0.0, 1e-15) << away;
    }
}

/// Within 1e-8 of a right angle the distance is taken as one: 1.7e-9 radians are passed over here.
TEST_F(Azimuthal, EquidistantTakesARightAngleWhereTheCosineVanishes) {
    Disc(ProjAzimuthalEquidistant, 0.0, 180.0);
    for (const double away : {89.9999999, 90.0, 90.0000001}) {
        ProjectAt(0.0, 180.0 + away);
        EXPECT_DOUBLE_EQ(Design.ProjX, Pi / 2.0) << away;
    }
}

// ---- Test and resume.

class TestMode : public Azimuthal {
protected:
    void Test(double lat, double lon, std::int16_t mode = -1) {
        Design.ProjTestMode = mode;
        Design.PointStatus = PointContinues;
        Design.ProjOffMap = false;
        Design.ProjLat = lat;
        Design.ProjLon = lon;
        ProjectSelect(&tested);
    }

    void Resume() {
        Design.ProjTestMode = TestResume;
        ProjectSelect(&tested);
    }

    AzimuthalTerms tested;
};

TEST_F(TestMode, ClassifiesAndNeverProjects) {
    for (const std::int16_t projNum : Azimuthals) {
        Disc(projNum, 0.0, 60.0);
        Design.CosRange = std::cos(60.0 * DegToRad);
        for (const std::int16_t mode : std::initializer_list<std::int16_t>{-1, 1, 3, 32767, -32768}) {
            Design.ProjX = 4.0;
            Design.ProjY = 5.0;
            Test(0.0, 239.0, mode);
            EXPECT_EQ(Design.PointStatus, PointInRange) << projNum << ": inside the range";
            EXPECT_TRUE(Design.ProjOffMap);
            Test(0.0, 241.0, mode);
            EXPECT_EQ(Design.PointStatus, PointOutOfRange) << projNum << ": outside the range";
            EXPECT_TRUE(Design.ProjOffMap);
            EXPECT_EQ(Design.ProjTestMode, mode);
            EXPECT_EQ(Design.ProjX, 4.0);
            EXPECT_EQ(Design.ProjY, 5.0);
        }
    }
}

TEST_F(TestMode, ThePointOnTheCircleIsInside) {
    Disc(ProjStereographic, 90.0, 40.0);
    Design.CosLatCentral = 0.0;
    Design.SinLatCentral = 1.0;
    Design.CosRange = std::sin(50.0 * DegToRad);
    Test(50.0, 10.0);
    EXPECT_EQ(Design.PointStatus, PointInRange);
    Design.CosRange = std::nextafter(Design.CosRange, 1.0);
    Test(50.0, 10.0);
    EXPECT_EQ(Design.PointStatus, PointOutOfRange);
}

TEST_F(TestMode, HorizonComesBeforeTheRange) {
    Disc(ProjOrthographic, 0.0, 60.0);
    Test(0.0, 300.0);
    EXPECT_EQ(Design.PointStatus, PointBeyondHorizon);
    EXPECT_TRUE(Design.ProjOffMap);
    EXPECT_EQ(Design.ProjTestMode, TestOnly);
}

TEST_F(TestMode, NormalCallMindsTheHorizonAlone) {
    Disc(ProjStereographic, 0.0, 10.0);
    Design.PointStatus = PointContinues;
    ProjectAt(0.0, 240.0);
    EXPECT_FALSE(Design.ProjOffMap);
    EXPECT_EQ(Design.PointStatus, PointContinues);
}

TEST_F(TestMode, ResumeProjectsTheTestedPointWithoutReadingItAgain) {
    for (const std::int16_t projNum : Azimuthals) {
        Disc(projNum, 20.0, 60.0);
        ProjectAt(35.0, 200.0);
        const double x = Design.ProjX;
        const double y = Design.ProjY;
        Test(35.0, 200.0);
        ASSERT_EQ(Design.PointStatus, PointInRange);
        // Neither the point nor the test's own limits may be read by the call that resumes.
        Design.ProjLat = std::numeric_limits<double>::quiet_NaN();
        Design.ProjLon = std::numeric_limits<double>::quiet_NaN();
        Design.LonCentral = std::numeric_limits<double>::quiet_NaN();
        Design.CosRange = 1.0;
        Design.HorizonCos = {1.0, 1.0, 1.0, 1.0, 1.0, 1.0};
        Design.PointStatus = 7;
        Resume();
        EXPECT_FALSE(Design.ProjOffMap);
        EXPECT_EQ(Design.ProjTestMode, TestNone);
        EXPECT_EQ(Design.PointStatus, 7);
        EXPECT_EQ(Design.ProjX, x);
        EXPECT_EQ(Design.ProjY, y);
    }
    EXPECT_THAT(machine.boxes.asked, IsEmpty());
}

/// An end of a straight meridian lies where the test takes it for the antipode.
TEST_F(TestMode, ResumeProjectsAPointThatTheTestFoundBeyondTheHorizon) {
    Disc(ProjStereographic, 0.0, 60.0);
    Design.HorizonCos.fill(1.0);
    Test(0.0, 270.0);
    ASSERT_EQ(Design.PointStatus, PointBeyondHorizon);
    Resume();
    EXPECT_NEAR(Design.ProjX, 2.0, 1e-14) << "2 tan(90 / 2)";
    EXPECT_EQ(Design.ProjTestMode, TestNone);
}

TEST_F(TestMode, PointsBetweenATestAndItsResumptionDoNotDisturbIt) {
    Disc(ProjStereographic, 0.0, 120.0);
    Test(0.0, 270.0);
    AzimuthalTerms other;
    Design.ProjTestMode = TestOnly;
    Design.ProjLon = 190.0;
    ProjectSelect(&other);
    Design.ProjTestMode = TestNone;
    ProjectAt(10.0, 200.0);
    Resume();
    EXPECT_NEAR(Design.ProjX, 2.0, 1e-14);
    EXPECT_NEAR(Design.ProjY, 0.0, 1e-15);
}

TEST_F(TestMode, ResumeWithoutTheTermsOfATestReadsThePoint) {
    Disc(ProjStereographic, 0.0, 60.0);
    Design.HorizonCos.fill(1.0);
    Design.ProjTestMode = TestResume;
    ProjectAt(0.0, 270.0);
    EXPECT_NEAR(Design.ProjX, 2.0, 1e-14);
    EXPECT_EQ(Design.ProjTestMode, TestNone);
}

TEST_F(TestMode, OtherFamiliesKnowNoTest) {
    SetRectangle(ProjMollweide, 90.0, -90.0, 360.0);
    Design.ProjTestMode = TestOnly;
    ProjectAt(0.0, 360.0);
    EXPECT_FALSE(Design.ProjOffMap);
    EXPECT_NEAR(Design.ProjX, 2.0 * std::sqrt(2.0), 1e-15);
    EXPECT_EQ(Design.ProjTestMode, TestOnly);
}

} // namespace
} // namespace quelmont
