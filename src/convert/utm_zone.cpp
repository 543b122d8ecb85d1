#include "convert/utm_zone.h"

#include "convert/point_transform.h"
#include "convert/projected_line.h"
#include "core/number_text.h"
#include "projection/utm.h"

#include <cmath>
#include <string>

namespace quelmont {

namespace {

const Spheroid& SpheroidOf(const std::string& name) {
    for (const Spheroid& spheroid : Spheroids) {
        if (spheroid.name == name) {
            return spheroid;
        }
    }
    throw ConvertError("there is no spheroid \"" + name + "\"");
}

} // namespace

UtmZone::UtmZone(const UtmZoneChoice& choice, double northing) {
    const Spheroid& spheroid = SpheroidOf(choice.Spheroid);
    const std::string form = " +a=" + FormatNumber(spheroid.equatorialRadius, "0.0##") +
                             " +rf=" + FormatNumber(spheroid.inverseFlattening, "0.0########") + " +no_defs";
    OGRSpatialReference degrees;
    OGRSpatialReference metres;
    const bool good =
        degrees.importFromProj4(("+proj=longlat" + form).c_str()) == OGRERR_NONE &&
        metres.importFromProj4(("+proj=tmerc +lat_0=0 +k=0.9996 +x_0=500000 +units=m +y_0=" +
                                FormatNumber(choice.Northing.value_or(northing), "0.0##") +
                                " +lon_0=" + FormatNumber(choice.CentralLon, "0.0#########") + form)
                                   .c_str()) == OGRERR_NONE;
    degrees.SetAxisMappingStrategy(OAMS_TRADITIONAL_GIS_ORDER);
    metres.SetAxisMappingStrategy(OAMS_TRADITIONAL_GIS_ORDER);
    if (good) {
        toMetres.reset(OGRCreateCoordinateTransformation(&degrees, &metres));
        toDegrees.reset(OGRCreateCoordinateTransformation(&metres, &degrees));
    }
    if (!toMetres || !toDegrees) {
        throw ConvertError("the projection library knows no such zone");
    }
}

std::vector<bool> UtmZone::ToMetres(MapLine& line) const {
    std::vector<bool> good = TransformPoints(*toMetres, line);
    for (std::size_t i = 0; i < line.size(); ++i) {
        good[i] = good[i] && std::fabs(line[i].Lon) <= FarMetres && std::fabs(line[i].Lat) <= FarMetres;
    }
    return good;
}

bool UtmZone::ToDegrees(MapLine& line, std::int64_t& added) const {
    // Centimetres to either side of the 180th meridian are rounding.
    constexpr double hair = 3e-7;
    if (TurnProjectedLine(*toDegrees, line, added)) {
        return false;
    }
    for (LonLat& point : line) {
        if (std::fabs(point.Lon) > 180.0 - hair) {
            point.Lon = std::copysign(180.0, point.Lon);
        }
    }
    return true;
}

} // namespace quelmont
