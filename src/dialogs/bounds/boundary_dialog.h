#pragma once

namespace quelmont {

/// Opens the chain of dialogs for the boundaries of the projection in force, and returns when it is
/// closed. Reads ProjNum; BoundsChanged tells whether the map has new bounds.
void ShowBoundaryDialog();

} // namespace quelmont
