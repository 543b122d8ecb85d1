#pragma once

namespace quelmont {

/// Whether the design can be drawn on the projection in force. A projection whose dialog was cancelled
/// is in force with the bounds of another one: they are accepted for it silently, or what
/// refuses them shows its message box, and the dialogs of the boundaries open instead of the draw.
///
/// To be asked before a draw or an export is prepared.
/// Reads   ProjNum, BoundsProjNum, the texts of the bounds.  Writes  what their acceptance does.
bool ReadyToDraw();

} // namespace quelmont
