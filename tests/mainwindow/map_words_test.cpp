#include "mainwindow/map_words.h"

#include "core/coordinates.h"
#include "mainwindow/started_program.h"
#include "projection/projection_table.h"

#include <gtest/gtest.h>

#include <limits>

namespace quelmont {
namespace {

class MapWords : public StartedProgram {
protected:
    static void Take(std::int16_t projNum) {
        Design.ProjNum = projNum;
        Design.ProjName = FindProjection(projNum)->ProjName;
    }
};

TEST_F(MapWords, TellProjectionAndBounds) {
    EXPECT_EQ(MapInWords(), "Equirectangular projection, latitude 90\u00B0 N to 90\u00B0 S, longitude "
                            "180\u00B0 W to 180\u00B0 E");
}

TEST_F(MapWords, TellMinutesAndSecondsThatAreNotZero) {
    Take(ProjRobinson);
    Design.GridText[GridTextNorth] = "71    30    00    N";
    Design.GridText[GridTextSouth] = "35    00    09    N";
    Design.GridText[GridTextWest] = "011    00    00    W";
    Design.GridText[GridTextEast] = "040    07    05    E";
    EXPECT_EQ(MapInWords(),
              "Robinson projection, latitude 71\u00B0 30\u2032 N to 35\u00B0 0\u2032 9\u2033 N, "
              "longitude 11\u00B0 W to 40\u00B0 7\u2032 5\u2033 E");
}

TEST_F(MapWords, TellBothSidesOfThe180thMeridian) {
    Design.GridText[GridTextWest] = "180    00    00    E";
    Design.GridText[GridTextEast] = "180    00    00    W";
    EXPECT_EQ(MapInWords(), "Equirectangular projection, latitude 90\u00B0 N to 90\u00B0 S, longitude "
                            "180\u00B0 E to 180\u00B0 W");
}

TEST_F(MapWords, TellCenterAndRangeOfADisc) {
    Take(28);
    Design.GridText[GridTextCentralLat] = "40    00    00    N";
    Design.GridText[GridTextCentralLon] = "100    30    00    W";
    Design.RangeSec = 90 * SecPerDegree;
    EXPECT_EQ(MapInWords(), "Orthographic Azimuthal projection, center 40\u00B0 N, 100\u00B0 30\u2032 W, "
                            "range 90\u00B0");
    Take(ProjVerticalPerspective);
    Design.RangeSec = 81 * SecPerDegree + 18 * SecPerMinute;
    Design.VpDistanceKm = 35786.0;
    EXPECT_EQ(MapInWords(),
              "Vertical Perspective Azimuthal projection, center 40\u00B0 N, 100\u00B0 30\u2032 W, "
              "range 81\u00B0 18\u2032, seen from 35,786 kilometers");
}

TEST_F(MapWords, TellMetersOfAUtmMap) {
    Take(ProjUtm);
    Design.LatNorth = 5'900'000.0;
    Design.LatSouth = 0.0;
    Design.LonZero = 200'000.0;
    Design.LonSpan = 800'000.0;
    Design.UtmText[UtmTextCentralLon] = "009    00    00    E";
    EXPECT_EQ(MapInWords(),
              "UTM projection, northing 0 to 5,900,000 meters, easting 200,000 to 800,000 meters, "
              "central longitude 9\u00B0 E");
}

TEST_F(MapWords, TellTheProjectionOfBoundsThatNoNumberCanTell) {
    Take(ProjUtm);
    Design.LatNorth = std::numeric_limits<double>::infinity();
    EXPECT_EQ(MapInWords(), "UTM projection");
}

} // namespace
} // namespace quelmont
