#pragma once

#include "core/checked_math.h"
#include "core/coordinates.h"

#include <algorithm>
#include <cmath>

namespace quelmont {

/// All numbers from low to high. What is computed of intervals holds what would be computed of any
/// numbers in them, but for the rounding of the last digits.
struct Interval {
    Interval(double low_, double high_) : low(low_), high(high_) {}
    Interval(double value) : low(value), high(value) {} // NOLINT(google-explicit-constructor): a number
    double low, high;
};

inline Interval operator+(Interval a, Interval b) { return {a.low + b.low, a.high + b.high}; }
inline Interval operator-(Interval a, Interval b) { return {a.low - b.high, a.high - b.low}; }
inline Interval operator*(Interval a, Interval b) {
    const auto [low, high] = std::minmax({a.low * b.low, a.low * b.high, a.high * b.low, a.high * b.high});
    return {low, high};
}
inline Interval operator/(Interval a, double b) { return a * Interval(1.0 / b); }

/// RunTimeError "Division by zero" when the divisor may be 0, "Overflow".
inline Interval Divide(double dividend, Interval divisor) {
    if (divisor.low <= 0.0 && divisor.high >= 0.0) {
        throw RunTimeError(ErrorDivisionByZero);
    }
    return Interval(dividend) * Interval(Divide(1.0, divisor.high), Divide(1.0, divisor.low));
}

/// RunTimeError "Invalid procedure call or argument" when the argument may be negative.
inline Interval SquareRoot(Interval a) { return {SquareRoot(a.low), SquareRoot(a.high)}; }

/// Radians, within a full turn about 0.
inline Interval sin(Interval a) {
    const auto [low, high] = std::minmax({std::sin(a.low), std::sin(a.high)});
    const auto holds = [&](double angle) { return a.low <= angle && angle <= a.high; };
    return {holds(-Pi / 2.0) || holds(1.5 * Pi) ? -1.0 : low,
            holds(Pi / 2.0) || holds(-1.5 * Pi) ? 1.0 : high};
}
inline Interval cos(Interval a) {
    const auto [low, high] = std::minmax({std::cos(a.low), std::cos(a.high)});
    const auto holds = [&](double angle) { return a.low <= angle && angle <= a.high; };
    return {holds(-Pi) || holds(Pi) ? -1.0 : low,
            holds(0.0) || holds(2.0 * Pi) || holds(-2.0 * Pi) ? 1.0 : high};
}

/// Radians, between the poles.
inline Interval tan(Interval a) { return {std::tan(a.low), std::tan(a.high)}; }

} // namespace quelmont
