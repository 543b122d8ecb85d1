#include "areas/caps.h"

#include <array>
#include <cmath>
#include <cstdio>
#include <numbers>

namespace quelmont {

namespace {

constexpr double Radian = std::numbers::pi / 180.0;

} // namespace

bool Cap::Holds(double atLat, double atLon) const {
    const double cosine =
        std::sin(lat * Radian) * std::sin(atLat * Radian) +
        std::cos(lat * Radian) * std::cos(atLat * Radian) * std::cos((atLon - lon) * Radian);
    return cosine > std::cos(radius * Radian);
}

double Cap::Share() const { return (1.0 - std::cos(radius * Radian)) / 2.0; }

AreaClass ClassAt(double lat, double lon) {
    using namespace caps;
    if (Lake.Holds(lat, lon)) {
        return Island.Holds(lat, lon) ? AreaClass::Land : AreaClass::Lake;
    }
    const bool land = Pacific.Holds(lat, lon) || Antarctica.Holds(lat, lon) || Greenland.Holds(lat, lon) ||
                      Africa.Holds(lat, lon);
    return land ? AreaClass::Land : AreaClass::Sea;
}

double LandShare() {
    using namespace caps;
    return Pacific.Share() - Lake.Share() + Island.Share() + Antarctica.Share() + Greenland.Share() +
           Africa.Share();
}

std::string CapLine(const Cap& cap, int from, int to) {
    std::string text;
    const int step = from < to ? 1 : -1;
    for (int bearing = from;; bearing += step) {
        const double b = bearing * Radian;
        const double r = cap.radius * Radian;
        const double phi = cap.lat * Radian;
        const double sine = std::sin(phi) * std::cos(r) + std::cos(phi) * std::sin(r) * std::cos(b);
        const double lon = cap.lon + std::atan2(std::sin(b) * std::sin(r) * std::cos(phi),
                                                std::cos(r) - std::sin(phi) * sine) /
                                         Radian;
        const double west = lon > 180.0 ? lon - 360.0 : lon < -180.0 ? lon + 360.0 : lon;
        std::array<char, 80> line = {};
        std::snprintf(line.data(), line.size(), "%d %.7f %.7f\n", bearing == from ? -1 : 0,
                      std::asin(sine) / Radian, west);
        text += line.data();
        if (bearing == to) {
            return text;
        }
    }
}

std::string WorldOfCaps() {
    using namespace caps;
    std::string text;
    for (const Cap& cap : {Pacific, Lake, Island, Antarctica, Greenland, Africa}) {
        text += CapLine(cap);
    }
    return text;
}

} // namespace quelmont
