#pragma once

namespace quelmont {

/// The map drawn again by itself: at the last map size, without a dialog and without a beep.

/// Whether the picture is to be drawn again now: that is switched on, the last draw was whole and took less
/// than half a second, the design can be drawn on the projection in force, no text is being placed; and the
/// picture is older than the design or, where the size of the drawing area counts, has another size.
bool IsRedrawDue(bool sizeCounts);

/// Whether the drawing area has another size than when the picture was drawn.
bool HasOtherSize();

/// Draws it.
void RedrawByItself();

} // namespace quelmont
