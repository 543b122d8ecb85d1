#pragma once

#include "core/run_time_error.h"

#include <cmath>
#include <cstdint>

namespace quelmont {

/// Nearest integer, ties to even; RunTimeError "Overflow" outside the range of the type and for
/// what is not a number. These two are the only way from a real to an integer that is stored or
/// written.
inline std::int16_t RoundToInt16(double value) {
    if (!(value >= -32768.5 && value < 32767.5)) {
        throw RunTimeError(ErrorOverflow);
    }
    return static_cast<std::int16_t>(std::lrint(value));
}

inline std::int32_t RoundToInt32(double value) {
    if (!(value >= -2147483648.5 && value < 2147483647.5)) {
        throw RunTimeError(ErrorOverflow);
    }
    return static_cast<std::int32_t>(std::lrint(value));
}

} // namespace quelmont
