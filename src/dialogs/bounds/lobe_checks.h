#pragma once

#include "core/angle_field.h"

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

/// What the dialog of the interrupted projection refuses. Its six fields of interruptions are the
/// controls "LonInt(0)" to "LonInt(5)", three for the northern hemisphere, then three for the
/// southern.

namespace quelmont {

/// The control of an interruption, counted from 0.
std::string InterruptionControl(std::size_t index);

/// The check of an interruption when its field is left. std::out_of_range for an index above 5.
Refusal CheckInterruption(std::size_t index, std::string_view text);

/// Tests that each hemisphere's interruptions rise eastward inside the map, at whole numbers of
/// grid spacings. A hemisphere's row is the map's left boundary, its interruptions, the right
/// boundary; the northern row comes first.
///
/// Reads   LobeText 0 and 1 (counts), LobeLonSec (the rows one behind the other), LonSpanSec,
///         LonGridSec.
/// Gives   0, or the code of the first fault: 1 to 14 in the north, 15 to 28 in the south, in the
///         order of LonInterruptMessage.
/// A run-time failure shows "Error in LonInterruptErrors" and gives 0.
std::int16_t LonInterruptErrors();

/// The text of a code, with its hint; empty for 0. Lines are parted by "\n".
std::string LonInterruptMessage(std::int16_t code);

/// Runs LonInterruptErrors when the dialog is accepted, and shows its message. The field concerned
/// is the one of the interruption at fault.
Refusal AcceptLatLonInterrupt();

} // namespace quelmont
