#include "projection/arctangent.h"

namespace quelmont {

ArctangentSteps::ArctangentSteps() noexcept : steps() {
    for (std::size_t i = 0; i <= Steps; ++i) {
        const long double tangent = static_cast<long double>(i) / Steps;
        const long double angle = std::atan(tangent);
        const auto high = static_cast<double>(angle);
        steps[i] = {static_cast<double>(tangent), high,
                    static_cast<double>(angle - static_cast<long double>(high))};
    }
}

const ArctangentSteps TheArctangentSteps;

} // namespace quelmont
