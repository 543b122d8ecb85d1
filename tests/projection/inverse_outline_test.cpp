#include "core/map_design.h"
#include "projection/inverse_select.h"
#include "projection/map_fields.h"
#include "projection/map_sweep.h"
#include "projection/projection_table.h"
#include "projection/round_trip.h"
#include "support/fresh_program.h"

#include <gtest/gtest.h>

#include <array>
#include <bit>
#include <cmath>
#include <limits>
#include <numbers>
#include <random>

/// Where a projection ends, and numbers that are no place at all.

namespace quelmont {
namespace {

constexpr double NoNumber = std::numeric_limits<double>::quiet_NaN();
constexpr double Infinity = std::numeric_limits<double>::infinity();

using Outline = FreshProgramTest;

void SetWorld(std::int16_t projNum) {
    MapOfSweep map;
    if (projNum == ProjMercator || projNum == ProjConformalConic) {
        map.south = -60.0;
        map.north = 80.0;
    }
    map.std1 = projNum == ProjMercator ? 0.0 : 50.0;
    map.std2 = 10.0;
    map.centre = 40.0;
    map.height = 35840.0;
    SetSweptMap(projNum, map);
}

// ---- The edges of the globe, by forward places moved outward and inward.

TEST_F(Outline, NothingBeyondTheLastMeridians) {
    for (const ProjectionEntry& entry : Projections) {
        if (entry.family == ProjectionFamily::Azimuthal || entry.family == ProjectionFamily::MetricGrid) {
            continue;
        }
        SetWorld(entry.ProjNum);
        for (double lat = -59.0; lat <= 79.0; lat += 3.0) {
            for (const double side : {-1.0, 1.0}) {
                SCOPED_TRACE(testing::Message() << entry.ProjName << " at " << lat << ", side " << side);
                const ReferencePlace edge = *ForwardOf({lat, 180.0 + side * 180.0});
                const ReferencePlace inner = *ForwardOf({lat, 180.0 + side * 179.999});
                const double length = Apart(edge, inner);
                const auto moved = [&](double by) {
                    return InverseSelect(edge.x + (edge.x - inner.x) / length * by,
                                         edge.y + (edge.y - inner.y) / length * by);
                };
                EXPECT_FALSE(moved(1e-9));
                ASSERT_TRUE(moved(-1e-9));
                EXPECT_NEAR(moved(-1e-9)->lat, lat, 1e-5);
                EXPECT_NEAR(moved(-1e-9)->lon, 180.0 + side * 180.0, 1e-5);
            }
        }
    }
}

TEST_F(Outline, NothingBeyondPolesThatAreLinesOrTops) {
    for (const std::int16_t projNum :
         {ProjEquirectangular, ProjCylindricalEqualArea, ProjHammer, ProjMollweide, ProjRobinson}) {
        SetWorld(projNum);
        for (const double lat : {90.0, -90.0}) {
            const ReferencePlace pole = *ForwardOf({lat, 180.0});
            const double outward = std::copysign(1e-9, lat);
            EXPECT_FALSE(InverseSelect(pole.x, pole.y + outward)) << projNum;
            ASSERT_TRUE(InverseSelect(pole.x, pole.y - outward)) << projNum;
            // Equal areas flatten the poles: 1e-9 radii are worth a two-hundredth of a degree there.
            EXPECT_NEAR(InverseSelect(pole.x, pole.y - outward)->lat, lat, 0.005) << projNum;
        }
    }
}

TEST_F(Outline, NothingBetweenAPoleAndTheApexOfACone) {
    for (const std::int16_t projNum : {ProjEquidistantConic, ProjAlbers}) {
        for (const double hemisphere : {1.0, -1.0}) {
            SetRectangle(projNum, 90.0, -90.0, 360.0);
            SetSweptMap(projNum, {90.0, -90.0, 360.0, hemisphere > 0.0 ? 50.0 : -10.0,
                                  hemisphere > 0.0 ? 10.0 : -50.0});
            const ReferencePlace pole = *ForwardOf({90.0 * hemisphere, 180.0});
            EXPECT_TRUE(InverseSelect(0.0, pole.y - hemisphere * 1e-9)) << projNum;
            EXPECT_FALSE(InverseSelect(0.0, pole.y + hemisphere * 1e-9)) << projNum;
            EXPECT_FALSE(InverseSelect(0.0, Design.ConicRho0)) << projNum << ": the apex itself";
        }
    }
}

TEST_F(Outline, ApexOfAConformalConeIsThePole) {
    for (const double hemisphere : {1.0, -1.0}) {
        SetSweptMap(ProjConformalConic,
                    {hemisphere > 0.0 ? 90.0 : 60.0, hemisphere > 0.0 ? -60.0 : -90.0, 360.0,
                     hemisphere > 0.0 ? 50.0 : -10.0, hemisphere > 0.0 ? 10.0 : -50.0});
        const auto apex = InverseSelect(0.0, Design.ConicRho0);
        ASSERT_TRUE(apex);
        EXPECT_EQ(apex->lat, 90.0 * hemisphere);
        // The other pole lies at infinity.
        const auto far = InverseSelect(0.0, -hemisphere * 1e6);
        ASSERT_TRUE(far);
        EXPECT_LT(far->lat * hemisphere, -89.9);
        EXPECT_GT(far->lat * hemisphere, -90.0);
        EXPECT_FALSE(InverseSelect(0.0, -hemisphere * 1e300));
    }
}

/// The sides of the cut of a cone leave a gap of half a turn less the cone constant times that.
TEST_F(Outline, NothingInTheGapOfACone) {
    for (const std::int16_t projNum : {ProjEquidistantConic, ProjConformalConic, ProjAlbers}) {
        SetWorld(projNum);
        const double gap = std::numbers::pi * (1.0 - Design.ConeConstant);
        const double radius = Design.ConicRho0 - ForwardOf({30.0, 180.0})->y;
        for (const double beside : {0.001, gap / 2.0, gap - 1e-6}) {
            EXPECT_FALSE(
                InverseSelect(radius * std::sin(beside), Design.ConicRho0 + radius * std::cos(beside)));
            EXPECT_FALSE(
                InverseSelect(-radius * std::sin(beside), Design.ConicRho0 + radius * std::cos(beside)));
        }
        EXPECT_TRUE(
            InverseSelect(radius * std::sin(gap + 1e-6), Design.ConicRho0 + radius * std::cos(gap + 1e-6)));
    }
}

TEST_F(Outline, NothingBeyondTheRimOfADisc) {
    struct Rim {
        std::int16_t projNum;
        double radius;
    };
    const double p = 1.0 + 35840.0 / 6371.0;
    // The antipode has no place of its own, and what is nearer to it than a third of a second neither.
    for (const Rim& rim :
         {Rim{ProjOrthographic, 1.0}, Rim{ProjVerticalPerspective, std::sqrt((p - 1.0) / (p + 1.0))},
          Rim{ProjAzimuthalEquidistant, std::numbers::pi - 1.5e-6},
          Rim{ProjAzimuthalEqualArea, 2.0 - 1e-12}}) {
        for (const double centre : {90.0, -90.0, 0.0, 37.0, -61.5}) {
            MapOfSweep map;
            map.centre = centre;
            map.height = 35840.0;
            SetSweptMap(rim.projNum, map);
            const double beyond = rim.projNum == ProjAzimuthalEquidistant ? 2e-6 : 1e-9;
            for (double around = 0.0; around < 6.28; around += 0.1) {
                SCOPED_TRACE(testing::Message() << rim.projNum << " about " << centre << ", " << around);
                const auto at = [&](double radius) {
                    return InverseSelect(radius * std::sin(around), radius * std::cos(around));
                };
                EXPECT_FALSE(at(rim.radius + beyond));
                EXPECT_FALSE(at(rim.radius * 2.0));
                const auto inside = at(rim.radius);
                ASSERT_TRUE(inside);
                EXPECT_TRUE(ForwardOf(*inside));
            }
        }
    }
}

/// High up the horizon that the forward tests lies nearer to the true one than a rounding.
TEST_F(Outline, HorizonOfAnyViewPointIsSeen) {
    for (const double height : {1.0, 400.0, 35840.0, 384400.0, 9999999.0, 99999999.0}) {
        for (const double centre : {90.0, -90.0, 0.0, 37.0, -61.5}) {
            MapOfSweep map;
            map.centre = centre;
            map.height = height;
            SetSweptMap(ProjVerticalPerspective, map);
            for (double around = 0.0; around < 6.28; around += 0.01) {
                const ReferencePlace rim{Design.MapXMax * std::sin(around),
                                         Design.MapXMax * std::cos(around)};
                const auto found = InverseSelect(rim.x, rim.y);
                ASSERT_TRUE(found) << height << " over " << centre;
                const auto back = ForwardOf(*found);
                ASSERT_TRUE(back) << height << " over " << centre << ", " << around;
                ASSERT_LE(Apart(rim, *back), 1e-12) << height << " over " << centre << ", " << around;
            }
        }
    }
}

TEST_F(Outline, FarPlacesOfEndlessDiscsEndBeforeHorizonAndAntipode) {
    SetWorld(ProjGnomonic);
    ASSERT_TRUE(InverseSelect(1e9, 0.0));
    EXPECT_TRUE(ForwardOf(*InverseSelect(1e9, 0.0))) << "0.0002 seconds before the horizon";
    EXPECT_FALSE(InverseSelect(1e13, 0.0));
    SetWorld(ProjStereographic);
    // 2 / tan(half the distance from the antipode); the forward ends at 1.4e-6 radians from it.
    ASSERT_TRUE(InverseSelect(0.0, 2.6e6));
    EXPECT_TRUE(ForwardOf(*InverseSelect(0.0, 2.6e6)));
    EXPECT_FALSE(InverseSelect(0.0, 3.0e6));
}

TEST_F(Outline, MercatorEndsWhereDegreesEnd) {
    SetWorld(ProjMercator);
    ASSERT_TRUE(InverseSelect(1.0, 12.0));
    EXPECT_NEAR(InverseSelect(1.0, 12.0)->lat, std::atan(std::sinh(12.0)) * 180.0 / std::numbers::pi, 1e-12);
    EXPECT_FALSE(InverseSelect(1.0, 40.0));
    EXPECT_FALSE(InverseSelect(1.0, -40.0));
}

/// The forward takes what is within 1e-8 of a right angle from the centre for one line, and no place reaches
/// the plane beside it.
TEST_F(Outline, EquidistantFillsTheSeamThatTheForwardLeaves) {
    SetSweptMap(ProjAzimuthalEquidistant, {});
    const double right = std::numbers::pi / 2.0;
    for (const double beside : {-9e-9, -1e-9, 1e-9, 9e-9}) {
        const auto found = InverseSelect(right + beside, 0.0);
        ASSERT_TRUE(found);
        EXPECT_NEAR((found->lon - 180.0) * std::numbers::pi / 180.0, right + beside, 1e-13);
        EXPECT_NEAR(ForwardOf(*found)->x, right + beside, 1e-8);
    }
}

// ---- Special points.

TEST_F(Outline, CentreOfADiscIsItsCentre) {
    for (const ProjectionEntry& entry : Projections) {
        if (!IsAzimuthal(entry.ProjNum)) {
            continue;
        }
        for (const double centre : {90.0, -90.0, 0.0, 40.0, -61.5}) {
            MapOfSweep map;
            map.centre = centre;
            map.height = 1.0;
            SetSweptMap(entry.ProjNum, map);
            const auto found = InverseSelect(0.0, 0.0);
            ASSERT_TRUE(found) << entry.ProjName;
            EXPECT_NEAR(found->lat, centre, 1e-13);
            if (std::fabs(centre) < 90.0) {
                EXPECT_NEAR(found->lon, 180.0, 1e-13);
            }
        }
    }
}

TEST_F(Outline, PolesAreReachedFromADiscAboutAnyPlace) {
    MapOfSweep map;
    map.centre = 30.0;
    SetSweptMap(ProjAzimuthalEquidistant, map);
    // 60 degrees up and 120 degrees down the central meridian.
    EXPECT_NEAR(InverseSelect(0.0, std::numbers::pi / 3.0)->lat, 90.0, 1e-12);
    EXPECT_NEAR(InverseSelect(0.0, -2.0 * std::numbers::pi / 3.0)->lat, -90.0, 1e-12);
    // Over the pole and down the meridian opposite.
    const auto beyond = InverseSelect(0.0, std::numbers::pi / 2.0);
    EXPECT_NEAR(beyond->lat, 60.0, 1e-12);
    EXPECT_NEAR(std::fabs(beyond->lon - 180.0), 180.0, 1e-12);
}

TEST_F(Outline, TopsOfOvalsAreThePolesOnTheCentralMeridian) {
    for (const std::int16_t projNum : {ProjHammer, ProjMollweide, ProjInterruptedMollweide}) {
        SetWorld(projNum);
        for (const double sign : {1.0, -1.0}) {
            const auto found = InverseSelect(0.0, sign * std::sqrt(2.0));
            ASSERT_TRUE(found) << projNum;
            EXPECT_NEAR(found->lat, sign * 90.0, 1e-6) << projNum;
        }
    }
}

TEST_F(Outline, LobeBeingDrawnMovesTheInverseOfBothMollweides) {
    for (const std::int16_t projNum : {ProjMollweide, ProjInterruptedMollweide}) {
        SetWorld(projNum);
        Design.LobeOffsetX = 1.25;
        const auto found = InverseSelect(1.25 + std::sqrt(2.0), 0.0);
        ASSERT_TRUE(found);
        EXPECT_NEAR(found->lat, 0.0, 1e-13);
        EXPECT_NEAR(found->lon, 270.0, 1e-12);
    }
}

TEST_F(Outline, UtmIsAsStraightAsItsForward) {
    SetWorld(ProjUtm);
    const auto found = InverseSelect(512345.0, -6789.5);
    ASSERT_TRUE(found);
    EXPECT_EQ(found->lon, 512345.0);
    EXPECT_EQ(found->lat, -6789.5);
}

// ---- No numbers, no constants.

TEST_F(Outline, NoNumberHasNoPlace) {
    for (const ProjectionEntry& entry : Projections) {
        SetWorld(entry.ProjNum);
        for (const double bad : {NoNumber, Infinity, -Infinity}) {
            EXPECT_FALSE(InverseSelect(bad, 0.0)) << entry.ProjName;
            EXPECT_FALSE(InverseSelect(0.0, bad)) << entry.ProjName;
            EXPECT_FALSE(InverseSelect(bad, bad)) << entry.ProjName;
        }
    }
}

TEST_F(Outline, EndlessNumbersHaveNoPlace) {
    for (const ProjectionEntry& entry : Projections) {
        if (entry.family == ProjectionFamily::MetricGrid) {
            continue;
        }
        SetWorld(entry.ProjNum);
        for (const double big : {1e300, -1e300, 1.7e308}) {
            EXPECT_FALSE(InverseSelect(big, 0.0)) << entry.ProjName;
            EXPECT_FALSE(InverseSelect(0.0, big)) << entry.ProjName;
            EXPECT_FALSE(InverseSelect(big, big)) << entry.ProjName;
        }
    }
}

/// Doubles of any bits, where the exponent is as random as the digits.
TEST_F(Outline, AnyBitsGiveAPlaceOnTheGlobeOrNothing) {
    std::mt19937_64 random(42);
    for (const ProjectionEntry& entry : Projections) {
        if (entry.family == ProjectionFamily::MetricGrid) {
            continue;
        }
        SetWorld(entry.ProjNum);
        int found = 0;
        for (int i = 0; i < 20000; ++i) {
            const auto place =
                InverseSelect(std::bit_cast<double>(random()), std::bit_cast<double>(random()));
            if (place) {
                ++found;
                ASSERT_LE(std::fabs(place->lat), 90.0) << entry.ProjName;
                ASSERT_LE(std::fabs(place->lon - 180.0), 180.0) << entry.ProjName;
            }
        }
        EXPECT_GT(found, 1000) << entry.ProjName << ": half of the exponents are small";
    }
}

/// The constants as random as the point: nothing is thrown, and no answer is no number.
TEST_F(Outline, AnyConstantsGiveFiniteDegreesOrNothing) {
    std::mt19937_64 random(43);
    const auto any = [&] { return std::bit_cast<double>(random()); };
    for (const ProjectionEntry& entry : Projections) {
        SetWorld(entry.ProjNum);
        for (int i = 0; i < 5000; ++i) {
            for (double* constant :
                 {&Design.CosStdPar, &Design.ConeConstant, &Design.ConicG, &Design.ConicF, &Design.ConicC,
                  &Design.ConicRho0, &Design.VpP, &Design.CosLatCentral, &Design.SinLatCentral,
                  &Design.LonCentral, &Design.LonZero, &Design.LobeOffsetX, &Design.HorizonCos[3]}) {
                *constant = any();
            }
            const auto place = InverseSelect(any(), any());
            if (place) {
                ASSERT_TRUE(std::isfinite(place->lat) && std::isfinite(place->lon)) << entry.ProjName;
            }
        }
    }
}

TEST_F(Outline, NothingWithoutConstants) {
    Design = {};
    for (const ProjectionEntry& entry : Projections) {
        if (entry.standardParallels > 0 || entry.ProjNum == ProjVerticalPerspective) {
            Design.ProjNum = entry.ProjNum;
            EXPECT_FALSE(InverseSelect(0.1, 0.1)) << entry.ProjName;
        }
    }
    for (const int unknown : {0, 3, 25, 32, 43, -1}) {
        Design.ProjNum = static_cast<std::int16_t>(unknown);
        EXPECT_FALSE(InverseSelect(0.0, 0.0)) << unknown;
    }
}

/// Parallels symmetric about the equator make a cone constant of 0, and all meridians one.
TEST_F(Outline, NothingOnAConeWithoutAConstant) {
    SetSweptMap(ProjEquidistantConic, {80.0, -80.0, 360.0, 30.0, -30.0});
    ASSERT_EQ(Design.ConeConstant, 0.0);
    EXPECT_FALSE(InverseSelect(0.0, 0.0));
    EXPECT_FALSE(InverseSelect(0.3, 0.2));
}

} // namespace
} // namespace quelmont
