#include "convert/line_steps.h"

#include "core/coordinates.h"
#include "core/number_text.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstddef>
#include <string>
#include <utility>

namespace quelmont {

namespace {

constexpr double Hair = 1e-9; ///< degrees, a tenth of a millimetre

void SnapTo(double& value, double edge) {
    if (std::fabs(std::fabs(value) - edge) <= Hair) {
        value = std::copysign(edge, value);
    }
}

/// -180 to 180, both of which stay as they are.
double Wrapped(double lon) { return std::fabs(lon) <= 180.0 ? lon : std::remainder(lon, 360.0); }

/// Whether the way between two longitudes is the shorter one as it stands, or a whole parallel.
bool IsWay(double step) { return std::fabs(step) <= 180.0 || std::fabs(step) == 360.0; }

bool CrossesNowhere(const MapLine& line) {
    const auto inside = [](const LonLat& point) { return std::fabs(point.Lon) <= 180.0; };
    const auto crosses = [](const LonLat& a, const LonLat& b) { return !IsWay(b.Lon - a.Lon); };
    return std::all_of(line.begin(), line.end(), inside) &&
           std::adjacent_find(line.begin(), line.end(), crosses) == line.end();
}

LonLat PartWay(const LonLat& a, const LonLat& b, double share) {
    return {a.Lon + (b.Lon - a.Lon) * share, a.Lat + (b.Lat - a.Lat) * share};
}

/// Bounds that do not reach across the 180th meridian.
class Cutter {
public:
    Cutter(const LonLatBounds& bounds_, const LineTaker& take_) : bounds(bounds_), take(take_) {}

    void Cut(const MapLine& line) {
        if (line.size() == 1 && Holds(line.front())) {
            piece = line;
            take(piece);
            return;
        }
        piece.clear();
        for (std::size_t i = 1; i < line.size(); ++i) {
            TakeSegment(line[i - 1], line[i]);
        }
        End();
    }

    bool Holds(const LonLat& point) const {
        return point.Lon >= bounds.West && point.Lon <= bounds.East && point.Lat >= bounds.South &&
               point.Lat <= bounds.North;
    }

private:
    /// The stretch of a segment inside, as shares of its length; empty when the first is not below the
    /// second. Source: Liang and Barsky 1984.
    std::pair<double, double> Inside(const LonLat& a, const LonLat& b) const {
        const double dx = b.Lon - a.Lon;
        const double dy = b.Lat - a.Lat;
        const std::array<std::pair<double, double>, 4> edges = {{{-dx, a.Lon - bounds.West},
                                                                 {dx, bounds.East - a.Lon},
                                                                 {-dy, a.Lat - bounds.South},
                                                                 {dy, bounds.North - a.Lat}}};
        double enter = 0.0;
        double leave = 1.0;
        for (const auto& [outward, distance] : edges) {
            if (outward == 0.0) {
                leave = distance < 0.0 ? -1.0 : leave;
            } else if (outward < 0.0) {
                enter = std::max(enter, distance / outward);
            } else {
                leave = std::min(leave, distance / outward);
            }
        }
        return {enter, leave};
    }

    LonLat CutPoint(const LonLat& a, const LonLat& b, double share) const {
        const LonLat point = PartWay(a, b, share);
        return {std::clamp(point.Lon, bounds.West, bounds.East),
                std::clamp(point.Lat, bounds.South, bounds.North)};
    }

    void TakeSegment(const LonLat& a, const LonLat& b) {
        const auto [enter, leave] = Inside(a, b);
        const bool point = a == b && Holds(a);
        if (!(enter < leave) && !point) {
            End();
            return;
        }
        if (enter > 0.0) {
            End();
        }
        if (piece.empty()) {
            piece.push_back(enter > 0.0 ? CutPoint(a, b, enter) : a);
        }
        piece.push_back(leave < 1.0 ? CutPoint(a, b, leave) : b);
        if (leave < 1.0) {
            End();
        }
    }

    void End() {
        if (!piece.empty()) {
            take(piece);
            piece.clear();
        }
    }

    LonLatBounds bounds;
    const LineTaker& take;
    MapLine piece;
};

} // namespace

std::string NumberWords(double value) {
    if (!std::isfinite(value)) {
        return "?";
    }
    std::string text = FormatNumber(value, "0.######");
    if (text.ends_with('.')) {
        text.pop_back();
    }
    return text;
}

double LongitudeStep(double from, double to) {
    const double step = to - from;
    return IsWay(step) ? step : std::remainder(step, 360.0);
}

void CheckOnEarth(MapLine& line) {
    for (LonLat& point : line) {
        SnapTo(point.Lon, 180.0);
        SnapTo(point.Lat, 90.0);
        if (!(std::fabs(point.Lon) <= 360.0 && std::fabs(point.Lat) <= 90.0)) {
            throw BadFeature("a point lies outside the earth, at longitude " + NumberWords(point.Lon) +
                             ", latitude " + NumberWords(point.Lat));
        }
    }
}

void SplitAt180(MapLine& line, const LineTaker& take) {
    if (line.empty()) {
        return;
    }
    if (CrossesNowhere(line)) {
        take(line);
        return;
    }
    MapLine piece;
    LonLat at{Wrapped(line.front().Lon), line.front().Lat};
    piece.push_back(at);
    for (std::size_t i = 1; i < line.size(); ++i) {
        LonLat to{at.Lon + LongitudeStep(line[i - 1].Lon, line[i].Lon), line[i].Lat};
        while (std::fabs(to.Lon) > 180.0) {
            const double edge = std::copysign(180.0, to.Lon);
            const LonLat cut{edge, PartWay(at, to, (edge - at.Lon) / (to.Lon - at.Lon)).Lat};
            if (at.Lon != edge) {
                piece.push_back(cut);
            }
            // A piece of one point began on the meridian; the same place begins the next one.
            if (piece.size() > 1) {
                take(piece);
            }
            at = {-edge, cut.Lat};
            piece.assign(1, at);
            to.Lon -= 2.0 * edge;
        }
        const double exact = Wrapped(line[i].Lon);
        if (std::fabs(to.Lon - exact) <= Hair) {
            to.Lon = exact;
        }
        piece.push_back(to);
        at = to;
    }
    take(piece);
}

void CutToBounds(MapLine& line, const LonLatBounds& bounds, const LineTaker& take) {
    if (bounds.West > bounds.East) {
        Cutter({bounds.West, bounds.South, 180.0, bounds.North}, take).Cut(line);
        Cutter({-180.0, bounds.South, bounds.East, bounds.North}, take).Cut(line);
        return;
    }
    Cutter cutter(bounds, take);
    if (std::all_of(line.begin(), line.end(), [&](const LonLat& point) { return cutter.Holds(point); })) {
        take(line);
    } else {
        cutter.Cut(line);
    }
}

std::int64_t ShortenSteps(MapLine& line, double most) {
    const auto parts = [most](const LonLat& from, const LonLat& to) {
        return static_cast<std::int64_t>(std::ceil(std::fabs(to.Lon - from.Lon) / most));
    };
    const auto tooLong = [&](const LonLat& from, const LonLat& to) { return parts(from, to) > 1; };
    if (std::adjacent_find(line.begin(), line.end(), tooLong) == line.end()) {
        return 0;
    }
    MapLine shortened{line.front()};
    for (std::size_t i = 1; i < line.size(); ++i) {
        const std::int64_t count = parts(line[i - 1], line[i]);
        for (std::int64_t part = 1; part < count; ++part) {
            shortened.push_back(
                PartWay(line[i - 1], line[i], static_cast<double>(part) / static_cast<double>(count)));
        }
        shortened.push_back(line[i]);
    }
    const auto added = static_cast<std::int64_t>(shortened.size() - line.size());
    line = std::move(shortened);
    return added;
}

} // namespace quelmont
