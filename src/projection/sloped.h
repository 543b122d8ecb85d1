#pragma once

#include "core/checked_math.h"

#include <cmath>

namespace quelmont {

/// A number that depends on two variables, with its slopes in both. What is computed of such numbers carries
/// its own slopes: with (x, 1, 0) and (y, 0, 1) a formula gives its value and both partial derivatives.
struct Sloped {
    Sloped(double value_) : value(value_) {} // NOLINT(google-explicit-constructor): a number
    Sloped(double value_, double first_, double second_) : value(value_), first(first_), second(second_) {}
    double value;
    double first = 0.0;
    double second = 0.0;
};

inline Sloped operator+(Sloped a, Sloped b) {
    return {a.value + b.value, a.first + b.first, a.second + b.second};
}
inline Sloped operator-(Sloped a, Sloped b) {
    return {a.value - b.value, a.first - b.first, a.second - b.second};
}
inline Sloped operator*(Sloped a, Sloped b) {
    return {a.value * b.value, a.first * b.value + a.value * b.first,
            a.second * b.value + a.value * b.second};
}
inline Sloped operator/(Sloped a, double b) { return {a.value / b, a.first / b, a.second / b}; }
inline Sloped operator/(Sloped a, Sloped b) {
    const double quotient = a.value / b.value;
    return {quotient, (a.first - quotient * b.first) / b.value, (a.second - quotient * b.second) / b.value};
}

/// RunTimeError "Division by zero", "Overflow".
inline Sloped Divide(double dividend, Sloped divisor) {
    const double quotient = Divide(dividend, divisor.value);
    const double slope = -Divide(quotient, divisor.value);
    return {quotient, slope * divisor.first, slope * divisor.second};
}

/// RunTimeError "Invalid procedure call or argument" below 0, "Division by zero" at 0, where the slope has no
/// value.
inline Sloped SquareRoot(Sloped a) {
    const double root = SquareRoot(a.value);
    const double slope = Divide(0.5, root);
    return {root, slope * a.first, slope * a.second};
}

/// Radians.
inline Sloped sin(Sloped a) {
    const double slope = std::cos(a.value);
    return {std::sin(a.value), slope * a.first, slope * a.second};
}
inline Sloped cos(Sloped a) {
    const double slope = -std::sin(a.value);
    return {std::cos(a.value), slope * a.first, slope * a.second};
}

} // namespace quelmont
