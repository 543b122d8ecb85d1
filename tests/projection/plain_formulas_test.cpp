#include "core/map_design.h"
#include "projection/arctangent.h"
#include "projection/log_tangent.h"
#include "projection/map_fields.h"
#include "projection/param_select.h"
#include "projection/project_select.h"
#include "projection/sine_cosine.h"
#include "projection/utm.h"
#include "support/fresh_program.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <limits>
#include <numbers>
#include <random>

namespace quelmont {
namespace {

/// The unit in the last place of a number.
double UnitOf(double value) {
    return std::nextafter(std::fabs(value), std::numeric_limits<double>::infinity()) - std::fabs(value);
}

/// Distance from the true value, in units of its last place; the long double has eleven bits more.
double UnitsFrom(long double truth, double value) {
    return static_cast<double>(std::fabs(static_cast<long double>(value) - truth)) /
           UnitOf(static_cast<double>(truth));
}

struct Plane {
    double x, y;
};

// ---- The formulas as they stand in the literature, by the C library alone.

Plane PlainMercator(double lat, double lon) {
    return {(lon - Design.LonZero) * DegToRad, std::log(std::tan(lat * HalfDegToRad + QuarterPi))};
}

Plane PlainCylindricalEqualArea(double lat, double lon) {
    return {((lon - Design.LonZero) * DegToRad) * Design.CosStdPar,
            std::sin(lat * DegToRad) / Design.CosStdPar};
}

Plane PlainHammer(double lat, double lon) {
    const double phi = lat * DegToRad;
    const double lam = (lon - Design.LonCentral) * HalfDegToRad;
    const double c = std::cos(phi);
    const double d = std::sqrt(2.0 / (c * std::cos(lam) + 1.0));
    return {((d + d) * c) * std::sin(lam), std::sin(phi) * d};
}

double PlainMollweideAngle(double lat) {
    const double phi = lat * DegToRad;
    if (std::fabs(lat) == 90.0 || lat == 0.0) {
        return phi;
    }
    double t = phi;
    double d = 1.0;
    for (int round = 0; round < 200 && std::fabs(d) >= 1e-14; ++round) {
        d = (std::sin(phi) * Pi - (t + t) - std::sin(t + t)) / (std::cos(t + t) + std::cos(t + t) + 2.0);
        t = d + t;
    }
    return t;
}

Plane PlainConic(double lat, double lon) {
    const double n = Design.ConeConstant;
    double rho = (Design.ConicG - lat) * DegToRad;
    if (Design.ProjNum == ProjAlbers) {
        rho = std::sqrt(Design.ConicC - (n + n) * std::sin(lat * DegToRad)) / n;
    } else if (Design.ProjNum == ProjConformalConic) {
        rho = Design.ConicF / std::pow(std::tan(lat * HalfDegToRad + QuarterPi), n);
    }
    const double theta = ((lon - Design.LonCentral) * n) * DegToRad;
    return {std::sin(theta) * rho, Design.ConicRho0 - std::cos(theta) * rho};
}

double PlainAzimuthalScale(double cosC) {
    switch (Design.ProjNum) {
    case ProjGnomonic:
        return 1.0 / cosC;
    case ProjStereographic:
        return 2.0 / (cosC + 1.0);
    case ProjOrthographic:
        return 1.0;
    case ProjVerticalPerspective:
        return (Design.VpP - 1.0) / (Design.VpP - cosC);
    case ProjAzimuthalEquidistant: {
        const double s = std::sqrt(1.0 - cosC * cosC);
        const double c = std::atan(s / cosC);
        return (c < 0.0 ? c + Pi : c) / s;
    }
    default:
        return std::sqrt(2.0 / (cosC + 1.0));
    }
}

Plane PlainAzimuthal(double lat, double lon) {
    const double phi = lat * DegToRad;
    const double dLon = (lon - Design.LonCentral) * DegToRad;
    const double cosLat = std::cos(phi);
    const double sinLat = std::sin(phi);
    const double cosC = (cosLat * Design.CosLatCentral) * std::cos(dLon) + sinLat * Design.SinLatCentral;
    const double k = PlainAzimuthalScale(cosC);
    return {(cosLat * k) * std::sin(dLon),
            (sinLat * Design.CosLatCentral - (cosLat * Design.SinLatCentral) * std::cos(dLon)) * k};
}

// ---- Tests.

/// The largest difference of the forward values from the plain formula at random points between two
/// latitudes, each in units of the last place of a size that the point gives.
template <typename Plain, typename Size>
double WorstUnits(double south, double north, Plain plain, Size size) {
    std::mt19937_64 generator(7);
    std::uniform_real_distribution<double> anyLat(south, north);
    std::uniform_real_distribution<double> anyLon(0.0, 360.0);
    double worst = 0.0;
    for (int i = 0; i < 200'000; ++i) {
        const double drawn = anyLat(generator);
        const double lat = i % 2 == 0 ? drawn : std::round(drawn * 60.0) / 60.0;
        const double lon = anyLon(generator);
        ProjectAt(lat, lon);
        if (Design.ProjOffMap) {
            continue;
        }
        const Plane expected = plain(lat, lon);
        const double unit = UnitOf(size(expected));
        worst = std::max({worst, std::fabs(Design.ProjX - expected.x) / unit,
                          std::fabs(Design.ProjY - expected.y) / unit});
    }
    return worst;
}

TEST(SineCosine, AreNearerThanSixTenthsOfAUnitToTheTrueValues) {
    std::mt19937_64 generator(11);
    std::uniform_real_distribution<double> wide(-60.0, 60.0);
    std::uniform_real_distribution<double> circle(-7.0, 7.0);
    std::uniform_real_distribution<double> share(-1.0, 1.0);
    for (int i = 0; i < 1'000'000; ++i) {
        double angle = i % 3 == 0 ? wide(generator) : circle(generator);
        if (i % 5 == 0) { // next to a multiple of a right angle, where one of both is small
            angle = std::round(angle / QuarterPi) * (std::numbers::pi / 4.0) +
                    share(generator) * std::pow(10.0, -i % 16);
        }
        const SineCosine found = SineCosineOf(angle);
        ASSERT_LE(UnitsFrom(std::sin(static_cast<long double>(angle)), found.sine), 0.6) << angle;
        ASSERT_LE(UnitsFrom(std::cos(static_cast<long double>(angle)), found.cosine), 0.6) << angle;
    }
}

TEST(SineCosine, AreThoseOfTheCLibraryAtZeroFarAwayAndOfNoNumber) {
    EXPECT_EQ(SineCosineOf(0.0).sine, 0.0);
    EXPECT_EQ(SineCosineOf(0.0).cosine, 1.0);
    EXPECT_EQ(SineCosineOf(1e9).sine, std::sin(1e9));
    EXPECT_EQ(SineCosineOf(-61.0).cosine, std::cos(-61.0));
    EXPECT_TRUE(std::isnan(SineCosineOf(std::numeric_limits<double>::quiet_NaN()).sine));
    EXPECT_TRUE(std::isnan(SineCosineOf(std::numeric_limits<double>::infinity()).cosine));
}

TEST(Arctangent, IsNearerThanTwoUnitsToTheTrueValue) {
    std::mt19937_64 generator(13);
    std::uniform_real_distribution<double> size(0.0, 1.0);
    std::uniform_real_distribution<double> share(-1.0, 1.0);
    for (int i = 0; i < 1'000'000; ++i) {
        const double dividend = size(generator) * std::pow(10.0, -i % 9);
        const double divisor = share(generator) * std::pow(10.0, -i % 7);
        const long double truth =
            std::atan(static_cast<long double>(dividend) / static_cast<long double>(divisor));
        ASSERT_LE(UnitsFrom(truth, ArctangentOf(dividend, divisor)), 2.0) << dividend << " / " << divisor;
    }
}

TEST(Arctangent, OfADivisorOfZeroIsARightAngleAndTheDivisorGivesTheSign) {
    EXPECT_EQ(ArctangentOf(1.0, 0.0), std::numbers::pi / 2.0);
    EXPECT_EQ(ArctangentOf(1.0, -0.0), -std::numbers::pi / 2.0);
    EXPECT_EQ(ArctangentOf(1.0, 1.0), std::numbers::pi / 4.0);
    EXPECT_EQ(ArctangentOf(0.0, 3.0), 0.0);
    EXPECT_EQ(ArctangentOf(2.0, -2.0), -std::numbers::pi / 4.0);
    EXPECT_TRUE(std::isnan(ArctangentOf(std::numeric_limits<double>::quiet_NaN(), 1.0)));
}

TEST(LogTangent, IsNearerThanEightTenthsOfAUnitToTheTrueValue) {
    std::mt19937_64 generator(17);
    std::uniform_real_distribution<double> degrees(7.5, 42.5);
    for (int i = 0; i < 1'000'000; ++i) {
        const double drawn = degrees(generator);
        const double angle = (i % 2 == 0 ? 45.0 - drawn : 45.0 + drawn) * DegToRad;
        const long double truth = std::log(std::tan(static_cast<long double>(angle)));
        ASSERT_LE(UnitsFrom(truth, LogTangentOf(angle)), 0.8) << angle;
    }
}

using PlainFormulas = FreshProgramTest;

/// Of the ordinate itself, however small; below 15 degrees and beyond 85 it is the plain formula's.
TEST_F(PlainFormulas, MercatorStaysWithinFourUnits) {
    SetRectangle(ProjMercator, 89.0, -89.0, 360.0);
    const auto ordinate = [](Plane at) { return at.y; };
    EXPECT_LE(WorstUnits(15.0, 85.0, PlainMercator, ordinate), 4.0);
    EXPECT_LE(WorstUnits(-85.0, -15.0, PlainMercator, ordinate), 4.0);
    EXPECT_EQ(WorstUnits(-14.9, 14.9, PlainMercator, ordinate), 0.0);
    EXPECT_EQ(WorstUnits(85.1, 89.0, PlainMercator, ordinate), 0.0);
}

TEST_F(PlainFormulas, CylindricalEqualAreaAndHammerStayWithinFourUnits) {
    const auto larger = [](Plane at) { return std::max(std::fabs(at.x), std::fabs(at.y)); };
    Design.CosStdPar = std::cos(45.0 * DegToRad);
    SetRectangle(ProjCylindricalEqualArea, 90.0, -90.0, 360.0);
    EXPECT_LE(WorstUnits(-90.0, 90.0, PlainCylindricalEqualArea, larger), 4.0);
    SetRectangle(ProjHammer, 90.0, -90.0, 360.0);
    EXPECT_LE(WorstUnits(-89.0, 89.0, PlainHammer, larger), 4.0);
}

/// The coordinates are differences and products of the radii: their last place counts.
TEST_F(PlainFormulas, ConicsStayWithinFourUnits) {
    Design.StdParNorth = 60.0;
    Design.StdParSouth = 20.0;
    for (const std::int16_t projection : {ProjEquidistantConic, ProjConformalConic, ProjAlbers}) {
        SetRectangle(projection, 84.0, -4.0, 360.0);
        ParamSelect();
        const auto radius = [](Plane at) {
            return std::max(std::fabs(Design.ConicRho0), std::hypot(at.x, Design.ConicRho0 - at.y));
        };
        EXPECT_LE(WorstUnits(-60.0, 80.0, PlainConic, radius), 4.0) << projection;
    }
}

/// At the horizon and the antipode a digit of the distance's cosine is worth many of the scale; a
/// hemisphere and less is not touched by that, nor is the gnomonic's within 66 degrees.
TEST_F(PlainFormulas, AzimuthalsStayWithinFourUnits) {
    for (std::int16_t projection = ProjGnomonic; projection <= ProjAzimuthalEqualArea; ++projection) {
        Design.VpDistanceKm = 35840.0;
        SetDisc(projection, 40.0, 60.0);
        ParamSelect();
        const auto plain = [](double lat, double lon) {
            const double cosC = std::sin(lat * DegToRad) * Design.SinLatCentral +
                                std::cos(lat * DegToRad) * Design.CosLatCentral *
                                    std::cos((lon - Design.LonCentral) * DegToRad);
            // What lies farther off agrees by being taken from the forward itself.
            return cosC < 0.4 ? Plane{Design.ProjX, Design.ProjY} : PlainAzimuthal(lat, lon);
        };
        EXPECT_LE(WorstUnits(-90.0, 90.0, plain, [](Plane) { return 1.0; }), 4.0) << projection;
    }
}

/// To 85 degrees; beyond them the angle is that of the plain rule itself.
TEST_F(PlainFormulas, MollweideAngleIsWithinTheEndOfNewtonsRuleAtTenMillionLatitudes) {
    SetRectangle(ProjMollweide, 90.0, -90.0, 360.0);
    constexpr int count = 10'000'000;
    for (int i = 0; i <= count; ++i) {
        const double size = 90.0 * i / count;
        const double lat = i % 2 == 0 ? size : -size;
        const double theta = PlainMollweideAngle(lat);
        ProjectAt(lat, 270.0); // a quarter of the circle from the middle: x is sqrt 2 cos theta
        const double found = std::atan2(Design.ProjY, Design.ProjX);
        ASSERT_LE(std::fabs(found - theta), size < 85.0 ? 1e-14 : 1e-15) << lat;
    }
}

} // namespace
} // namespace quelmont
