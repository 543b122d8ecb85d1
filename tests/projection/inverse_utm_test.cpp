#include "projection/inverse_utm.h"

#include "core/map_design.h"
#include "projection/reference_projection.h"
#include "projection/utm.h"
#include "support/fresh_program.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <bit>
#include <cmath>
#include <limits>
#include <random>

namespace quelmont {
namespace {

class InverseUtm : public FreshProgramTest {
protected:
    InverseUtm() {
        Design.ProjNum = ProjUtm;
        Design.SpheroidName = "Clarke 1866";
        Zone("009    00    00    W", "00    00    00    N");
    }

    static void Zone(const char* central, const char* origin, const char* scale = "0.9996") {
        Design.UtmText = {central, origin, "0500000", "10000000", scale};
        CalcUtmZone();
    }

    struct Metres {
        double easting, northing;
    };

    static Metres Forward(double lat, double lon) {
        Design.ProjLat = lat;
        Design.ProjLon = lon;
        UtmForward();
        return {Design.ProjLon, Design.ProjLat};
    }

    /// The metres come back within 1e-6, and so does the place, to 1e-9 degrees.
    static testing::AssertionResult ComesBack(double lat, double lon) {
        const Metres metres = Forward(lat, lon);
        const auto found = UtmInverse(metres.easting, metres.northing);
        if (!found) {
            return testing::AssertionFailure() << "nothing at " << lat << ", " << lon;
        }
        const Metres back = Forward(found->lat, found->lon);
        const double error = std::hypot(back.easting - metres.easting, back.northing - metres.northing);
        const double away = DistanceDegrees({lat, lon}, {found->lat, found->lon});
        if (!(error <= 1e-6) || !(away <= 1e-9) || !(std::fabs(found->lon) <= 180.0)) {
            return testing::AssertionFailure()
                   << lat << ", " << lon << " comes back as " << found->lat << ", " << found->lon << ", "
                   << error << " metres and " << away << " degrees away";
        }
        return testing::AssertionSuccess();
    }
};

TEST_F(InverseUtm, ComesBackInZonesOfBothHemispheresOnEverySpheroid) {
    for (const Spheroid& spheroid : Spheroids) {
        Design.SpheroidName = spheroid.name;
        for (const char* central : {"009    00    00    W", "177    00    00    E", "180    00    00    W"}) {
            for (const char* origin : {"00    00    00    N", "45    30    00    N", "30    15    20    S"}) {
                Zone(central, origin);
                for (double lat = -84.0; lat <= 84.0; lat += 4.0) {
                    for (double east = -6.0; east <= 6.0; east += 1.0) {
                        ASSERT_TRUE(ComesBack(lat, Design.LonCentral + east))
                            << spheroid.name << ", " << central;
                    }
                }
            }
        }
    }
}

/// Metres far beyond any zone, whose maps the dialog accepts all the same.
TEST_F(InverseUtm, ComesBackWithinNinetyDegreesOfTheCentralMeridian) {
    for (double lat = -90.0; lat <= 90.0; lat += 1.0) {
        for (double east = -89.75; east <= 89.75; east += 2.5) {
            ASSERT_TRUE(ComesBack(lat, -9.0 + east));
        }
    }
}

TEST_F(InverseUtm, ComesBackNextToThePoles) {
    for (const double sign : {1.0, -1.0}) {
        for (const double colatitude : {0.0, 1e-9, 1e-6, 1.0 / 3600.0, 0.01, 1.0}) {
            for (double east = -85.0; east <= 85.0; east += 5.0) {
                ASSERT_TRUE(ComesBack(sign * (90.0 - colatitude), -9.0 + east));
            }
        }
    }
}

TEST_F(InverseUtm, ComesBackFromRandomMetresOrHasNone) {
    std::mt19937 random(17);
    std::uniform_real_distribution<double> easting(-2e7, 2e7);
    std::uniform_real_distribution<double> northing(-2e6, 2.2e7);
    int found = 0;
    for (int i = 0; i < 5000; ++i) {
        const Metres metres{easting(random), northing(random)};
        const auto place = UtmInverse(metres.easting, metres.northing);
        if (!place) {
            continue;
        }
        ++found;
        const Metres back = Forward(place->lat, place->lon);
        ASSERT_NEAR(back.easting, metres.easting, 1e-6) << metres.northing;
        ASSERT_NEAR(back.northing, metres.northing, 1e-6) << metres.easting;
        double away = std::fabs(place->lon + 9.0);
        away = std::min(away, 360.0 - away);
        ASSERT_LE(away, 90.0 + 1e-9);
    }
    EXPECT_GT(found, 1000);
    EXPECT_LT(found, 4000);
}

TEST_F(InverseUtm, OriginIsWhereTheFalseCoordinatesAre) {
    Zone("147    30    36    E", "36    15    18    S");
    const auto place = UtmInverse(500000.0, 10000000.0);
    ASSERT_TRUE(place);
    EXPECT_NEAR(place->lat, -(36.0 + 15.0 / 60.0 + 18.0 / 3600.0), 1e-12);
    EXPECT_NEAR(place->lon, 147.0 + 30.0 / 60.0 + 36.0 / 3600.0, 1e-12);
}

TEST_F(InverseUtm, LongitudesBeyondTheAntimeridianAreTrueOnes) {
    Zone("177    00    00    E", "00    00    00    N");
    const Metres metres = Forward(20.0, -178.0);
    const auto place = UtmInverse(metres.easting, metres.northing);
    ASSERT_TRUE(place);
    EXPECT_NEAR(place->lon, -178.0, 1e-9);
}

/// Just beyond 90 degrees the series goes on, but other places have its metres too.
TEST_F(InverseUtm, NothingFurtherThanNinetyDegrees) {
    for (double lat = -80.0; lat <= 80.0; lat += 5.0) {
        for (const double side : {-1.0, 1.0}) {
            const Metres inside = Forward(lat, -9.0 + side * 89.99);
            EXPECT_TRUE(UtmInverse(inside.easting, inside.northing)) << lat;
            const Metres outside = Forward(lat, -9.0 + side * 90.01);
            EXPECT_FALSE(UtmInverse(outside.easting, outside.northing)) << lat;
        }
    }
}

/// A northing of the field's 99 999 999 metres has eight digits less after its point.
TEST_F(InverseUtm, LargeFalseCoordinatesCostNothing) {
    Design.UtmText = {"009    00    00    W", "00    00    00    N", "9999999", "99999999", "0.9996"};
    CalcUtmZone();
    for (double lat = -80.0; lat <= 80.0; lat += 10.0) {
        EXPECT_TRUE(ComesBack(lat, -7.5));
    }
}

TEST_F(InverseUtm, AnyScaleOfTheFieldWorksButNone) {
    for (const char* scale : {"0.0001", "0.5000", "1.0000", "9.9999"}) {
        Zone("009    00    00    W", "00    00    00    N", scale);
        const Metres metres = Forward(48.0, -5.0);
        const auto place = UtmInverse(metres.easting, metres.northing);
        ASSERT_TRUE(place) << scale;
        // A rounding of a northing of 10 000 000 is 2e-9 metres, at a scale of 0.0001 worth 2e-10 degrees.
        EXPECT_NEAR(place->lat, 48.0, 1e-8) << scale;
        EXPECT_NEAR(place->lon, -5.0, 1e-8) << scale;
    }
    Zone("009    00    00    W", "00    00    00    N", "0.0000");
    EXPECT_FALSE(UtmInverse(500000.0, 10000000.0));
    EXPECT_FALSE(UtmInverse(400000.0, 12000000.0));
}

TEST_F(InverseUtm, NothingWithoutAZone) {
    Design = {};
    EXPECT_FALSE(UtmInverse(500000.0, 5000000.0));
    EXPECT_FALSE(UtmInverse(0.0, 0.0));
}

TEST_F(InverseUtm, NoNumbersAndEndlessOnesHaveNoPlace) {
    for (const double bad :
         {std::numeric_limits<double>::quiet_NaN(), std::numeric_limits<double>::infinity(),
          -std::numeric_limits<double>::infinity(), 1e300, -1e300, 1e12}) {
        EXPECT_FALSE(UtmInverse(bad, 5000000.0)) << bad;
        EXPECT_FALSE(UtmInverse(500000.0, bad)) << bad;
        EXPECT_FALSE(UtmInverse(bad, bad)) << bad;
    }
}

/// Neither throws nor hangs, whatever the constants are.
TEST_F(InverseUtm, AnyConstantsGiveAPlaceOnTheGlobeOrNothing) {
    std::mt19937_64 random(45);
    const auto any = [&] { return std::bit_cast<double>(random()); };
    for (int i = 0; i < 3000; ++i) {
        Zone("009    00    00    W", "00    00    00    N");
        double* const constants[] = {&Design.SpheroidA,     &Design.SpheroidE2,      &Design.SpheroidEp2,
                                     &Design.UtmK0,         &Design.UtmFalseEasting, &Design.UtmFalseNorthing,
                                     &Design.UtmMeridianC0, &Design.UtmMeridianC1,   &Design.UtmM0};
        *constants[static_cast<std::size_t>(i) % std::size(constants)] = any();
        const auto place = UtmInverse(i % 2 == 0 ? 500000.0 : any(), i % 3 == 0 ? 15000000.0 : any());
        if (place) {
            ASSERT_LE(std::fabs(place->lat), 90.0);
            ASSERT_LE(std::fabs(place->lon), 180.0);
        }
    }
}

TEST_F(InverseUtm, LeavesThePointCellAsItWas) {
    Design.ProjLat = 1.5;
    Design.ProjLon = 2.5;
    EXPECT_TRUE(UtmInverse(600000.0, 15000000.0));
    EXPECT_EQ(Design.ProjLat, 1.5);
    EXPECT_EQ(Design.ProjLon, 2.5);
    EXPECT_TRUE(machine.boxes.asked.empty());
}

} // namespace
} // namespace quelmont
