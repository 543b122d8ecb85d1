#include "projection/utm.h"

#include "core/map_design.h"
#include "projection/inverse_utm.h"
#include "projection/map_fields.h"
#include "projection/reference_projection.h"
#include "support/fresh_program.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <array>
#include <cmath>
#include <numbers>
#include <random>

namespace quelmont {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

constexpr double Degree = std::numbers::pi / 180.0;

const std::array<std::string, 11> DefaultTexts = {"009    00    00    W",
                                                  "00    00    00    N",
                                                  "0500000",
                                                  "00000000",
                                                  "0.9996",
                                                  "06200000",
                                                  "05600000",
                                                  "00100000",
                                                  "0300000",
                                                  "0800000",
                                                  "0100000"};

class Utm : public FreshProgramTest {
protected:
    Utm() {
        Design.ProjNum = ProjUtm;
        Design.UtmText = DefaultTexts;
        Design.SpheroidName = "Clarke 1866";
    }

    static void Forward(double lat, double lon) {
        Design.ProjLat = lat;
        Design.ProjLon = lon;
        UtmForward();
    }
};

// ---- The zone.

TEST_F(Utm, DefaultZoneIsNineWestOnClarke1866) {
    CalcUtmZone();
    EXPECT_EQ(Design.LonCentralSec, -32400);
    EXPECT_EQ(Design.LonCentral, -9.0);
    EXPECT_EQ(Design.LonMiddle, -9.0);
    EXPECT_EQ(Design.LonCentralText, "009    00    00    W");
    EXPECT_EQ(Design.LatCentralSec, 0);
    EXPECT_EQ(Design.LatCentral, 0.0);
    EXPECT_EQ(Design.LatCentralText, "00    00    00    N");
    EXPECT_EQ(Design.SpheroidA, 6378206.4);
    EXPECT_EQ(Design.SpheroidF, 1.0 / 294.9786982);
    EXPECT_EQ(Design.UtmFalseEasting, 500000.0);
    EXPECT_EQ(Design.UtmFalseNorthing, 0.0);
    EXPECT_EQ(Design.UtmK0, 0.9996);
    EXPECT_EQ(Design.UtmM0, 0.0);
    EXPECT_THAT(machine.boxes.asked, IsEmpty());
}

TEST_F(Utm, OriginSouthOfTheEquatorIsNegative) {
    Design.UtmText[UtmTextCentralLon] = "147    30    36    E";
    Design.UtmText[UtmTextOriginLat] = "36    15    18    S";
    CalcUtmZone();
    EXPECT_EQ(Design.LonCentralSec, 147 * 3600 + 30 * 60 + 36);
    EXPECT_EQ(Design.LonCentral, 531036.0 / 3600.0);
    EXPECT_EQ(Design.LonCentralText, "147    30    36    E");
    EXPECT_EQ(Design.LatCentralSec, -(36 * 3600 + 15 * 60 + 18));
    EXPECT_EQ(Design.LatCentral, -130518.0 / 3600.0);
    EXPECT_EQ(Design.LatCentralText, "36    15    18    S");
}

TEST_F(Utm, LettersAreComparedAsTheyStand) {
    Design.UtmText[UtmTextCentralLon] = "009    00    00    w";
    Design.UtmText[UtmTextOriginLat] = "10    00    00    s";
    CalcUtmZone();
    EXPECT_EQ(Design.LonCentral, 9.0);
    EXPECT_EQ(Design.LatCentral, 10.0);
}

/// The coefficients by Snyder 1987, eq. 3-21, in long double, with the sign of e^6/256 turned and
/// the sines of 4 and 6 phi written in powers of cos 2 phi.
TEST_F(Utm, SeriesIsSnydersWithOneSignTurned) {
    CalcUtmZone();
    const long double f = 1.0L / 294.9786982L;
    const long double e2 = f * (2.0L - f);
    const long double e4 = e2 * e2;
    const long double e6 = e4 * e2;
    EXPECT_NEAR(Design.SpheroidE2, static_cast<double>(e2), 1e-18);
    EXPECT_NEAR(Design.SpheroidEp2, static_cast<double>(e2 / (1.0L - e2)), 1e-17);
    const long double sin2 = 3.0L * e2 / 8.0L + 3.0L * e4 / 32.0L + 45.0L * e6 / 1024.0L;
    const long double sin4 = 15.0L * e4 / 256.0L + 45.0L * e6 / 1024.0L;
    const long double sin6 = 35.0L * e6 / 3072.0L;
    EXPECT_NEAR(Design.UtmMeridianC0,
                static_cast<double>(1.0L - e2 / 4.0L - 3.0L * e4 / 64.0L + 5.0L * e6 / 256.0L), 2e-16);
    // sin 4 phi = 2 sin 2 phi cos 2 phi; sin 6 phi = sin 2 phi (4 cos^2 2 phi - 1).
    EXPECT_NEAR(Design.UtmMeridianC1, static_cast<double>(-sin2 + sin6), 1e-18);
    EXPECT_NEAR(Design.UtmMeridianC2, static_cast<double>(2.0L * sin4), 1e-20);
    EXPECT_NEAR(Design.UtmMeridianC3, static_cast<double>(-4.0L * sin6), 1e-22);
}

TEST_F(Utm, SpheroidsAreThoseOfTheDialogInItsOrder) {
    std::vector<std::string> names;
    for (const Spheroid& spheroid : Spheroids) {
        names.emplace_back(spheroid.name);
    }
    EXPECT_THAT(names, ElementsAre("Airy 1830", "Everest 1830", "Bessel 1841", "Clarke 1866", "Clarke 1880",
                                   "International 1924", "Krasovsky 1940", "Australian 1965", "WGS84 1984"));
}

TEST_F(Utm, UnknownSpheroidKeepsTheOldOneAndComputesTheSeries) {
    Design.SpheroidName = "Bessel 1841";
    CalcUtmZone();
    Design.SpheroidName = "bessel 1841";
    Design.UtmText[UtmTextOriginLat] = "50    00    00    N";
    CalcUtmZone();
    EXPECT_EQ(Design.SpheroidA, 6377397.155);
    EXPECT_EQ(Design.SpheroidF, 1.0 / 299.1528128);
    // The meridian from the equator to 50 N on Bessel's spheroid: 5,540,279.5 m by the tables.
    EXPECT_NEAR(Design.UtmM0, 5540279.5, 0.2);
    EXPECT_THAT(machine.boxes.asked, IsEmpty());
}

TEST_F(Utm, NumberTooLargeShowsTheBoxOfTheRoutine) {
    Design.UtmText[UtmTextCentralLon] = "9E9    00    00    W";
    CalcUtmZone();
    EXPECT_THAT(machine.boxes.asked, ElementsAre(AskedBox{"Error in CalcUtmZone", "Error: Overflow"}));
}

// ---- The forward series.

TEST_F(Utm, OriginIsAtTheFalseEasting) {
    for (const char* origin : {"00    00    00    N", "36    15    18    S", "80    00    00    N"}) {
        Design.UtmText[UtmTextOriginLat] = origin;
        CalcUtmZone();
        Forward(Design.LatCentral, -9.0);
        EXPECT_EQ(Design.ProjLon, 500000.0) << origin;
        EXPECT_EQ(Design.ProjLat, 0.0) << origin;
    }
}

TEST_F(Utm, FalseCoordinatesAreAddedAsTheyStand) {
    CalcUtmZone();
    Forward(52.5, -7.25);
    const double easting = Design.ProjLon;
    const double northing = Design.ProjLat;
    Design.UtmText[UtmTextFalseEasting] = "0200000";
    Design.UtmText[UtmTextFalseNorthing] = "10000000";
    CalcUtmZone();
    Forward(52.5, -7.25);
    EXPECT_NEAR(Design.ProjLon, easting - 300000.0, 1e-9);
    EXPECT_NEAR(Design.ProjLat, northing + 10000000.0, 1e-8);
}

TEST_F(Utm, LongitudesCountTheShortWayRound) {
    Design.UtmText[UtmTextCentralLon] = "177    00    00    W";
    CalcUtmZone();
    Forward(10.0, 179.0);
    const double across = Design.ProjLon;
    Forward(10.0, -181.0);
    EXPECT_EQ(across, Design.ProjLon) << "dl = 356 is -4";
    EXPECT_LT(across, 500000.0);

    Design.UtmText[UtmTextCentralLon] = "177    00    00    E";
    CalcUtmZone();
    Forward(10.0, -179.0);
    EXPECT_GT(Design.ProjLon, 500000.0) << "dl = -356 is 4";
    EXPECT_NEAR(Design.ProjLon - 500000.0, 500000.0 - across, 1e-8);
}

TEST_F(Utm, ProjectSelectTakesMetresAsTheyStand) {
    ProjectAt(5600000.0, 300000.0);
    EXPECT_EQ(Design.ProjX, 300000.0);
    EXPECT_EQ(Design.ProjY, 5600000.0);
    EXPECT_FALSE(Design.ProjOffMap);
}

// ---- Against PROJ, which works with the sixth order of the third flattening.

/// Metres by which the series, as it stands, may miss: the first terms that it leaves out.
struct SeriesError {
    double easting, northing;
};

SeriesError OmittedTerms(double lat, double dLon) {
    const double phi = lat * Degree;
    const double dl = std::fabs(dLon) * Degree;
    const double s2 = std::sin(phi) * std::sin(phi);
    const double c2 = std::cos(phi) * std::cos(phi);
    const double radius = 6.4e6; // no radius of curvature is larger
    // A^7/5040 (61 - 479 T + 179 T^2 - T^3) and A^8/40320 (1385 - 3111 T + 543 T^2 - T^3), all signs
    // taken as one, with A = dl cos phi and T = tan^2 phi.
    const double a7 = std::pow(dl, 7.0) * std::sqrt(c2) / 5040.0 *
                      (61.0 * c2 * c2 * c2 + 479.0 * s2 * c2 * c2 + 179.0 * s2 * s2 * c2 + s2 * s2 * s2);
    const double a8 = std::pow(dl, 8.0) * std::sqrt(s2 * c2) / 40320.0 *
                      (1385.0 * c2 * c2 * c2 + 3111.0 * s2 * c2 * c2 + 543.0 * s2 * s2 * c2 + s2 * s2 * s2);
    // The squares of the second eccentricity squared in the terms of A^5 and A^6: 4.7e-5 times at
    // most 77/120 and 925/720.
    const double a5 = 4.7e-5 * 0.65 * std::pow(dl, 5.0);
    const double a6 = 4.7e-5 * 1.3 * std::pow(dl, 6.0);
    // The e^8 terms of the meridian, 175/16384 phi + 105/4096 + 525/16384 + 175/12288 at most, with
    // the next ones hardly 0.09; e^8 is 2.2e-9 on the flattest spheroid. M0 has them too.
    const double meridian = 2.0 * 0.09 * 2.2e-9;
    return {radius * (a7 + a5), radius * (a8 + a6 + meridian)};
}

/// What the sign of the e^6 term adds to the northing: twice 5/256 e^6 of the arc's angle.
double SixthOrderShift(double lat) {
    const double e6 = std::pow(Design.SpheroidE2, 3.0);
    return Design.UtmK0 * Design.SpheroidA * (10.0 / 256.0) * e6 * (lat - Design.LatCentral) * Degree;
}

class UtmAgainstProj : public testing::TestWithParam<std::size_t> {
protected:
    void Zone(const char* lonCentral, const char* latOrigin) const {
        Design.UtmText = DefaultTexts;
        Design.UtmText[UtmTextCentralLon] = lonCentral;
        Design.UtmText[UtmTextOriginLat] = latOrigin;
        Design.UtmText[UtmTextFalseNorthing] = "10000000";
        Design.SpheroidName = Row().name;
        CalcUtmZone();
    }

    const Spheroid& Row() const { return Spheroids.at(GetParam()); }

    ReferenceProjection Reference() const {
        return ReferenceProjection(Definition("tmerc", {{"a", Row().equatorialRadius},
                                                        {"rf", Row().inverseFlattening},
                                                        {"k_0", 0.9996},
                                                        {"lat_0", Design.LatCentral},
                                                        {"x_0", 500000.0},
                                                        {"y_0", 10000000.0}}));
    }

    FreshProgram program;
};

TEST_P(UtmAgainstProj, DiffersByTheSixthOrderTermAlone) {
    for (const char* origin : {"00    00    00    N", "45    00    00    N", "30    30    00    S"}) {
        Zone("123    00    00    W", origin);
        const ReferenceProjection reference = Reference();
        for (double lat = -84.0; lat <= 84.0; lat += 1.5) {
            for (double dLon = -6.0; dLon <= 6.0; dLon += 0.5) {
                SCOPED_TRACE(testing::Message() << origin << ": " << lat << ", " << dLon);
                Design.ProjLat = lat;
                Design.ProjLon = dLon + Design.LonCentral;
                UtmForward();
                const auto expected = reference.Forward(lat, dLon);
                ASSERT_TRUE(expected);
                const SeriesError error = OmittedTerms(lat, dLon);
                ASSERT_NEAR(Design.ProjLon, expected->x, error.easting + 1e-7);
                ASSERT_NEAR(Design.ProjLat - SixthOrderShift(lat), expected->y, error.northing + 1e-7);
            }
        }
    }
}

/// The inverse of the northing without the sixth order term, which is worth less than 1.2e-6 degrees of the
/// latitude that it is taken at.
TEST_P(UtmAgainstProj, InverseDiffersByTheSixthOrderTermAlone) {
    for (const char* origin : {"00    00    00    N", "30    30    00    S"}) {
        Zone("123    00    00    W", origin);
        const ReferenceProjection reference = Reference();
        for (double easting = 200000.0; easting <= 800000.0; easting += 50000.0) {
            for (double arc = -9000000.0; arc <= 9000000.0; arc += 250000.0) {
                const double northing = 10000000.0 + arc - Design.UtmM0 * Design.UtmK0;
                const auto found = UtmInverse(easting, northing);
                ASSERT_TRUE(found);
                if (std::fabs(found->lat) > 84.0) {
                    continue;
                }
                const auto expected = reference.Inverse(easting, northing - SixthOrderShift(found->lat));
                ASSERT_TRUE(expected);
                const double dLon = found->lon - Design.LonCentral;
                const SeriesError error = OmittedTerms(found->lat, dLon);
                // A degree is 110 kilometres at least.
                ASSERT_LE(DistanceDegrees({found->lat, dLon}, *expected),
                          1e-9 + 1.001 * std::hypot(error.easting, error.northing) / 110000.0)
                    << origin << ": " << easting << ", " << northing;
            }
        }
    }
}

/// At 84 N, by the eccentricity of the spheroid; 0.117 m at the pole of WGS84, 0.123 m on the flattest.
TEST_P(UtmAgainstProj, SixthOrderTermIsWorthElevenCentimetres) {
    Zone("123    00    00    W", "00    00    00    N");
    const ReferenceProjection reference = Reference();
    Design.ProjLat = 84.0;
    Design.ProjLon = -123.0;
    UtmForward();
    const double shift = Design.ProjLat - reference.Forward(84.0, 0.0)->y;
    EXPECT_NEAR(shift, 0.111, 0.0055);
}

INSTANTIATE_TEST_SUITE_P(Spheroids, UtmAgainstProj, testing::Range<std::size_t>(0, 9), [](const auto& row) {
    std::string name(Spheroids.at(row.param).name);
    name.erase(std::remove(name.begin(), name.end(), ' '), name.end());
    return name;
});

/// The rows are PROJ's own of the same name, which it keeps apart from our figures.
TEST(Spheroids, AreThePublishedOnes) {
    const std::array<const char*, 9> ellipsoids = {"airy", "evrst30", "bessel",  "clrk66", "clrk80",
                                                   "intl", "krass",   "aust_SA", "WGS84"};
    for (std::size_t i = 0; i < ellipsoids.size(); ++i) {
        const ReferenceProjection named(std::string("+proj=tmerc +ellps=") + ellipsoids[i]);
        const ReferenceProjection ours(Definition(
            "tmerc", {{"a", Spheroids.at(i).equatorialRadius}, {"rf", Spheroids.at(i).inverseFlattening}}));
        const auto expected = named.Forward(80.0, 3.0);
        const auto found = ours.Forward(80.0, 3.0);
        ASSERT_TRUE(expected && found) << ellipsoids[i];
        // Radii are published to the millimetre or the decimetre.
        EXPECT_NEAR(found->x, expected->x, 0.01) << ellipsoids[i];
        EXPECT_NEAR(found->y, expected->y, 0.1) << ellipsoids[i];
    }
}

// ---- The box around the places of a box.

TEST_F(Utm, EnclosureHoldsEveryPlaceOfItsBox) {
    std::mt19937 random(2718);
    const auto between = [&](double low, double high) {
        return std::uniform_real_distribution<double>(low, high)(random);
    };
    for (const char* centre : {"009    00    00    W", "177    00    00    E", "180    00    00    W"}) {
        Design.UtmText[UtmTextCentralLon] = centre;
        CalcUtmZone();
        int told = 0;
        for (int box = 0; box < 2000; ++box) {
            const double size = box % 3 == 0 ? 0.1 : box % 3 == 1 ? 3.0 : 40.0;
            const double south = between(-88.0, 88.0);
            const double north = std::min(88.9, south + between(0.0, size));
            const double west = between(-180.0, 180.0);
            const double east = west + between(0.0, size);
            const auto metres = UtmEnclosure(south, north, west, east);
            if (!metres) {
                continue;
            }
            ++told;
            for (int point = 0; point < 20; ++point) {
                // Corners and edges first.
                Forward(point % 4 == 0   ? south
                        : point % 4 == 1 ? north
                                         : between(south, north),
                        point % 8 < 2   ? west
                        : point % 8 < 4 ? east
                                        : between(west, east));
                ASSERT_LE(metres->south, std::floor(Design.ProjLat)) << south << ", " << west;
                ASSERT_GE(metres->north, std::ceil(Design.ProjLat)) << south << ", " << west;
                ASSERT_LE(metres->west, std::floor(Design.ProjLon)) << south << ", " << west;
                ASSERT_GE(metres->east, std::ceil(Design.ProjLon)) << south << ", " << west;
            }
        }
        EXPECT_GT(told, 1500) << centre;
    }
}

TEST_F(Utm, EnclosureOfADegreeInTheZoneIsSomeKilometresTooLarge) {
    CalcUtmZone();
    // A degree of longitude measures 111.3 km times the cosine of the latitude, one of latitude 111 km.
    for (const double lat : {0.0, 30.0, 53.0, 70.0}) {
        for (const double west : {-12.0, -9.5, -7.0}) {
            const auto metres = UtmEnclosure(lat, lat + 1.0, west, west + 1.0);
            ASSERT_TRUE(metres);
            EXPECT_LT(metres->north - metres->south, 111'000.0 + 10'000.0) << lat << ", " << west;
            EXPECT_LT(metres->east - metres->west, 111'300.0 * std::cos(lat * Degree) + 15'000.0)
                << lat << ", " << west;
        }
    }
}

TEST_F(Utm, EnclosureIsNotGivenWhereItWouldBeOfNoUse) {
    CalcUtmZone();
    EXPECT_FALSE(UtmEnclosure(80.0, 90.0, 0.0, 1.0));
    EXPECT_FALSE(UtmEnclosure(-90.0, -80.0, 0.0, 1.0));
    EXPECT_FALSE(UtmEnclosure(10.0, 9.0, 0.0, 1.0));
    EXPECT_FALSE(UtmEnclosure(10.0, 11.0, 1.0, 0.0));
    EXPECT_FALSE(UtmEnclosure(10.0, 11.0, 170.0, 172.0)) << "171 E is opposite of 9 W";
    EXPECT_TRUE(UtmEnclosure(10.0, 11.0, 172.0, 173.0));
}

} // namespace
} // namespace quelmont
