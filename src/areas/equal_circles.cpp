#include "areas/equal_circles.h"

#include "areas/area_frame.h"
#include "areas/shade_patch.h"
#include "core/map_design.h"
#include "core/rounding.h"
#include "core/run_time_error.h"
#include "projection/map_in_hand.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <memory>
#include <set>
#include <utility>

namespace quelmont {

namespace {

using Vector = std::array<double, 3>;

Vector OnSphere(const GlobePlace& place) {
    const double phi = place.lat * DegToRad;
    const double lambda = place.lon * DegToRad;
    return {std::cos(phi) * std::cos(lambda), std::cos(phi) * std::sin(lambda), std::sin(phi)};
}

double Angle(const Vector& a, const Vector& b) {
    return std::acos(std::clamp(a[0] * b[0] + a[1] * b[1] + a[2] * b[2], -1.0, 1.0)) / DegToRad;
}

// ---- The line of a circle.

class CircleLine {
public:
    CircleLine(const GlobePlace& middle_, double radius)
        : middle(middle_), sinLat(std::sin(middle_.lat * DegToRad)), cosLat(std::cos(middle_.lat * DegToRad)),
          sinRadius(std::sin(radius * DegToRad)), cosRadius(std::cos(radius * DegToRad)) {}

    std::vector<RingPlace> Places() {
        GlobePlace before = At(0.0);
        Add(before);
        for (int i = 1; i < Points; ++i) {
            const double azimuth = 360.0 * i / Points;
            const GlobePlace here = At(azimuth);
            GoOn(azimuth - 360.0 / Points, before, azimuth, here, Halvings);
            before = here;
        }
        GoOn(360.0 * (Points - 1) / Points, before, 360.0, At(0.0), Halvings);
        return std::move(places);
    }

private:
    static constexpr int Points = 180;
    /// Beside a pole neighbours lie far apart in longitude, and curves of the map between them.
    static constexpr double LongestStep = 3.0;
    static constexpr int Halvings = 8;

    /// Snyder 1987, eq. 5-5 and 5-6; azimuths clockwise from north.
    GlobePlace At(double azimuth) const {
        const double cosine = std::cos(azimuth * DegToRad);
        const double lat = std::asin(std::clamp(sinLat * cosRadius + cosLat * sinRadius * cosine, -1.0, 1.0));
        const double lon = std::atan2(sinRadius * std::sin(azimuth * DegToRad),
                                      cosLat * cosRadius - sinLat * sinRadius * cosine);
        return {lat / DegToRad, middle.lon + lon / DegToRad};
    }

    void Add(const GlobePlace& place) {
        places.push_back({RoundToInt32(place.lat * SecPerDegree), RoundToInt32(place.lon * SecPerDegree)});
    }

    void GoOn(double from, const GlobePlace& fromPlace, double to, const GlobePlace& toPlace, int halvings) {
        const double step = std::fabs(std::remainder(toPlace.lon - fromPlace.lon, 360.0));
        if (step > LongestStep && halvings > 0) {
            const double azimuth = (from + to) / 2.0;
            const GlobePlace between = At(azimuth);
            GoOn(from, fromPlace, azimuth, between, halvings - 1);
            GoOn(azimuth, between, to, toPlace, halvings - 1);
            return;
        }
        Add(toPlace);
    }

    GlobePlace middle;
    double sinLat, cosLat, sinRadius, cosRadius;
    std::vector<RingPlace> places;
};

// ---- Where the circles lie.

/// A part of the globe that holds the map: what lies nearer to a place than so many degrees.
struct Cap {
    GlobePlace middle;
    double radius = 180.0;
};

Cap CapOfMap() {
    constexpr int samples = 16;
    constexpr double margin = 1.15; // a sample is not the farthest place
    constexpr double least = 1e-3;
    const std::unique_ptr<ShadePatch> patch = PatchOfMap();
    std::vector<Vector> places;
    Vector sum = {};
    for (int i = 0; patch && i <= samples; ++i) {
        for (int j = 0; j <= samples; ++j) {
            const auto place =
                patch->PlaceAt(static_cast<double>(i) / samples, static_cast<double>(j) / samples);
            if (!place) {
                continue;
            }
            places.push_back(OnSphere(*place));
            for (std::size_t axis = 0; axis < sum.size(); ++axis) {
                sum[axis] += places.back()[axis];
            }
        }
    }
    const double length = std::hypot(sum[0], sum[1], sum[2]);
    if (!(length > 0.1 * static_cast<double>(places.size()))) {
        return {}; // all round the globe
    }
    Cap cap;
    cap.middle = {std::atan2(sum[2], std::hypot(sum[0], sum[1])) / DegToRad,
                  std::atan2(sum[1], sum[0]) / DegToRad};
    double farthest = 0.0;
    for (const Vector& place : places) {
        farthest = std::max(farthest, Angle(place, OnSphere(cap.middle)));
    }
    cap.radius = std::min(180.0, farthest * margin + least);
    return cap;
}

/// Half of the longitudes that a cap has about its middle.
double HalfWidth(const Cap& cap) {
    const double sine = std::sin(std::min(cap.radius, 90.0) * DegToRad);
    const double cosine = std::cos(cap.middle.lat * DegToRad);
    const bool overPole = std::fabs(cap.middle.lat) + cap.radius >= 90.0;
    return overPole ? 180.0 : std::asin(std::min(sine / cosine, 1.0)) / DegToRad;
}

/// The middles of circles in a cap, up to one more than so many.
std::vector<GlobePlace> MiddlesIn(const Cap& cap, double spacing, std::size_t most) {
    constexpr double slack = 1e-9;
    const Vector middle = OnSphere(cap.middle);
    const double half = HalfWidth(cap);
    const auto multiple = [&](double value) { return value / spacing; };
    std::vector<GlobePlace> places;
    const double lastRow = std::floor(multiple(std::min(90.0, cap.middle.lat + cap.radius)) + slack);
    const double first = std::ceil(multiple(std::max(-90.0, cap.middle.lat - cap.radius)) - slack);
    const double firstColumn = std::floor(multiple(-180.0) + slack) + 1.0;
    const double lastColumn = std::floor(multiple(180.0) + slack);
    double row = first;
    while (row <= lastRow && places.size() <= most) {
        const double lat = row * spacing;
        row += 1.0;
        const bool pole = std::fabs(lat) >= 90.0 - slack;
        double column = pole ? 0.0 : firstColumn;
        const double last = pole ? 0.0 : lastColumn;
        while (column <= last && places.size() <= most) {
            const GlobePlace place{lat, column * spacing};
            column += 1.0;
            if ((pole || std::fabs(std::remainder(place.lon - cap.middle.lon, 360.0)) <= half + slack) &&
                Angle(OnSphere(place), middle) <= cap.radius + slack) {
                places.push_back(place);
            }
        }
    }
    return places;
}

Cap Widened(Cap cap, double radius) {
    cap.radius = std::min(180.0, cap.radius + radius);
    return cap;
}

bool IsSound(const DistortionChoice& choice) {
    return IsCircleRadius(choice.radius) && IsCircleSpacing(choice.spacing);
}

/// The spacing of a draw.
double SpacingFor(const DistortionChoice& choice) {
    double spacing = choice.spacing;
    while (spacing < LargestCircleSpacing) {
        std::size_t circles = 0;
        ForEachPartOfMap([&] {
            circles += MiddlesIn(Widened(CapOfMap(), choice.radius), spacing, MostEqualCircles).size();
        });
        if (circles <= MostEqualCircles) {
            break;
        }
        spacing *= 2.0;
    }
    return spacing;
}

} // namespace

std::optional<Ring> EqualCircle(const GlobePlace& middle, double radius) {
    Ring ring;
    return MakeRing(CircleLine(middle, radius).Places(), AreaRow::None, false, ring) ? std::optional(ring)
                                                                                     : std::nullopt;
}

std::vector<PlaneRings> ImagesOfCircles(const DistortionChoice& choice) {
    std::vector<PlaneRings> images;
    if (!IsSound(choice)) {
        return images;
    }
    const double spacing = SpacingFor(choice);
    ForEachPartOfMap([&] {
        const std::unique_ptr<AreaFrame> frame = FrameOfMap();
        for (const GlobePlace& middle :
             MiddlesIn(Widened(CapOfMap(), choice.radius), spacing, MostEqualCircles)) {
            const std::optional<Ring> circle = EqualCircle(middle, choice.radius);
            PlaneRings image;
            if (frame && circle) {
                frame->Cut(*circle, image);
            }
            if (!image.empty()) {
                images.push_back(std::move(image));
            }
        }
    });
    return images;
}

std::optional<std::size_t> CountCircles(const DistortionChoice& choice) {
    if (Design.BoundsProjNum != Design.ProjNum) {
        return std::nullopt;
    }
    const MapInHand map;
    try {
        std::set<std::pair<double, double>> middles; // one may belong to several lobes
        if (IsSound(choice)) {
            ForEachPartOfMap([&] {
                for (const GlobePlace& middle :
                     MiddlesIn(Widened(CapOfMap(), choice.radius), choice.spacing, MostEqualCircles)) {
                    middles.emplace(middle.lat, middle.lon);
                }
            });
        }
        return std::min(middles.size(), MostEqualCircles + 1);
    } catch (const RunTimeError&) {
        return std::nullopt; // a map that no dialog has accepted
    }
}

} // namespace quelmont
