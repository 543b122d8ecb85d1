#pragma once

#include "core/coordinates.h"
#include "projection/sine_cosine.h"

#include <array>
#include <bit>
#include <cmath>
#include <cstddef>
#include <cstdint>

namespace quelmont {

/// What a function of latitude answered at whole minutes of arc: the places of a minute-grid file have no
/// other latitudes, and its lines come by each of them again and again. For one thread.
template <class Answer>
class WholeMinutes {
public:
    /// work(), or what it returned for the same latitude before: it may depend on nothing else. latitude:
    /// degrees, any number.
    template <class Work>
    Answer Of(double latitude, const Work& work) {
        constexpr double rounder = 0x1.8p52; // added to a number below 2^51, it leaves it rounded
        constexpr double nearby = 1e-9;
        const double minutes = latitude * 60.0;
        const double whole = (minutes + rounder) - rounder;
        if (!(std::fabs(minutes - whole) < nearby) || !(std::fabs(latitude) <= 90.0)) {
            return work();
        }
        Kept& kept = answers[static_cast<std::size_t>(static_cast<std::int32_t>(whole) + ToPole)];
        const auto bits = std::bit_cast<std::uint64_t>(latitude);
        if (kept.otherBits != ~bits) {
            kept.answer = work();
            kept.otherBits = ~bits;
        }
        return kept.answer;
    }

private:
    static constexpr std::int32_t ToPole = 90 * 60;
    struct Kept {
        std::uint64_t otherBits = 0; ///< those that the degrees have not; at first those of no number
        Answer answer{};
    };
    std::array<Kept, std::size_t{2}* ToPole + 1> answers = {};
};

extern WholeMinutes<SineCosine> TheSinesOfLatitude;

/// SineCosineOf(latitude * DegToRad) for a latitude in degrees, the same doubles.
inline SineCosine SineCosineOfLatitude(double latitude) {
    return TheSinesOfLatitude.Of(latitude, [latitude] { return SineCosineOf(latitude * DegToRad); });
}

} // namespace quelmont
