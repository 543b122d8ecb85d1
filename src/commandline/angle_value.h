#pragma once

#include "commandline/option_values.h"
#include "core/angle_field.h"
#include "core/split_text.h"

#include <array>
#include <string>
#include <string_view>
#include <vector>

namespace quelmont {

/// The fixed-column text of an angle. A value is
///  - degrees, minutes, seconds, joined by ":", the last two perhaps missing: 40N, 122:26:00W, 30:30;
///  - decimal degrees: 37.5, rounded to the second;
///  - the fixed-column text itself, taken as it stands.
/// The first two may have a sign before them or one of the letters N, S, E, W behind them, in any
/// case; without either they are north or east. An arc has neither. A number with more digits than
/// its columns becomes the largest that they hold, which the check of no field lets pass.
std::string AngleValue(AngleFieldKind kind, std::string_view value);

/// Several angles separated by commas, each in any of these forms; BadValue when there are more or fewer of
/// them.
template <std::size_t Count>
std::array<std::string, Count> AngleValues(const std::array<AngleFieldKind, Count>& kinds,
                                           std::string_view value) {
    const std::vector<std::string_view> parts = SplitAtCommas(value);
    if (parts.size() != Count) {
        throw BadValue("\"" + std::string(value) + "\" is no list of " + std::to_string(Count) + " angles");
    }
    std::array<std::string, Count> texts;
    for (std::size_t i = 0; i < Count; ++i) {
        texts[i] = AngleValue(kinds[i], parts[i]);
    }
    return texts;
}

} // namespace quelmont
