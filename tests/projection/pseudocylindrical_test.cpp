#include "core/map_design.h"
#include "projection/map_fields.h"
#include "support/fresh_program.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <array>
#include <chrono>
#include <cmath>
#include <numbers>

namespace quelmont {
namespace {

using testing::IsEmpty;

// ---- Hammer.

using Hammer = FreshProgramTest;

TEST_F(Hammer, CentreIsTheOrigin) {
    SetRectangle(ProjHammer, 90.0, -90.0, 360.0);
    ProjectAt(0.0, 180.0);
    EXPECT_EQ(Design.ProjX, 0.0);
    EXPECT_EQ(Design.ProjY, 0.0);
}

/// The outline is an ellipse twice as wide as high, of the globe's area: half axes 2 sqrt 2, sqrt 2.
TEST_F(Hammer, OutlineIsAnEllipse) {
    SetRectangle(ProjHammer, 90.0, -90.0, 360.0);
    for (double lat = -90.0; lat <= 90.0; lat += 5.0) {
        for (const double lon : {0.0, 360.0}) {
            ProjectAt(lat, lon);
            EXPECT_NEAR(Design.ProjX * Design.ProjX / 8.0 + Design.ProjY * Design.ProjY / 2.0, 1.0, 1e-14);
        }
    }
}

// ---- Mollweide.

class Mollweide : public FreshProgramTest {
protected:
    Mollweide() { SetRectangle(ProjMollweide, 90.0, -90.0, 360.0); }
};

TEST_F(Mollweide, PoleNeedsNoIteration) {
    for (const double lobe : {0.0, -1.25}) {
        Design.LobeOffsetX = lobe;
        for (const double lon : {0.0, 77.0, 360.0}) {
            ProjectAt(90.0, lon);
            // The iteration would creep up to the pole and end 1e-5 before it.
            EXPECT_NEAR(Design.ProjX, lobe, 1e-14);
            EXPECT_EQ(Design.ProjY, std::sqrt(2.0));
            ProjectAt(-90.0, lon);
            EXPECT_NEAR(Design.ProjX, lobe, 1e-14);
            EXPECT_EQ(Design.ProjY, -std::sqrt(2.0));
        }
    }
}

TEST_F(Mollweide, EquatorIsExact) {
    ProjectAt(0.0, 180.0);
    EXPECT_EQ(Design.ProjX, 0.0);
    EXPECT_EQ(Design.ProjY, 0.0);
    ProjectAt(0.0, 360.0);
    EXPECT_NEAR(Design.ProjX, 2.0 * std::sqrt(2.0), 1e-15);
    EXPECT_EQ(Design.ProjY, 0.0);
    ProjectAt(0.0, 270.0);
    EXPECT_NEAR(Design.ProjX, std::sqrt(2.0), 1e-15);
}

TEST_F(Mollweide, LobeOffsetMovesEveryPoint) {
    for (const double lat : {-90.0, -33.0, 0.0, 45.0, 89.0}) {
        Design.LobeOffsetX = 0.0;
        ProjectAt(lat, 100.0);
        const double x = Design.ProjX;
        const double y = Design.ProjY;
        Design.LobeOffsetX = 1.5;
        ProjectAt(lat, 100.0);
        EXPECT_NEAR(Design.ProjX, x + 1.5, 1e-15);
        EXPECT_EQ(Design.ProjY, y);
    }
}

/// 2 theta + sin(2 theta) = pi sin(phi) holds from the equator to a millionth of a degree from the
/// pole. With the complements d of theta and e of phi it reads 2 d - sin(2 d) = 2 pi sin^2(e / 2),
/// where nothing cancels; the right side is off by the last digit of Pi, 3.3e-15, and the iteration
/// ends at a change of 1e-14, which weighs less as the slope goes to zero.
TEST_F(Mollweide, SolvesItsEquationUpToThePole) {
    constexpr double Degree = std::numbers::pi / 180.0;
    for (double e = 90.0; e > 1e-6; e *= 0.9) {
        for (const double sign : {1.0, -1.0}) {
            ProjectAt(sign * (90.0 - e), 360.0);
            const double d = std::asin(Design.ProjX / (2.0 * std::sqrt(2.0)));
            const double right = 2.0 * std::numbers::pi * std::pow(std::sin(e * Degree / 2.0), 2.0);
            EXPECT_NEAR(2.0 * d - std::sin(2.0 * d), right, 3e-14) << e << " degrees from the pole";
            EXPECT_NEAR(Design.ProjY, sign * std::sqrt(2.0) * std::cos(d), 5e-15);
        }
    }
    EXPECT_THAT(machine.boxes.asked, IsEmpty());
}

/// The rounds are counted, so that rounding next to a pole cannot keep them going for ever.
TEST_F(Mollweide, NeverHangs) {
    const auto start = std::chrono::steady_clock::now();
    for (int k = 0; k < 2000; ++k) {
        ProjectAt(90.0 - 1e-3 * std::pow(0.99, k), 10.0);
        ASSERT_TRUE(std::isfinite(Design.ProjX) && std::isfinite(Design.ProjY));
    }
    EXPECT_LT(std::chrono::steady_clock::now() - start, std::chrono::seconds(5));
}

TEST_F(Mollweide, InterruptedIsTheSameFormula) {
    ProjectAt(51.0, 33.0);
    const double x = Design.ProjX;
    const double y = Design.ProjY;
    Design.ProjNum = ProjInterruptedMollweide;
    ProjectAt(51.0, 33.0);
    EXPECT_EQ(Design.ProjX, x);
    EXPECT_EQ(Design.ProjY, y);
}

// ---- Robinson.

/// Length of the parallel and its distance from the equator, both relative, for every five degrees.
/// Robinson 1974, as printed in Snyder 1993, p. 215.
struct RobinsonRow {
    double lat, length, distance;
};
// clang-format off
constexpr std::array<RobinsonRow, 19> RobinsonTable = {{
    { 0.0, 1.0000, 0.0000},
    { 5.0, 0.9986, 0.0620},
    {10.0, 0.9954, 0.1240},
    {15.0, 0.9900, 0.1860},
    {20.0, 0.9822, 0.2480},
    {25.0, 0.9730, 0.3100},
    {30.0, 0.9600, 0.3720},
    {35.0, 0.9427, 0.4340},
    {40.0, 0.9216, 0.4958},
    {45.0, 0.8962, 0.5571},
    {50.0, 0.8679, 0.6176},
    {55.0, 0.8350, 0.6769},
    {60.0, 0.7986, 0.7346},
    {65.0, 0.7597, 0.7903},
    {70.0, 0.7186, 0.8435},
    {75.0, 0.6732, 0.8936},
    {80.0, 0.6213, 0.9394},
    {85.0, 0.5722, 0.9761},
    {90.0, 0.5322, 1.0000},
}};
// clang-format on

class Robinson : public FreshProgramTest {
protected:
    Robinson() { SetRectangle(ProjRobinson, 90.0, -90.0, 360.0); }
};

/// The sixth-degree polynomials miss the table by 0.0028 of a length at most (at 75 degrees) and by
/// 0.0006 of a distance (at 75 degrees too): a third of a percent of the map.
TEST_F(Robinson, PolynomialsFollowThePublishedTable) {
    double worstLength = 0.0;
    double worstDistance = 0.0;
    for (const RobinsonRow& row : RobinsonTable) {
        ProjectAt(row.lat, 360.0);
        const double length = Design.ProjX / (0.8487 * std::numbers::pi);
        const double distance = Design.ProjY / 1.3523;
        EXPECT_NEAR(length, row.length, 0.0028) << row.lat;
        EXPECT_NEAR(distance, row.distance, 0.0006) << row.lat;
        worstLength = std::max(worstLength, std::fabs(length - row.length));
        worstDistance = std::max(worstDistance, std::fabs(distance - row.distance));
    }
    EXPECT_GT(worstLength, 0.0026);
    EXPECT_GT(worstDistance, 0.0005);
}

/// The same polynomials by Horner's rule in long double.
TEST_F(Robinson, EveryCoefficientStands) {
    for (double lat = 0.0; lat <= 90.0; lat += 0.5) {
        const long double a = lat;
        const long double length =
            1.0L +
            a * (-0.0007658862163L +
                 a * (6.7797484678e-05L +
                      a * (-5.2131392009e-06L +
                           a * (1.0474391018e-07L + a * (-1.066164359e-09L + a * 4.2800356557e-12L)))));
        const long double distance =
            a * (0.012684924808L +
                 a * (-4.8919970056e-05L +
                      a * (2.7603657836e-06L +
                           a * (-6.7236660474e-08L + a * (7.3846103164e-10L + a * -3.211233692e-12L)))));
        ProjectAt(lat, 270.0);
        // The terms reach 4.3 and cancel, so that roundings of 4e-16 remain.
        EXPECT_NEAR(Design.ProjX,
                    static_cast<double>(length * 0.8487L * std::numbers::pi_v<long double> / 2.0L), 8e-15);
        EXPECT_NEAR(Design.ProjY, static_cast<double>(distance * 1.3523L), 8e-15);
    }
}

TEST_F(Robinson, EquatorHasItsFullLength) {
    ProjectAt(0.0, 360.0);
    EXPECT_DOUBLE_EQ(Design.ProjX, 0.8487 * Pi);
    EXPECT_EQ(Design.ProjY, 0.0);
}

TEST_F(Robinson, SouthMirrorsTheNorth) {
    for (const double lat : {0.5, 40.0, 90.0}) {
        ProjectAt(lat, 100.0);
        const double x = Design.ProjX;
        const double y = Design.ProjY;
        ProjectAt(-lat, 100.0);
        EXPECT_EQ(Design.ProjX, x);
        EXPECT_EQ(Design.ProjY, -y);
    }
}

} // namespace
} // namespace quelmont
