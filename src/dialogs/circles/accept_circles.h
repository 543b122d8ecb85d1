#pragma once

#include "core/map_design.h"

#include <array>
#include <string>
#include <string_view>

/// What the dialogs of the circles refuse, and what their acceptance stores. A check shows the message box of
/// its first fault and answers which control is concerned and which button was pressed; nothing is written
/// back and no focus moves here.

namespace quelmont {

/// The texts of GcText and ScText, in their order, and the controls that show them.
using GreatCircleTexts = std::array<std::string, 4>;
using SmallCircleTexts = std::array<std::string, 3>;
constexpr std::array<std::string_view, 4> GreatCircleFields = {"LatN", "LonW", "LatS", "LonE"};
constexpr std::array<std::string_view, 3> SmallCircleFields = {"LatCenter", "LonCenter", "RadiusDeg"};

/// The check of field i of GCircleEnds when it is left: the rule of angles, and that no end is a pole while
/// the longitudes differ.
Refusal CheckGreatCircleField(std::size_t i, const GreatCircleTexts& texts);

/// The same for the whole dialog when it is accepted: no end is a pole while the longitudes differ.
Refusal CheckGreatCircle(const GreatCircleTexts& texts);

/// The check of field i of SmallCircle when it is left: the rule of angles.
Refusal CheckSmallCircleField(std::size_t i, const SmallCircleTexts& texts);

/// Stores what was checked.
/// Writes  GcText, GcStartLat, GcStartLon, GcEndLat, GcEndLon. Two names of the 180th meridian become one.
void StoreGreatCircle(const GreatCircleTexts& texts);
/// Writes  ScText, ScCenterLat, ScCenterLon, ScRadiusDeg.
void StoreSmallCircle(const SmallCircleTexts& texts);

/// What OK accepts, without a dialog: each field, then all together; the circle is computed and shown. False
/// when it was refused; its message box was shown then.
/// Writes  the same, GcDefined and GcTable, or ScDefined and ScTable (of ScSymbolCount circles).
bool AcceptGreatCircle(const GreatCircleTexts& texts);
bool AcceptSmallCircle(const SmallCircleTexts& texts);

} // namespace quelmont
