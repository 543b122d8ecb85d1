#pragma once

namespace quelmont {

/// The item that copies the map: puts the picture of the window on the clipboard as PNG, and the same map as
/// SVG. The picture stays as it is; one that is older than the design, or has another size than the drawing
/// area, is drawn anew. A draw that is stopped or fails leaves the clipboard as it was; a drawing of more
/// bytes than a clipboard should carry is left out. A design that the projection refuses opens the dialogs of
/// its bounds instead.
void CopyMap(int index);

/// The most bytes of a drawing on the clipboard.
constexpr long LargestCopiedDrawing = 64L * 1024 * 1024;

} // namespace quelmont
