#pragma once

#include <algorithm>
#include <array>
#include <cmath>
#include <cstddef>

namespace quelmont {

/// Arctangents of the whole multiples of 1/Steps from 0 to 1, each as the sum of two doubles.
class ArctangentSteps {
public:
    static constexpr std::size_t Steps = 64;
    struct Step {
        double tangent, angle, angleRest;
    };
    ArctangentSteps() noexcept;
    const Step& At(std::size_t step) const { return steps[step]; }

private:
    std::array<Step, Steps + 1> steps;
};

extern const ArctangentSteps TheArctangentSteps;

/// Arctangent of a quotient in radians, from -pi/2 to pi/2, at most 2 units in the last place from the true
/// value. Both at least 0 but for the divisor's sign, not both 0.
///
/// The smaller size over the larger one is near a multiple a of 1/64, and the arctangent of the difference
/// comes from its series: atan y = atan a + atan((y - a) / (1 + a y)).
inline double ArctangentOf(double dividend, double divisor) {
    const double size = std::fabs(divisor);
    const double small = std::min(dividend, size);
    const double large = std::max(dividend, size);
    constexpr auto steps = static_cast<double>(ArctangentSteps::Steps);
    // Added to a number below 2^51, this leaves it rounded to a whole one.
    constexpr double rounder = 0x1.8p52;
    const double step = (small / large * steps + rounder) - rounder;
    if (!(step <= steps)) {
        return std::atan(dividend / divisor); // no numbers
    }
    const ArctangentSteps::Step& at = TheArctangentSteps.At(static_cast<std::size_t>(step));
    const double z = (small - large * at.tangent) / (large + small * at.tangent);
    const double z2 = z * z;
    const double rest = z * (z2 * (-1.0 / 3.0 + z2 * (1.0 / 5.0 - z2 * (1.0 / 7.0))));
    // Above 1 the arctangent is a right angle less that of the inverse. Taken from tables, since no processor
    // can foretell which of both a point has.
    constexpr std::array<double, 2> sign = {1.0, -1.0};
    constexpr std::array<double, 2> rightAngle = {0.0, 0x1.921fb54442d18p0};
    constexpr std::array<double, 2> rightAngleRest = {0.0, 0x1.1a62633145c07p-54};
    const std::size_t steep = dividend > size ? 1 : 0;
    const double angle = (rightAngle[steep] + sign[steep] * at.angle) +
                         (sign[steep] * (z + (rest + at.angleRest)) + rightAngleRest[steep]);
    return std::copysign(angle, divisor);
}

} // namespace quelmont
