#pragma once

#include <array>
#include <string_view>

/// The choices of grid labels in words, for the command line and the settings, in the order of their
/// enumerations.

namespace quelmont {

constexpr std::array<std::string_view, 3> GridLabelPlaceWords = {"none", "frame", "lines"};
constexpr std::array<std::string_view, 3> GridLabelStyleWords = {"degrees", "letters", "signs"};

} // namespace quelmont
