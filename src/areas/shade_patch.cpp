#include "areas/shade_patch.h"

#include "areas/area_frame.h"
#include "core/degrees.h"
#include "core/map_design.h"
#include "projection/projection_table.h"

#include <algorithm>
#include <cmath>

namespace quelmont {

namespace {

/// So far from a singular place distortion has a value, degrees; beside an antipode roundings count more.
constexpr double Beside = 0.05;
constexpr double BesideAntipode = 0.5;

/// A map between parallels and meridians.
class BoxPatch final : public ShadePatch {
public:
    BoxPatch() {
        constexpr int lobeSteps = 90;
        if (Design.ProjNum == ProjInterruptedMollweide) {
            columns = rows = lobeSteps;
        }
    }

    std::optional<PlanePoint> PointAt(double u, double v) const override {
        PlanePoint point;
        return ProjectPlace(Lat(v), Lon(u), point) ? std::optional(point) : std::nullopt;
    }
    std::optional<GlobePlace> PlaceAt(double u, double v) const override {
        return GlobePlace{Lat(v), Design.LonWest + Lon(u)};
    }
    std::optional<Distortion> DistortionOf(double u, double v) const override {
        // The outline of the Robinson has a kink on the equator: distortion is that of either side of it.
        const double lat = Lat(v);
        return DistortionAt(std::fabs(lat) < Beside ? Beside : std::clamp(lat, -90.0 + Beside, 90.0 - Beside),
                            Lon(u));
    }

private:
    double Lat(double v) const { return south + (north - south) * v; }
    double Lon(double u) const { return west + (east - west) * u; }

    double south = DegreesOf(Design.LatSouthSec), north = DegreesOf(Design.LatNorthSec);
    double west = DegreesOf(Design.LonZeroSec), east = DegreesOf(Design.LonSpanSec);
};

/// A map bounded by a circle about its centre: u goes once round it, v outward.
class DiscPatch final : public ShadePatch {
public:
    DiscPatch() { rows = 120; }

    std::optional<PlanePoint> PointAt(double u, double v) const override {
        const double azimuth = Azimuth(u);
        if (v >= 1.0) { // the horizon and the antipode have no forward
            return PlanePoint{Design.MapXMax * std::sin(azimuth), Design.MapXMax * std::cos(azimuth)};
        }
        const Relative place = At(azimuth, range * v);
        PlanePoint point;
        return ProjectPlace(place.lat, place.lon, point) ? std::optional(point) : std::nullopt;
    }
    std::optional<GlobePlace> PlaceAt(double u, double v) const override {
        const Relative place = At(Azimuth(u), range * v);
        return GlobePlace{place.lat, Design.LonWest + place.lon};
    }
    std::optional<Distortion> DistortionOf(double u, double v) const override {
        const Relative place = At(Azimuth(u), std::min({range * v, range - Beside, 180.0 - BesideAntipode}));
        return DistortionAt(std::clamp(place.lat, -90.0 + Beside, 90.0 - Beside), place.lon);
    }

private:
    struct Relative {
        double lat, lon;
    };

    /// Where the turn is complete it is where it began, to the last digit.
    static double Azimuth(double u) { return u >= 1.0 ? 0.0 : u * 2.0 * Pi; }

    /// Distance in degrees. Snyder 1987, eq. 5-5 and 5-6.
    static Relative At(double azimuth, double distance) {
        const double c = distance * DegToRad;
        const double sinLat =
            Design.SinLatCentral * std::cos(c) + Design.CosLatCentral * std::sin(c) * std::cos(azimuth);
        const double lon = std::atan2(std::sin(c) * std::sin(azimuth),
                                      Design.CosLatCentral * std::cos(c) -
                                          Design.SinLatCentral * std::sin(c) * std::cos(azimuth));
        return {std::asin(std::clamp(sinLat, -1.0, 1.0)) / DegToRad, Design.LonCentral + lon / DegToRad};
    }

    double range = DegreesOf(Design.RangeSec);
};

/// A map between northings and eastings of a zone.
class ZonePatch final : public ShadePatch {
public:
    ZonePatch() { columns = rows = 60; }

    std::optional<PlanePoint> PointAt(double u, double v) const override {
        return PlanePoint{Design.LonZero + (Design.LonSpan - Design.LonZero) * u,
                          Design.LatSouth + (Design.LatNorth - Design.LatSouth) * v};
    }
    std::optional<GlobePlace> PlaceAt(double u, double v) const override {
        const PlanePoint metres = *PointAt(u, v);
        return UtmInverse(metres.x, metres.y);
    }
    std::optional<Distortion> DistortionOf(double u, double v) const override {
        const std::optional<GlobePlace> place = PlaceAt(u, v);
        return place ? DistortionAt(place->lat, place->lon) : std::nullopt;
    }
};

} // namespace

std::unique_ptr<ShadePatch> PatchOfMap() {
    switch (PropertiesOf(Design.ProjNum).family) {
    case ProjectionFamily::Cylindrical:
    case ProjectionFamily::Pseudocylindrical:
    case ProjectionFamily::Conic:
        return std::make_unique<BoxPatch>();
    case ProjectionFamily::Azimuthal:
        return std::make_unique<DiscPatch>();
    case ProjectionFamily::MetricGrid:
        return std::make_unique<ZonePatch>();
    case ProjectionFamily::None:
        break;
    }
    return nullptr;
}

} // namespace quelmont
