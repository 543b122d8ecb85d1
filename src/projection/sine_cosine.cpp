#include "projection/sine_cosine.h"

namespace quelmont {

namespace {

constexpr long double LongPi = 3.141592653589793238462643383279502884L;

/// Sine of a number of steps between 0 and a quarter of the circle, exact at both ends.
long double QuarterSine(std::size_t step) {
    constexpr std::size_t quarter = SineSteps::Steps / 4;
    const long double angle = static_cast<long double>(step) * 2.0L * LongPi / SineSteps::Steps;
    const long double rest = static_cast<long double>(quarter - step) * 2.0L * LongPi / SineSteps::Steps;
    return 2 * step <= quarter ? std::sin(angle) : std::cos(rest);
}

long double StepSine(std::size_t step) {
    constexpr std::size_t half = SineSteps::Steps / 2;
    step %= SineSteps::Steps;
    const std::size_t inHalf = step % half;
    const long double sine = QuarterSine(2 * inHalf <= half ? inHalf : half - inHalf);
    return step < half ? sine : 0.0L - sine; // no zero has a sign
}

} // namespace

SineSteps::SineSteps() noexcept : steps() {
    for (std::size_t i = 0; i < Steps; ++i) {
        const long double sine = StepSine(i);
        const long double cosine = StepSine(i + Steps / 4);
        const auto high = [](long double value) { return static_cast<double>(value); };
        const auto rest = [&](long double value) {
            return high(value - static_cast<long double>(high(value)));
        };
        const auto whole = [](long double value) { return value > 0.0L ? 1.0 : value < 0.0L ? -1.0 : 0.0; };
        const auto left = [&](long double value) {
            return high(value - static_cast<long double>(whole(value)));
        };
        steps[i] = {high(sine),  rest(sine), high(cosine),  rest(cosine),
                    whole(sine), left(sine), whole(cosine), left(cosine)};
    }
}

const SineSteps TheSineSteps;

} // namespace quelmont
