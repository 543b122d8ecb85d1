#pragma once

#include "core/map_design.h"
#include "view/map_region.h"

#include <cstdint>
#include <optional>

namespace quelmont {

/// Bounds that show a region on a projection, with all that its dialogs ask for: the grid's spacings,
/// parallels at one sixth and five sixths of the latitudes, the zone and its spheroid, the centre and the
/// range. What the design has for such a map stays as it stands. They are as the dialogs would accept them,
/// texts and numbers.
///
/// Nothing where the projection cannot show the region. Of a region that reaches beyond what it can show, the
/// part that it can. Changes nothing of the design. RunTimeError as RegionOfDesign.
std::optional<DesignBounds> ProposeBoundsFor(std::int16_t projNum, const MapRegion& region);

/// Makes a projection that of the design, with bounds that were proposed for it.
/// Writes   ProjNum, ProjName, the bounds.
void TakeProposal(std::int16_t projNum, const DesignBounds& bounds);

} // namespace quelmont
