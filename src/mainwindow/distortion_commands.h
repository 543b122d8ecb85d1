#pragma once

#include "core/map_extras.h"

#include <optional>
#include <string>
#include <string_view>

namespace quelmont {

/// "Distortion...".
void ChooseDistortion(int index);

/// The kind of a word: none, ellipses, area, angle. Nothing for any other.
std::optional<DistortionKind> DistortionKindOf(std::string_view word);

/// The distortion that is shown as a line of the settings: a word, and radius and spacing of circles in
/// seconds of arc, blanks between ("ellipses 18000 108000").
std::string DistortionSetting();

/// Takes it from such a line; one that is none leaves it as it is.
void TakeDistortionSetting(std::string_view text);

} // namespace quelmont
