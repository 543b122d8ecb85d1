#include "surround/scale_bar_units.h"

#include <algorithm>
#include <array>
#include <cstddef>

namespace quelmont {

namespace {

/// By the enumerators' values.
constexpr std::array<std::string_view, 4> Words = {"none", "km", "mi", "nmi"};
static_assert(static_cast<std::size_t>(ScaleBarUnit::NauticalMiles) + 1 == Words.size());

} // namespace

std::string_view WordOf(ScaleBarUnit unit) { return Words.at(static_cast<std::size_t>(unit)); }

std::optional<ScaleBarUnit> ScaleBarUnitOf(std::string_view word) {
    const auto* const found = std::find(Words.begin(), Words.end(), word);
    return found == Words.end() ? std::nullopt
                                : std::optional(static_cast<ScaleBarUnit>(found - Words.begin()));
}

} // namespace quelmont
