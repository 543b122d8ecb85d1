#pragma once

#include "convert/convert_options.h"
#include "convert/map_line.h"

#include <ogr_spatialref.h>

#include <memory>
#include <vector>

namespace quelmont {

/// A zone of the UTM projection as the program proposes it: scale factor 0.9996, false easting 500000,
/// false northing 0. Latitudes and longitudes are taken for those of its spheroid, as maps draw them.
class UtmZone {
public:
    /// ConvertError when the projection library refuses the zone.
    explicit UtmZone(const UtmZoneChoice& choice);

    /// Turns degrees into metres, easting and northing in the places of longitude and latitude, and the
    /// other way round. The answer tells of each point whether it has a place, in metres one that is no
    /// more than FarMetres off; one without is of no use. Metres within three centimetres of the 180th
    /// meridian are on it.
    std::vector<bool> ToMetres(MapLine& line) const;
    std::vector<bool> ToDegrees(MapLine& line) const;

    static constexpr double FarMetres = 2e7;

private:
    std::unique_ptr<OGRCoordinateTransformation> toMetres, toDegrees;
};

} // namespace quelmont
