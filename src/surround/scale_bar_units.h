#pragma once

#include "core/map_extras.h"

#include <optional>
#include <string_view>

namespace quelmont {

/// The word for what a scale bar measures, in settings and on command lines: "none", "km", "mi", "nmi".
std::string_view WordOf(ScaleBarUnit unit);

/// The unit of such a word; nothing for any other.
std::optional<ScaleBarUnit> ScaleBarUnitOf(std::string_view word);

} // namespace quelmont
