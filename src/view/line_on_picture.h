#pragma once

#include "core/circle_tables.h"
#include "platform/draw_surface.h"

#include <vector>

namespace quelmont {

/// Pieces of a line in pixels of the picture in the window, two points at least in each.
using PicturePieces = std::vector<std::vector<SurfacePoint>>;

/// Where a great circle runs on the picture in the window, whatever became of the design since it was drawn:
/// in one piece, or in several where it leaves the map or crosses its seam; on the interrupted map within
/// each lobe. Nothing without a picture, and while a draw runs. Shows no message box; the design is left as
/// it was.
PicturePieces LineOnPicture(const GreatCircleTable& route);

} // namespace quelmont
