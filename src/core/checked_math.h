#pragma once

#include "core/run_time_error.h"

#include <cmath>
#include <cstdint>

/// Arithmetic that fails as a run-time error where plain floating point would go on with an
/// infinity or a NaN. No infinity and no NaN ever reaches a field of the design.

namespace quelmont {

/// The value itself; RunTimeError "Overflow" unless it is finite.
inline double Finite(double value) {
    if (!(std::fabs(value) <= 1.7976931348623157e308)) {
        throw RunTimeError(ErrorOverflow);
    }
    return value;
}

/// RunTimeError "Division by zero", or "Overflow" when the quotient is not finite.
inline double Divide(double dividend, double divisor) {
    if (divisor == 0.0) {
        throw RunTimeError(ErrorDivisionByZero);
    }
    return Finite(dividend / divisor);
}

/// Remainder of whole numbers with the sign of the dividend; RunTimeError "Division by zero".
inline std::int32_t Remainder(std::int32_t dividend, std::int32_t divisor) {
    if (divisor == 0) {
        throw RunTimeError(ErrorDivisionByZero);
    }
    return divisor == -1 ? 0 : dividend % divisor;
}

/// Natural logarithm; RunTimeError "Invalid procedure call or argument" at 0 and below.
inline double Logarithm(double value) {
    if (!(value > 0.0)) {
        throw RunTimeError(ErrorInvalidCall);
    }
    return std::log(value);
}

/// Square root; RunTimeError "Invalid procedure call or argument" below 0.
inline double SquareRoot(double value) {
    if (!(value >= 0.0)) {
        throw RunTimeError(ErrorInvalidCall);
    }
    return std::sqrt(value);
}

/// Power; RunTimeError "Invalid procedure call or argument" for a negative base with a fractional
/// exponent and for 0 to a negative power, "Overflow" when the result is too large.
inline double Power(double base, double exponent) {
    if ((base < 0.0 && exponent != std::floor(exponent)) || (base == 0.0 && exponent < 0.0)) {
        throw RunTimeError(ErrorInvalidCall);
    }
    return Finite(std::pow(base, exponent));
}

/// -1, 0 or 1.
inline double Sign(double value) { return value > 0.0 ? 1.0 : value < 0.0 ? -1.0 : 0.0; }

} // namespace quelmont
