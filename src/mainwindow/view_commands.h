#pragma once

namespace quelmont {

/// The switches of the View menu, whose marks are what is on. An item is its index in that menu.

bool IsSwitchedOn(int item);

/// Shows or hides the line under the map.
void SwitchStatusLine(bool on);

/// Has the next draws antialias lines and symbols, or not. Writes  SmoothLines.
void SwitchSmoothLines(bool on);

/// What the items do: each turns its switch.
void ToggleStatusLine(int index);
/// Of a switch that nothing has to be done for at once.
void ToggleSwitch(int index);
/// A map that is on the window is drawn again, at the size that it had last.
void ToggleSmoothLines(int index);

} // namespace quelmont
