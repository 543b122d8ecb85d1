#include "view/position.h"

#include "core/coordinates.h"
#include "core/degrees.h"
#include "core/distance_units.h"
#include "core/map_design.h"
#include "core/number_text.h"
#include "mainwindow/drawn_picture.h"
#include "mainwindow/main_window_state.h"
#include "projection/inverse_place.h"
#include "view/bounds_of_picture.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <string_view>

namespace quelmont {

namespace {

/// How an angle is written whose smallest unit is so many degrees.
struct AngleUnits {
    double unit;               ///< degrees
    std::int64_t perDegree;    ///< units
    std::int64_t perMinute;    ///< units; 0 where minutes are not written
    std::int64_t perSecond;    ///< units; 0 where seconds are not written
    std::string_view fraction; ///< picture of a second
};

constexpr std::array Units = std::to_array<AngleUnits>({
    {1.0, 1, 0, 0, {}},
    {1.0 / 60.0, 60, 1, 0, {}},
    {1.0 / 3600.0, 3600, 60, 1, "00"},
    {1.0 / 36000.0, 36000, 600, 10, "00.0"},
    {1.0 / 360000.0, 360000, 6000, 100, "00.00"},
});

/// The coarsest units that tell two neighbouring pixels apart.
const AngleUnits& UnitsFor(double step) {
    // Pixels of a map are no round numbers: a unit may be a little wider than one.
    constexpr double wider = 1.5;
    for (const AngleUnits& units : Units) {
        if (units.unit <= step * wider) {
            return units;
        }
    }
    return Units.back();
}

std::string AngleText(double degrees, const AngleUnits& units, std::string_view letters) {
    // Rounded first and split then: 59.99 minutes are a degree.
    const std::int64_t whole = std::llround(std::fabs(degrees) / units.unit);
    const char letter = letters[degrees < 0.0 && whole != 0 ? 1 : 0];
    std::string text = std::to_string(whole / units.perDegree) + "\u00B0 ";
    if (units.perMinute > 0) {
        const std::int64_t minutes = whole % units.perDegree / units.perMinute;
        text += FormatNumber(static_cast<double>(minutes), "00") + "\u2032 ";
    }
    if (units.perSecond > 0) {
        const auto rest = static_cast<double>(whole % units.perMinute);
        text += FormatNumber(rest / static_cast<double>(units.perSecond), units.fraction) + "\u2033 ";
    }
    return text + letter;
}

/// Metres with as many decimals as a pixel tells, three at most.
std::string MetresText(double metres, double perPixel) {
    const std::string_view picture = perPixel >= 1.0    ? "0"
                                     : perPixel >= 0.1  ? "0.0"
                                     : perPixel >= 0.01 ? "0.00"
                                                        : "0.000";
    return FormatNumber(metres, picture) + " m";
}

} // namespace

std::optional<PlanePoint> PointAt(SurfacePoint pixel) {
    const auto& picture = MainWindowNow.Picture;
    if (!picture || IsPlotting() || picture->scaleX == 0.0 || picture->scaleY == 0.0) {
        return std::nullopt;
    }
    const double twipsX = static_cast<double>(pixel.x) * picture->twipsPerPixelX;
    const double twipsY = static_cast<double>(pixel.y) * picture->twipsPerPixelY;
    return PlanePoint{(twipsX - picture->originX) / picture->scaleX + picture->bounds.MapXMin,
                      (picture->originY - twipsY) / picture->scaleY + picture->bounds.MapYMin};
}

std::optional<MapPosition> PositionAt(SurfacePoint pixel) {
    const auto point = PointAt(pixel);
    if (!point) {
        return std::nullopt;
    }
    auto& picture = MainWindowNow.Picture;
    const double perPixel = picture->twipsPerPixelX / picture->scaleX;
    const bool metres = picture->projNum == ProjUtm;
    const BoundsOfPicture bounds(*picture);
    const auto place = PlaceAt(point->x, point->y);
    return place ? std::optional(MapPosition{*place, point->x, point->y, perPixel, metres,
                                             DistortionOfPoint(point->x, point->y)})
                 : std::nullopt;
}

std::string PlaceText(const GlobePlace& place, double step) {
    const AngleUnits& units = UnitsFor(step);
    return AngleText(place.lat, units, "NS") + "   " + AngleText(place.lon, units, "EW");
}

std::string DistortionText(const MapPosition& position) {
    if (!position.distortion) {
        return {};
    }
    const auto [h, k, area, angle] = *position.distortion;
    const std::string_view areaPicture = area < 10.0 ? "0.000" : area < 1000.0 ? "0.0" : "#,##0";
    return "area \u00D7 " + FormatNumber(area, areaPicture) + "   angle " + FormatNumber(angle, "0.0") +
           "\u00B0";
}

double DegreesPerPixel(const MapPosition& position) {
    // Of a zone, whose maps are in metres, on the ellipsoid: a minute is a nautical mile within a hundredth.
    constexpr double metresPerDegree = KilometresPerNauticalMile * 60.0 * 1000.0;
    return position.metres ? position.unitsPerPixel / metresPerDegree : InDegrees(position.unitsPerPixel);
}

GlobePlace RoundedPlace(const GlobePlace& place, double step) {
    const double unit = std::max(UnitsFor(step).unit, 1.0 / SecPerDegree);
    return {std::round(place.lat / unit) * unit, std::round(place.lon / unit) * unit};
}

std::string PositionText(const MapPosition& position) {
    if (position.metres) {
        return "Northing " + MetresText(position.y, position.unitsPerPixel) + "   Easting " +
               MetresText(position.x, position.unitsPerPixel);
    }
    return PlaceText(position.place, InDegrees(position.unitsPerPixel));
}

} // namespace quelmont
