#include "projection/log_tangent.h"

namespace quelmont {

LogTangentSteps::LogTangentSteps() noexcept : steps() {
    for (std::size_t i = 1; i <= Steps; ++i) { // the logarithm of 0 is asked for by nobody
        const long double angle = static_cast<long double>(i) / PerRadian;
        const long double logTangent = std::log(std::tan(angle));
        const auto high = static_cast<double>(logTangent);
        steps[i] = {high, static_cast<double>(logTangent - static_cast<long double>(high)),
                    static_cast<double>(std::sin(2.0L * angle)), static_cast<double>(std::cos(2.0L * angle))};
    }
}

const LogTangentSteps TheLogTangentSteps;

} // namespace quelmont
