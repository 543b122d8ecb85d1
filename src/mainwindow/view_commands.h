#pragma once

namespace quelmont {

/// The switches of the View menu, whose marks are what is on. An item is its index in that menu.

bool IsSwitchedOn(int item);

/// Shows or hides the line under the map.
void SwitchStatusLine(bool on);

/// What the items do: each turns its switch.
void ToggleStatusLine(int index);
void ToggleRedraw(int index);

} // namespace quelmont
