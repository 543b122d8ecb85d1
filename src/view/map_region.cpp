#include "view/map_region.h"

#include "core/angle_text.h"
#include "core/coordinates.h"
#include "core/degrees.h"
#include "core/map_design.h"
#include "projection/projection_table.h"
#include "view/moved_centre.h"
#include "view/position.h"
#include "view/round_steps.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <utility>

namespace quelmont {

namespace {

constexpr double FullCircle = 360.0;
constexpr double Pole = 90.0;
/// Edges of boxes are looked at so many times.
constexpr int EdgeSteps = 64;

double TrueLongitudeOf(double degrees) { return std::remainder(degrees, FullCircle); }

double RoundedTo(double degrees, std::int64_t unitSeconds) {
    const double unit = DegreesOf(static_cast<std::int32_t>(unitSeconds));
    return std::round(degrees / unit) * unit;
}

/// How far the farthest place of a box's edge is from a place.
double FarthestOfEdge(const MapRegion& box, const GlobePlace& from) {
    double farthest = 0.0;
    for (int step = 0; step <= EdgeSteps; ++step) {
        const double share = static_cast<double>(step) / EdgeSteps;
        const double lat = box.south + share * (box.north - box.south);
        const double lon = box.west + share * box.span;
        for (const GlobePlace& place : {GlobePlace{box.south, lon}, GlobePlace{box.north, lon},
                                        GlobePlace{lat, box.west}, GlobePlace{lat, box.west + box.span}}) {
            farthest = std::max(farthest, SeenFrom(from, place).distance);
        }
    }
    return farthest;
}

/// A box that goes nearly round the axis on one side of the equator is one about the pole.
bool IsAboutPole(const MapRegion& box) {
    constexpr double nearlyRound = 240.0;
    return box.span >= nearlyRound && (box.south >= 0.0 || box.north <= 0.0);
}

MapRegion WithCircle(MapRegion box) {
    if (IsAboutPole(box)) {
        const bool north = box.south >= 0.0;
        box.centre = {north ? Pole : -Pole, TrueLongitudeOf(box.west + box.span / 2.0)};
        box.radius = Pole - (north ? box.south : -box.north);
        return box;
    }
    const std::int64_t unit = std::min<std::int64_t>(RegionUnit(box.north - box.south), SecPerDegree);
    box.centre = {RoundedTo((box.south + box.north) / 2.0, unit),
                  TrueLongitudeOf(RoundedTo(box.west + box.span / 2.0, unit))};
    box.radius = IsWholeWorld(box) ? 2.0 * Pole : FarthestOfEdge(box, box.centre);
    return box;
}

MapRegion CircleRegion(const GlobePlace& centre, double radius) {
    MapRegion region;
    region.centre = centre;
    region.radius = radius;
    region.isRound = true;
    region.south = std::max(-Pole, centre.lat - radius);
    region.north = std::min(Pole, centre.lat + radius);
    const double cosine = std::cos(centre.lat * DegToRad);
    const double sine = std::sin(radius * DegToRad);
    if (std::fabs(centre.lat) + radius < Pole && sine < cosine) {
        const double half = InDegrees(std::asin(sine / cosine));
        region.west = TrueLongitudeOf(centre.lon - half);
        region.span = 2.0 * half;
    } else {
        region.west = TrueLongitudeOf(centre.lon - FullCircle / 2.0);
        region.span = FullCircle;
    }
    return region;
}

MapRegion RegionOfTexts() {
    const auto& text = Design.GridText;
    MapRegion box;
    box.south = DegreesOf(LatitudeSeconds(text[GridTextSouth]));
    box.north = DegreesOf(LatitudeSeconds(text[GridTextNorth]));
    box.west = DegreesOf(LongitudeSeconds(text[GridTextWest]));
    box.span = DegreesOf(LongitudeSeconds(text[GridTextEast])) - box.west;
    box.span += box.span <= 0.0 ? FullCircle : 0.0;
    return WithCircle(box);
}

/// Of a map in metres: the box that holds the places of its edge.
MapRegion RegionOfZone() {
    MapRegion box;
    box.south = Pole;
    box.north = -Pole;
    double least = FullCircle;
    double most = -FullCircle;
    for (int step = 0; step <= EdgeSteps; ++step) {
        const double share = static_cast<double>(step) / EdgeSteps;
        const double northing = Design.LatSouth + share * (Design.LatNorth - Design.LatSouth);
        const double easting = Design.LonZero + share * (Design.LonSpan - Design.LonZero);
        for (const auto& place :
             {UtmInverse(easting, Design.LatSouth), UtmInverse(easting, Design.LatNorth),
              UtmInverse(Design.LonZero, northing), UtmInverse(Design.LonSpan, northing)}) {
            if (place) {
                box.south = std::min(box.south, place->lat);
                box.north = std::max(box.north, place->lat);
                const double fromMiddle = TrueLongitudeOf(place->lon - Design.LonCentral);
                least = std::min(least, fromMiddle);
                most = std::max(most, fromMiddle);
            }
        }
    }
    if (!(least < most) || !(box.south < box.north)) {
        return {};
    }
    box.west = TrueLongitudeOf(Design.LonCentral + least);
    box.span = most - least;
    return WithCircle(box);
}

} // namespace

std::int64_t RegionUnit(double degrees) {
    constexpr double parts = 5.0;
    constexpr double coarsest = 5.0 * SecPerDegree;
    const std::int64_t step =
        RoundStepBelow(std::min(degrees / parts * SecPerDegree, coarsest), StepUnit::Seconds);
    return std::max<std::int64_t>(step, SecPerMinute);
}

bool IsWholeWorld(const MapRegion& region) {
    return region.isRound ? region.radius >= 2.0 * Pole
                          : region.span >= FullCircle && region.south <= -Pole && region.north >= Pole;
}

MapRegion WholeWorld() {
    const MapRegion own = RegionOfDesign();
    MapRegion world;
    world.centre = own.centre;
    world.west = own.span >= FullCircle ? own.west : world.west;
    return world;
}

MapRegion RegionOfDesign() {
    if (FindProjection(Design.BoundsProjNum) == nullptr) {
        return {};
    }
    if (Design.BoundsProjNum == ProjUtm) {
        return RegionOfZone();
    }
    if (!IsAzimuthal(Design.BoundsProjNum)) {
        return RegionOfTexts();
    }
    return CircleRegion({DegreesOf(LatitudeSeconds(Design.GridText[GridTextCentralLat])),
                         DegreesOf(LongitudeSeconds(Design.GridText[GridTextCentralLon]))},
                        DegreesOf(Design.RangeSec));
}

RegionKind KindOf(const MapRegion& region) {
    constexpr double hemisphere = 55.0; // degrees about the middle, as all below
    constexpr double moreThanHalf = 110.0;
    constexpr double tropics = 40.0;
    constexpr double nearPole = 65.0;
    constexpr double zoneWidth = 7.0;
    constexpr double zoneHeight = 15.0;
    constexpr double zoneLatitude = 84.0;
    constexpr double nearEquator = 10.0;
    constexpr double across = 0.25; // share of the height on either side of the equator
    constexpr double wider = 1.4;
    const double height = region.north - region.south;
    const double farthest = std::max(std::fabs(region.south), std::fabs(region.north));
    if (region.span > FullCircle / 2.0 && farthest <= tropics) {
        return RegionKind::Equator;
    }
    if (region.radius > moreThanHalf) {
        return RegionKind::World;
    }
    if (farthest >= Pole && std::fabs(region.centre.lat) >= nearPole) {
        return RegionKind::Pole;
    }
    if (IsAboutPole(region) && !region.isRound) {
        return RegionKind::Pole;
    }
    if (region.radius > hemisphere) {
        return RegionKind::Hemisphere;
    }
    if (region.span <= zoneWidth && height <= zoneHeight && farthest <= zoneLatitude) {
        return RegionKind::Zone;
    }
    const double middle = (region.south + region.north) / 2.0;
    if (std::fabs(middle) <= nearEquator || std::min(-region.south, region.north) >= across * height) {
        return RegionKind::Equator;
    }
    return region.span * std::cos(middle * DegToRad) > wider * height ? RegionKind::Wide
                                                                      : RegionKind::Compact;
}

std::string RegionText(const MapRegion& region) {
    if (IsWholeWorld(region)) {
        return "The whole world";
    }
    const double step = DegreesOf(SecPerMinute);
    const auto split = [step](const GlobePlace& place) {
        const std::string text = PlaceText(place, step);
        const std::size_t gap = text.find("   ");
        return std::pair(text.substr(0, gap), text.substr(gap + 3));
    };
    const auto [centreLat, centreLon] = split(region.centre);
    if (region.isRound) {
        const std::string radius = split({region.radius, 0.0}).first;
        return "Up to " + radius.substr(0, radius.size() - 2) + " from " + centreLat + ", " + centreLon;
    }
    const auto [south, west] = split({region.south, region.west});
    const auto [north, east] = split({region.north, TrueLongitudeOf(region.west + region.span)});
    return "From " + south + " to " + north + ", from " + west + " to " + east;
}

} // namespace quelmont
