#include "graticule/map_outline.h"

#include "core/checked_math.h"
#include "core/degrees.h"
#include "core/map_design.h"
#include "core/rounding.h"
#include "graticule/lobes.h"
#include "projection/lobe_row.h"
#include "projection/map_in_hand.h"
#include "projection/project_place.h"
#include "projection/projection_table.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstddef>
#include <optional>

namespace quelmont {

namespace {

/// Of the map's larger side: how far a chain may leave the true line.
constexpr double ChordTolerance = 2e-5;
/// Of the same: a side that is shorter is a point, the pole.
constexpr double PointLength = 1e-6;
/// A curved side is taken in so many pieces at least, each of which is halved so often at most.
constexpr int CurvedPieces = 16;
constexpr int MostHalvings = 8;
/// From so many lines on they cannot be told apart.
constexpr std::int32_t MostMarks = 2000;

double SizeOfMap() { return std::max(Design.MapXMax - Design.MapXMin, Design.MapYMax - Design.MapYMin); }

double Distance(PlanePlace a, PlanePlace b) { return std::hypot(b.x - a.x, b.y - a.y); }

/// How far a point lies from the chord between two others.
double Deviation(PlanePlace point, PlanePlace from, PlanePlace to) {
    const double length = Distance(from, to);
    if (length == 0.0) {
        return Distance(from, point);
    }
    return std::fabs((to.x - from.x) * (point.y - from.y) - (to.y - from.y) * (point.x - from.x)) / length;
}

/// A point as ProjectSelect takes it.
struct GridPlace {
    double lat, lon;
};

std::optional<PlanePlace> Projected(GridPlace place) {
    return ProjectPlace(place.lat, place.lon) ? std::optional(PlanePlace{Design.ProjX, Design.ProjY})
                                              : std::nullopt;
}

using Chain = std::vector<PlanePlace>;

/// A side of the map, along a parallel or a meridian.
struct Side {
    GridPlace from, to;
    bool straight;
    double gridStart; ///< latitude or longitude of the first line of the grid that can end on it
    double gridStep;

    bool AlongParallel() const { return from.lat == to.lat; }
    /// share: 0 at its beginning, 1 at its end.
    std::optional<PlanePlace> At(double share) const {
        return Projected({share == 1.0 ? to.lat : from.lat + (to.lat - from.lat) * share,
                          share == 1.0 ? to.lon : from.lon + (to.lon - from.lon) * share});
    }
};

struct PointOnSide {
    double share;
    PlanePlace place;
};

/// What lies between two points of a side, without them.
void Refine(const Side& side, PointOnSide from, PointOnSide to, int halvings, Chain& chain) {
    const double share = (from.share + to.share) / 2.0;
    const std::optional<PlanePlace> middle = side.At(share);
    if (!middle || !(Deviation(*middle, from.place, to.place) > ChordTolerance * SizeOfMap()) ||
        halvings == 0) {
        return;
    }
    Refine(side, from, {share, *middle}, halvings - 1, chain);
    chain.push_back(*middle);
    Refine(side, {share, *middle}, to, halvings - 1, chain);
}

/// The side with both of its ends.
Chain ChainOf(const Side& side) {
    Chain chain;
    std::optional<PointOnSide> before;
    const int pieces = side.straight ? 1 : CurvedPieces;
    for (int i = 0; i <= pieces; ++i) {
        const double share = static_cast<double>(i) / pieces;
        const std::optional<PlanePlace> place = side.At(share);
        if (!place) {
            continue;
        }
        if (before && !side.straight) {
            Refine(side, *before, {share, *place}, MostHalvings, chain);
        }
        chain.push_back(*place);
        before = PointOnSide{share, *place};
    }
    return chain;
}

/// Across a side, to the right of whoever walks along it.
std::optional<PlanePlace> Outward(const Side& side, double share) {
    constexpr double little = 1e-5;
    const std::optional<PlanePlace> before = side.At(share - little);
    const std::optional<PlanePlace> behind = side.At(share + little);
    if (!before || !behind || *before == *behind) {
        return std::nullopt;
    }
    const double length = Distance(*before, *behind);
    return PlanePlace{(behind->y - before->y) / length, (before->x - behind->x) / length};
}

void AddMarks(const Side& side, std::vector<OutlineMark>& marks) {
    const bool parallel = side.AlongParallel();
    const double from = parallel ? side.from.lon : side.from.lat;
    const double to = parallel ? side.to.lon : side.to.lat;
    const double lines = std::fabs(Divide(to - from, side.gridStep));
    if (lines > MostMarks) {
        return;
    }
    for (std::int32_t i = 1; i < RoundToInt32(std::ceil(lines - 1e-9)); ++i) {
        const double share = (side.gridStart + side.gridStep * i - from) / (to - from);
        const std::optional<PlanePlace> at = side.At(share);
        const std::optional<PlanePlace> outward = Outward(side, share);
        if (at && outward) {
            marks.push_back({*at, *outward});
        }
    }
}

double LengthOf(const Chain& chain) {
    double length = 0.0;
    for (std::size_t i = 1; i < chain.size(); ++i) {
        length += Distance(chain[i - 1], chain[i]);
    }
    return length;
}

/// Puts the sides of rings together.
class OutlineBuilder {
public:
    void Add(const Side& side) {
        const Chain chain = ChainOf(side);
        if (LengthOf(chain) > PointLength * SizeOfMap()) {
            AddMarks(side, outline.marks);
        }
        for (const PlanePlace point : chain) {
            Append(point);
        }
    }
    void EndRing() {
        while (ring.size() > 1 && Distance(ring.back(), ring.front()) <= Near()) {
            ring.pop_back();
        }
        if (ring.size() > 2) {
            outline.rings.push_back(std::move(ring));
        }
        ring = {};
    }
    MapOutline Take() { return std::move(outline); }

private:
    static double Near() { return 1e-10 * SizeOfMap(); }
    void Append(PlanePlace point) {
        if (ring.empty() || Distance(ring.back(), point) > Near()) {
            ring.push_back(point);
        }
    }

    MapOutline outline;
    Chain ring;
};

// ---- Maps between parallels and meridians.

struct Corners {
    double north = Design.LatNorth, south = Design.LatSouth;
    double west = Design.LonZero, east = Design.LonSpan;
};

bool StraightParallels() { return !IsConic(Design.ProjNum) && Design.ProjNum != ProjHammer; }
bool StraightMeridians() {
    return PropertiesOf(Design.ProjNum).family != ProjectionFamily::Pseudocylindrical;
}

Side ParallelSide(double lat, double from, double to) {
    return {{lat, from}, {lat, to}, StraightParallels(), Corners().west, Design.LonGrid};
}

Side MeridianSide(double lon, double from, double to) {
    return {{from, lon}, {to, lon}, StraightMeridians(), Corners().south, Design.LatGrid};
}

/// Which sides of a map, or of a lobe of it, belong to the outline.
void AddSouthernSides(OutlineBuilder& builder) {
    const Corners map;
    builder.Add(MeridianSide(map.west, map.north, map.south));
    builder.Add(ParallelSide(map.south, map.west, map.east));
    builder.Add(MeridianSide(map.east, map.south, map.north));
}

void AddNorthernSides(OutlineBuilder& builder) {
    const Corners map;
    builder.Add(MeridianSide(map.east, map.south, map.north));
    builder.Add(ParallelSide(map.north, map.east, map.west));
    builder.Add(MeridianSide(map.west, map.north, map.south));
}

void AddWhole(OutlineBuilder& builder) {
    builder.Add(ParallelSide(Corners().south, Corners().west, Corners().east));
    AddNorthernSides(builder);
    builder.EndRing();
}

// ---- Lobes.

/// Puts the bounds of a lobe in force. False when it has no height.
bool TakeLobe(std::size_t number) {
    CalcGraticuleInterrupt(static_cast<std::int16_t>(number));
    Design.LobeOffsetX = Design.LobeCentral[number];
    return Design.LatNorthSec > Design.LatSouthSec;
}

/// Whether a hemisphere is on the map, and its lobes meet on the equator.
enum class Hemisphere { None, Apart, Meeting };

Hemisphere KindOfRow(const LobeRow& row) {
    if (!TakeLobe(row.first)) {
        return Hemisphere::None;
    }
    return Design.LatSouthSec <= 0 && Design.LatNorthSec >= 0 ? Hemisphere::Meeting : Hemisphere::Apart;
}

/// The equator under all lobes of a row, from its western end to its eastern one, or back.
void AddEquator(OutlineBuilder& builder, const LobeRow& row, bool eastward) {
    for (std::size_t i = 0; i <= row.last - row.first; ++i) {
        TakeLobe(eastward ? row.first + i : row.last - i);
        const Corners lobe;
        builder.Add(eastward ? ParallelSide(0.0, lobe.west, lobe.east)
                             : ParallelSide(0.0, lobe.east, lobe.west));
    }
}

MapOutline OutlineOfLobes() {
    OutlineBuilder builder;
    const LobeRow northern = LobesOf(0);
    const LobeRow southern = LobesOf(1);
    const Hemisphere north = KindOfRow(northern);
    const Hemisphere south = KindOfRow(southern);
    if (north == Hemisphere::Apart || south == Hemisphere::Apart) {
        const LobeRow& row = north == Hemisphere::Apart ? northern : southern;
        for (std::size_t lobe = row.first; lobe <= row.last; ++lobe) {
            TakeLobe(lobe);
            AddWhole(builder);
        }
        return builder.Take();
    }
    if (south == Hemisphere::None) {
        AddEquator(builder, northern, true);
    } else {
        for (std::size_t lobe = southern.first; lobe <= southern.last; ++lobe) {
            TakeLobe(lobe);
            AddSouthernSides(builder);
        }
    }
    if (north == Hemisphere::None) {
        AddEquator(builder, southern, false);
    } else {
        for (std::size_t lobe = northern.last; lobe >= northern.first; --lobe) {
            TakeLobe(lobe);
            AddNorthernSides(builder);
        }
    }
    builder.EndRing();
    return builder.Take();
}

// ---- Discs.

/// The circle of a map about its centre: on the globe, and on the map, where it is laid straight.
class Rim {
public:
    Rim() {
        // The rim of the whole globe is the antipode, on which no line of the grid has a place of its own.
        constexpr double besideAntipode = 179.999;
        const double distance = std::min(DegreesOf(Design.RangeSec), besideAntipode) * DegToRad;
        sinDistance = std::sin(distance);
        cosDistance = std::cos(distance);
    }

    static PlanePlace At(double azimuth) {
        return {Design.MapXMax * std::sin(azimuth), Design.MapXMax * std::cos(azimuth)};
    }
    void AddParallel(double lat, std::vector<OutlineMark>& marks) const;
    void AddMeridian(double lon, std::vector<OutlineMark>& marks) const;

private:
    static void AddMark(double azimuth, std::vector<OutlineMark>& marks) {
        marks.push_back({At(azimuth), {std::sin(azimuth), std::cos(azimuth)}});
    }

    double sinDistance = 0.0, cosDistance = 1.0;
};

/// The azimuths at which points of the circle have that latitude. Snyder 1987, eq. 5-5.
void Rim::AddParallel(double lat, std::vector<OutlineMark>& marks) const {
    const double divisor = Design.CosLatCentral * sinDistance;
    const double cosAzimuth = (std::sin(lat * DegToRad) - Design.SinLatCentral * cosDistance) / divisor;
    if (std::fabs(divisor) < 1e-9 || !(std::fabs(cosAzimuth) <= 1.0)) {
        return;
    }
    const double azimuth = std::acos(cosAzimuth);
    AddMark(azimuth, marks);
    if (azimuth > 0.0 && azimuth < Pi) {
        AddMark(-azimuth, marks);
    }
}

/// The azimuths at which points of the circle lie on that meridian, by Snyder 1987, eq. 5-6: where
/// tan dLon = sin A sin c / (cos lat1 cos c - sin lat1 sin c cos A), on the side where the signs agree too.
void Rim::AddMeridian(double lon, std::vector<OutlineMark>& marks) const {
    const double dLon = (lon - Design.LonCentral) * DegToRad;
    const double a = Design.SinLatCentral * std::sin(dLon) * sinDistance;
    const double b = std::cos(dLon) * sinDistance;
    const double d = std::sin(dLon) * Design.CosLatCentral * cosDistance;
    const double length = std::hypot(a, b);
    if (!(std::fabs(d) <= length) || length == 0.0) {
        return;
    }
    for (const double sign : {-1.0, 1.0}) {
        const double half = std::acos(d / length);
        const double azimuth = std::atan2(b, a) + sign * half;
        const double east = std::sin(azimuth) * sinDistance;
        const double north =
            Design.CosLatCentral * cosDistance - Design.SinLatCentral * sinDistance * std::cos(azimuth);
        if (east * std::sin(dLon) + north * std::cos(dLon) > 0.0 && !(sign > 0.0 && half == 0.0)) {
            AddMark(azimuth, marks);
        }
    }
}

MapOutline OutlineOfDisc() {
    constexpr int points = 360;
    MapOutline outline;
    Chain& ring = outline.rings.emplace_back();
    for (int i = 0; i < points; ++i) {
        ring.push_back(Rim::At(-2.0 * Pi * i / points));
    }
    const Rim rim;
    const double parallels = Divide(Design.LatNorth - Design.LatSouth, Design.LatGrid);
    const double meridians = Divide(Design.LonSpan - Design.LonZero, Design.LonGrid);
    for (std::int32_t i = 1; parallels <= MostMarks && i < RoundToInt32(parallels); ++i) {
        rim.AddParallel(Design.LatSouth + Design.LatGrid * i, outline.marks);
    }
    // The first one is the last one again.
    for (std::int32_t i = 0; meridians <= MostMarks && i < RoundToInt32(meridians); ++i) {
        rim.AddMeridian(Design.LonZero + Design.LonGrid * i, outline.marks);
    }
    return outline;
}

} // namespace

MapOutline OutlineOfMap() {
    const MapInHand map;
    if (IsAzimuthal(Design.ProjNum)) {
        return OutlineOfDisc();
    }
    if (Design.ProjNum == ProjInterruptedMollweide) {
        return OutlineOfLobes();
    }
    OutlineBuilder builder;
    AddWhole(builder);
    return builder.Take();
}

} // namespace quelmont
