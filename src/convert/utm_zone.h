#pragma once

#include "convert/convert_options.h"
#include "convert/map_line.h"

#include <ogr_spatialref.h>

#include <cstdint>
#include <memory>
#include <vector>

namespace quelmont {

/// A zone of the UTM projection as the program proposes it: scale factor 0.9996, false easting 500000.
/// Latitudes and longitudes are taken for those of its spheroid, as maps draw them.
class UtmZone {
public:
    /// The false northing is that of the choice, or else the one given, metres. ConvertError when the
    /// projection library refuses the zone.
    UtmZone(const UtmZoneChoice& choice, double northing);

    /// Turns degrees into metres, easting and northing in the places of longitude and latitude. The answer
    /// says for each point whether it has a place, easting and northing no more than FarMetres; one
    /// without is of no use.
    std::vector<bool> ToMetres(MapLine& line) const;
    /// Turns metres into degrees. What is within three centimetres of the 180th meridian is on it. Points
    /// are put in where a segment is straight in metres alone, and their number is added to added. False
    /// when a point has no place; the line is of no use then.
    bool ToDegrees(MapLine& line, std::int64_t& added) const;

    static constexpr double FarMetres = 2e7;

private:
    std::unique_ptr<OGRCoordinateTransformation> toMetres, toDegrees;
};

} // namespace quelmont
