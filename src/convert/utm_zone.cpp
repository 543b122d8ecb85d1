#include "convert/utm_zone.h"

#include "convert/point_transform.h"
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

/// Of points in metres: whether they have a place near enough.
void TestDistance(const MapLine& line, std::vector<bool>& good) {
    for (std::size_t i = 0; i < line.size(); ++i) {
        good[i] = good[i] && std::fabs(line[i].Lon) <= UtmZone::FarMetres &&
                  std::fabs(line[i].Lat) <= UtmZone::FarMetres;
    }
}

} // namespace

UtmZone::UtmZone(const UtmZoneChoice& choice) {
    const Spheroid& spheroid = SpheroidOf(choice.Spheroid);
    const std::string form = " +a=" + FormatNumber(spheroid.equatorialRadius, "0.0##") +
                             " +rf=" + FormatNumber(spheroid.inverseFlattening, "0.0########") + " +no_defs";
    OGRSpatialReference degrees;
    OGRSpatialReference metres;
    const bool good =
        degrees.importFromProj4(("+proj=longlat" + form).c_str()) == OGRERR_NONE &&
        metres.importFromProj4(("+proj=tmerc +lat_0=0 +k=0.9996 +x_0=500000 +y_0=0 +units=m +lon_0=" +
                                FormatNumber(choice.CentralLon, "0.0#########") + form)
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
    TestDistance(line, good);
    return good;
}

std::vector<bool> UtmZone::ToDegrees(MapLine& line) const {
    // What centimetres leave of the 180th meridian, either side of it.
    constexpr double hair = 3e-7;
    std::vector<bool> good = TransformPoints(*toDegrees, line);
    for (LonLat& point : line) {
        if (std::fabs(point.Lon) > 180.0 - hair) {
            point.Lon = std::copysign(180.0, point.Lon);
        }
    }
    return good;
}

} // namespace quelmont
