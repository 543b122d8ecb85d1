#include "areas/area_frame.h"

#include "areas/box_frame.h"
#include "areas/disc_frame.h"
#include "areas/zone_frame.h"
#include "core/map_design.h"
#include "graticule/lobes.h"
#include "projection/project_select.h"
#include "projection/projection_table.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <limits>

namespace quelmont {

namespace {

constexpr double Circle = SecPerCircle;

PlaneRing Shifted(const Ring& ring, double by) {
    PlaneRing shifted;
    shifted.reserve(ring.places.size());
    for (const RingPlace& place : ring.places) {
        shifted.push_back({place.lon + by, static_cast<double>(place.lat)});
    }
    return shifted;
}

/// So many times one after the other that it reaches from a full circle before the strip to one behind it,
/// and closed beyond the pole.
PlaneRing RoundTheAxis(const Ring& ring, double offset, double low, double high) {
    const double begin = ring.places.front().lon + offset;
    const bool eastward = ring.turns > 0;
    // Where the first time begins when all go eastward; a westward line is gone through from the last.
    const double before = eastward ? begin : begin - Circle;
    const double first = std::floor((low - Circle - before) / Circle);
    const double last = std::ceil((high + Circle - before) / Circle) - 1.0;
    PlaneRing line;
    double time = first;
    while (time <= last) {
        const PlaneRing once = Shifted(ring, offset + (eastward ? time : last + first - time) * Circle);
        line.insert(line.end(), once.begin(), once.end());
        time += 1.0;
    }
    constexpr double beyondPole = 91.0 * SecPerDegree;
    const double pole = ring.northInside ? beyondPole : -beyondPole;
    const double end = line.front().x + (last - first + 1.0) * (eastward ? Circle : -Circle);
    line.push_back({end, line.front().y});
    line.push_back({end, pole});
    line.push_back({line.front().x, pole});
    return line;
}

/// Bounds and lobe of the design, as long as it lives.
class BoundsKept {
public:
    BoundsKept() = default;
    ~BoundsKept() {
        static_cast<DesignBounds&>(Design) = bounds;
        Design.LobeOffsetX = offset;
    }
    BoundsKept(const BoundsKept&) = delete;
    BoundsKept& operator=(const BoundsKept&) = delete;

private:
    DesignBounds bounds = Design;
    double offset = Design.LobeOffsetX;
};

} // namespace

PlaneRings LaidOut(const Ring& ring, std::int32_t west, double low, double high) {
    const double offset = -static_cast<double>(west);
    if (ring.turns != 0) {
        return {RoundTheAxis(ring, offset, low, high)};
    }
    PlaneRings rings;
    const double begin = std::ceil((low - (ring.east + offset)) / Circle);
    for (double turn = begin; ring.west + offset + turn * Circle <= high; turn += 1.0) {
        rings.push_back(Shifted(ring, offset + turn * Circle));
    }
    return rings;
}

bool ProjectPlace(double lat, double lon, PlanePoint& point) {
    Design.ProjLat = lat;
    Design.ProjLon = lon;
    // A coordinate that fails keeps its value.
    Design.ProjX = std::numeric_limits<double>::quiet_NaN();
    Design.ProjY = Design.ProjX;
    ProjectSelect();
    point = {Design.ProjX, Design.ProjY};
    return !Design.ProjOffMap && std::isfinite(point.x) && std::isfinite(point.y);
}

std::unique_ptr<AreaFrame> FrameOfMap() {
    switch (PropertiesOf(Design.ProjNum).family) {
    case ProjectionFamily::Cylindrical:
    case ProjectionFamily::Pseudocylindrical:
    case ProjectionFamily::Conic:
        return std::make_unique<BoxFrame>();
    case ProjectionFamily::Azimuthal:
        return std::make_unique<DiscFrame>();
    case ProjectionFamily::MetricGrid:
        return std::make_unique<ZoneFrame>();
    case ProjectionFamily::None:
        break;
    }
    return nullptr;
}

void ForEachPartOfMap(const std::function<void()>& use) {
    if (Design.ProjNum != ProjInterruptedMollweide) {
        use();
        return;
    }
    const BoundsKept kept;
    for (const std::int16_t lobe : LobesWithHeight()) {
        CalcGraticuleInterrupt(lobe);
        Design.LobeOffsetX = Design.LobeCentral[static_cast<std::size_t>(lobe)];
        use();
    }
}

} // namespace quelmont
