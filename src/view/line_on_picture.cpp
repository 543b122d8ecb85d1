#include "view/line_on_picture.h"

#include "core/coordinates.h"
#include "core/map_design.h"
#include "core/rounding.h"
#include "core/run_time_error.h"
#include "graticule/lobes.h"
#include "mainwindow/main_window_state.h"
#include "projection/inverse_utm.h"
#include "projection/map_in_hand.h"
#include "projection/projection_table.h"
#include "projection/utm.h"
#include "surround/outline_ends.h"
#include "view/bounds_of_picture.h"

#include <array>
#include <cmath>
#include <optional>

namespace quelmont {

namespace {

/// Straight pieces between two rows of a route, which lie 4 degrees apart at most.
constexpr int StepsPerRow = 8;
/// A step of half a degree that is so large a share of the map leads over a seam.
constexpr double LargestShare = 1.0 / 8.0;
/// Pixels; what lies farther off is not looked at.
constexpr double FarAway = 1.0e6;

using Vector = std::array<double, 3>;

Vector OnSphere(const GreatCirclePoint& row) {
    const double phi = row.GcLat * DegToRad;
    const double lambda = row.GcLon * DegToRad;
    return {std::cos(phi) * std::cos(lambda), std::cos(phi) * std::sin(lambda), std::sin(phi)};
}

/// The rows of a route, and what lies on the circle between them.
std::vector<GlobePlace> PlacesAlong(const GreatCircleTable& route) {
    std::vector<GlobePlace> places;
    for (std::int32_t i = route.GcFirst; !route.Rows.empty(); i += route.GcStep) {
        const GreatCirclePoint& row = route.Row(static_cast<std::int16_t>(i));
        places.push_back({row.GcLat, row.GcLon});
        if (i == route.GcLast) {
            break;
        }
        const Vector from = OnSphere(row);
        const Vector to = OnSphere(route.Row(static_cast<std::int16_t>(i + route.GcStep)));
        for (int step = 1; step < StepsPerRow; ++step) {
            const double share = static_cast<double>(step) / StepsPerRow;
            const auto at = [&](std::size_t axis) { return from[axis] + (to[axis] - from[axis]) * share; };
            places.push_back({std::atan2(at(2), std::hypot(at(0), at(1))) / DegToRad,
                              std::atan2(at(1), at(0)) / DegToRad});
        }
    }
    return places;
}

/// On the map with the bounds in force: of a lobe, on the interrupted projection.
std::optional<PlanePlace> OnPlane(const GlobePlace& place) {
    double lat = place.lat;
    double lon = place.lon;
    if (Design.ProjNum == ProjUtm) {
        Design.ProjLat = lat;
        Design.ProjLon = lon;
        UtmForward();
        lat = Design.ProjLat;
        lon = Design.ProjLon;
    } else {
        lon -= Design.LonWest;
        lon += lon < 0.0 ? 360.0 : 0.0;
    }
    const bool inside =
        lat >= Design.LatSouth && lat <= Design.LatNorth && lon >= Design.LonZero && lon <= Design.LonSpan;
    return inside || IsAzimuthal(Design.ProjNum) ? PlaceOnPlane(lat, lon) : std::nullopt;
}

/// Collects the pieces of a line.
class Pieces {
public:
    explicit Pieces(const DrawnPicture& picture_) : picture(picture_) {}

    void Add(const std::optional<PlanePlace>& place) {
        const double size = Design.MapXMax - Design.MapXMin;
        if (!place ||
            (before && !(std::hypot(place->x - before->x, place->y - before->y) < size * LargestShare))) {
            End();
        }
        before = place;
        if (place) {
            piece.push_back(Pixel(*place));
        }
    }
    void End() {
        if (piece.size() > 1) {
            pieces.push_back(piece);
        }
        piece.clear();
        before.reset();
    }

    PicturePieces pieces;

private:
    SurfacePoint Pixel(PlanePlace place) const {
        const double x = (place.x - picture.bounds.MapXMin) * picture.scaleX + picture.originX;
        const double y = picture.originY - (place.y - picture.bounds.MapYMin) * picture.scaleY;
        const auto whole = [](double pixel) {
            return RoundToInt32(std::max(-FarAway, std::min(pixel, FarAway)));
        };
        return {whole(x / static_cast<double>(picture.twipsPerPixelX)),
                whole(y / static_cast<double>(picture.twipsPerPixelY))};
    }

    const DrawnPicture& picture;
    std::vector<SurfacePoint> piece;
    std::optional<PlanePlace> before;
};

void Walk(const std::vector<GlobePlace>& places, Pieces& pieces) {
    for (const GlobePlace& place : places) {
        pieces.Add(OnPlane(place));
    }
    pieces.End();
}

void WalkLobes(const std::vector<GlobePlace>& places, Pieces& pieces) {
    for (const std::int16_t lobe : LobesWithHeight()) {
        CalcGraticuleInterrupt(lobe);
        Design.LobeOffsetX = Design.LobeCentral.at(static_cast<std::size_t>(lobe));
        Walk(places, pieces);
    }
}

} // namespace

PicturePieces LineOnPicture(const GreatCircleTable& route) {
    if (!MainWindowNow.Picture || IsPlotting()) {
        return {};
    }
    // The picture's own bounds are the design's for a while.
    const DrawnPicture picture = *MainWindowNow.Picture;
    Pieces pieces(picture);
    try {
        const BoundsOfPicture bounds(*MainWindowNow.Picture);
        const MapInHand inHand;
        const std::vector<GlobePlace> places = PlacesAlong(route);
        Design.ProjNum == ProjInterruptedMollweide ? WalkLobes(places, pieces) : Walk(places, pieces);
    } catch (const RunTimeError&) {
        return {}; // no map that a dialog has accepted
    }
    return pieces.pieces;
}

} // namespace quelmont
