#include "areas/disc_frame.h"

#include "core/degrees.h"
#include "core/map_design.h"
#include "core/rounding.h"
#include "projection/sine_cosine.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <utility>
#include <vector>

namespace quelmont {

namespace {

constexpr int EdgePieces = 4 * PiecesOfSide;
constexpr double Turn = 2.0 * Pi;
/// The antipode has no place of its own: this far from the centre a disc of the whole globe ends, degrees.
constexpr double WholeGlobe = 179.99;

double Turned(double angle) { return angle < 0.0 ? angle + Turn : angle; }

/// The distance between two directions, 0 to pi.
double AngleBetween(double a, double b) {
    const double difference = std::fabs(a - b);
    return std::min(difference, Turn - difference);
}

} // namespace

DiscFrame::DiscFrame() {
    const double range = DegreesOf(Design.RangeSec);
    distance = std::min(range, WholeGlobe) * DegToRad;
    cosDistance = std::cos(distance);
    edge.length = Turn;
    for (int piece = 0; piece < EdgePieces; ++piece) {
        edge.stops.push_back(Turn * piece / EdgePieces);
    }
    edge.at = [radius = Design.MapXMax](double angle) -> PlanePoint {
        return {radius * std::cos(angle), radius * std::sin(angle)};
    };
    const double lowest = Design.LatCentral - range;
    const double highest = Design.LatCentral + range;
    south = RoundToInt32(std::max(-90.0, lowest) * SecPerDegree);
    north = RoundToInt32(std::min(90.0, highest) * SecPerDegree);
}

DiscFrame::Spot DiscFrame::SpotAt(double lat, double lon) const {
    Spot spot;
    spot.lat = lat;
    spot.lon = lon;
    AzimuthalTerms terms;
    Design.ProjLat = lat;
    Design.ProjLon = lon;
    Design.ProjTestMode = TestOnly;
    ProjectSelect(&terms);
    spot.cosC = terms.cosC;
    spot.inside =
        Design.PointStatus == PointInRange && (distance < WholeGlobe * DegToRad || terms.cosC > cosDistance);
    Design.ProjTestMode = spot.inside ? TestResume : TestNone;
    if (spot.inside) {
        ProjectSelect(&terms);
        spot.point = {Design.ProjX, Design.ProjY};
    }
    return spot;
}

/// The direction on the map in which a place lies, 0 to a full turn from the x axis.
double DiscFrame::Angle(double lat, double lon) const {
    const SineCosine phi = SineCosineOf(lat * DegToRad);
    const SineCosine lambda = SineCosineOf((lon - Design.LonCentral) * DegToRad);
    return Turned(
        std::atan2(phi.sine * Design.CosLatCentral - phi.cosine * Design.SinLatCentral * lambda.cosine,
                   phi.cosine * lambda.sine));
}

/// Where on the edge the way between two places crosses it.
double DiscFrame::EdgeBetween(const Spot& inner, const Spot& outer) const {
    double in = 0.0;
    double out = 1.0;
    const auto latAt = [&](double t) { return inner.lat + t * (outer.lat - inner.lat); };
    const auto lonAt = [&](double t) { return inner.lon + t * (outer.lon - inner.lon); };
    for (int halving = 0; halving < 40; ++halving) {
        const double t = (in + out) / 2.0;
        const SineCosine phi = SineCosineOf(latAt(t) * DegToRad);
        const SineCosine lambda = SineCosineOf((lonAt(t) - Design.LonCentral) * DegToRad);
        const double cosC =
            phi.cosine * Design.CosLatCentral * lambda.cosine + phi.sine * Design.SinLatCentral;
        (cosC > cosDistance ? in : out) = t;
    }
    return Angle(latAt(in), lonAt(in));
}

bool DiscFrame::EdgeInside(const Ring& ring, double angle) const {
    const double sine = std::sin(distance);
    const double sinLat = Design.SinLatCentral * cosDistance + Design.CosLatCentral * sine * std::sin(angle);
    const double lambda =
        std::atan2(sine * std::cos(angle),
                   cosDistance * Design.CosLatCentral - sine * Design.SinLatCentral * std::sin(angle));
    return IsInside(ring, std::asin(std::clamp(sinLat, -1.0, 1.0)) / DegToRad * SecPerDegree,
                    Design.LonWestSec + (Design.LonCentral + lambda / DegToRad) * SecPerDegree);
}

/// One way round a line, which collects what is inside.
class DiscFrame::Walk {
public:
    explicit Walk(const DiscFrame& frame_) : frame(frame_) {}

    void Begin(const Spot& spot) {
        before = spot;
        if (spot.inside) {
            whole.push_back(spot.point);
        }
        beganInside = spot.inside;
    }

    /// Goes on to a place, in steps where one would miss the edge.
    void GoOn(const Spot& spot) {
        const int pieces = Pieces(spot);
        const Spot from = before;
        for (int piece = 1; piece < pieces; ++piece) {
            const double t = static_cast<double>(piece) / pieces;
            Step(frame.SpotAt(from.lat + t * (spot.lat - from.lat), from.lon + t * (spot.lon - from.lon)));
        }
        Step(spot);
    }

    void End(const Ring& ring, PlaneRings& rings) {
        if (beganInside) {
            if (chains.empty()) { // it never left
                rings.push_back(std::move(whole));
            } else { // what it began with goes on from where it ended
                InsideChain& last = chains.back();
                last.points.insert(last.points.end(), whole.begin(), whole.end());
                last.to = wholeTo;
            }
        }
        CloseAlongEdge(
            chains, frame.edge, [&](double angle) { return frame.EdgeInside(ring, angle); }, rings);
    }

private:
    int Pieces(const Spot& spot) const {
        constexpr double farOut = -0.7; // cosine of the distance beyond which neighbours may lie apart
        constexpr int most = 256;
        double pieces = 1.0;
        if (!before.inside && !spot.inside) {
            // The middle of a long step may be inside though its ends are not.
            const double step = std::max(std::fabs(spot.lat - before.lat), std::fabs(spot.lon - before.lon));
            pieces = step / std::max(1.0, frame.distance / DegToRad / 8.0);
        } else if (before.cosC < farOut || spot.cosC < farOut) {
            pieces = AngleBetween(frame.Angle(before.lat, before.lon), frame.Angle(spot.lat, spot.lon)) /
                     (3.0 * DegToRad);
        }
        return RoundToInt32(std::min<double>(std::ceil(pieces), most));
    }

    void Step(const Spot& spot) {
        if (before.inside != spot.inside) {
            const double place =
                spot.inside ? frame.EdgeBetween(spot, before) : frame.EdgeBetween(before, spot);
            const PlanePoint cut = frame.edge.at(place);
            if (spot.inside) {
                chains.push_back({{cut}, place, 0.0});
            } else {
                Points().push_back(cut);
                (chains.empty() ? wholeTo : chains.back().to) = place;
            }
        }
        if (spot.inside) {
            Points().push_back(spot.point);
        }
        before = spot;
    }

    PlaneRing& Points() { return chains.empty() ? whole : chains.back().points; }

    const DiscFrame& frame;
    Spot before;
    bool beganInside = false;
    PlaneRing whole; ///< up to where it first leaves
    double wholeTo = 0.0;
    std::vector<InsideChain> chains;
};

void DiscFrame::Cut(const Ring& ring, PlaneRings& rings) const {
    if (ring.metres || (ring.turns == 0 && (ring.north < south || ring.south > north))) {
        return;
    }
    const std::int16_t statusBefore = Design.PointStatus;
    const auto spotOf = [&](const RingPlace& place) {
        return SpotAt(DegreesOf(place.lat), DegreesOf(place.lon - Design.LonWestSec));
    };
    Walk walk(*this);
    Spot spot = spotOf(ring.places.front());
    walk.Begin(spot);
    for (std::size_t i = 1; i < ring.places.size(); ++i) {
        walk.GoOn(spotOf(ring.places[i]));
    }
    spot.lon += ring.turns * 360.0;
    walk.GoOn(spot);
    walk.End(ring, rings);
    Design.PointStatus = statusBefore;
    Design.ProjTestMode = TestNone;
}

double DiscFrame::UnitsPerSecond() const {
    constexpr int samples = 8;
    constexpr double step = 1e-4; // radians
    double most = 0.0;
    const auto radiusAt = [&](double c) {
        // Along the parallel of the plane through the centre, by the pole or not: the radius is the same.
        const double sinLat = Design.SinLatCentral * std::cos(c) + Design.CosLatCentral * std::sin(c);
        const double cosLat = Design.CosLatCentral * std::cos(c) - Design.SinLatCentral * std::sin(c);
        PlanePoint point;
        const bool overPole = cosLat < 0.0;
        ProjectPlace(std::asin(std::clamp(sinLat, -1.0, 1.0)) / DegToRad,
                     Design.LonCentral + (overPole ? 180.0 : 0.0), point);
        return std::hypot(point.x, point.y);
    };
    const std::int16_t statusBefore = Design.PointStatus;
    for (int sample = 1; sample <= samples; ++sample) {
        const double c = distance * 0.95 * sample / samples;
        const double radius = radiusAt(c);
        most = std::max({most, std::fabs(radiusAt(c + step) - radius) / step, radius / std::sin(c)});
    }
    Design.PointStatus = statusBefore;
    return most * DegToRad / SecPerDegree;
}

} // namespace quelmont
