#include "view/measuring.h"

#include "circles/great_circle.h"
#include "core/distance_units.h"
#include "core/map_design.h"
#include "core/number_text.h"
#include "core/run_time_error.h"
#include "platform/machine.h"
#include "view/line_on_picture.h"
#include "view/position.h"
#include "view/view_state.h"

#include <algorithm>
#include <cmath>
#include <utility>

namespace quelmont {

namespace {

/// Widths of the line and of the light edge that makes it seen on a dark map, device pixels.
constexpr std::int32_t LinePixels = 2;
constexpr std::int32_t EdgePixels = 4;
constexpr std::uint32_t LineColor = 0x2020D0; // red
constexpr std::uint32_t EdgeColor = 0xFFFFFF;

std::optional<Measured>& Now() { return ViewNow.measured; }

/// Without rows for two places that have none.
GreatCircleTable RouteOf(const GlobePlace& from, const GlobePlace& to) {
    try {
        return GreatCircleBetween({from.lat, from.lon, to.lat, to.lon});
    } catch (const RunTimeError&) {
        return {};
    }
}

void DrawPieces(DrawSurface& surface, const PicturePieces& pieces, std::int32_t width, std::uint32_t color) {
    const SurfaceHandle pen = surface.CreatePen(PenStyleSolid, width, color);
    const SurfaceHandle before = surface.SelectObject(pen);
    for (const std::vector<SurfacePoint>& piece : pieces) {
        surface.Polyline(piece);
    }
    surface.SelectObject(before);
    surface.DeleteObject(pen);
}

PixelBox BoxAround(const PicturePieces& pieces) {
    std::int32_t left = pieces.front().front().x;
    std::int32_t top = pieces.front().front().y;
    std::int32_t right = left;
    std::int32_t bottom = top;
    for (const std::vector<SurfacePoint>& piece : pieces) {
        for (const SurfacePoint point : piece) {
            left = std::min(left, point.x);
            right = std::max(right, point.x);
            top = std::min(top, point.y);
            bottom = std::max(bottom, point.y);
        }
    }
    return {left - EdgePixels, top - EdgePixels, right - left + 2 * EdgePixels + 1,
            bottom - top + 2 * EdgePixels + 1};
}

void ShowLine(const GreatCircleTable& route) {
    MainWindow& window = *Machine().window;
    const PicturePieces pieces = LineOnPicture(route);
    if (pieces.empty()) {
        window.HidePreview();
        return;
    }
    window.ShowPreview(BoxAround(pieces), [&pieces](DrawSurface& surface) {
        surface.Smooth(Design.SmoothLines);
        DrawPieces(surface, pieces, EdgePixels, EdgeColor);
        DrawPieces(surface, pieces, LinePixels, LineColor);
        surface.Smooth(false);
    });
}

/// Shows the way to a place and remembers its measures.
void Reach(const GlobePlace& place) {
    const GreatCircleTable route = RouteOf(Now()->from, place);
    ShowLine(route);
    Now()->reached = !route.Rows.empty();
    if (Now()->reached) {
        // A route that runs from east to west counts its distances from the other end.
        const double first = route.Row(route.GcFirst).GcDist;
        Now()->minutes = std::fabs(route.Row(route.GcLast).GcDist - first);
        Now()->course = route.Row(route.GcFirst).GcAzimuth;
    }
}

/// As many decimals as leave four digits.
std::string LengthText(double length) {
    return FormatNumber(length, length >= 1000.0  ? "#,##0"
                                : length >= 100.0 ? "0.0"
                                : length >= 10.0  ? "0.00"
                                                  : "0.000");
}

} // namespace

bool AwaitsSecondPlace() { return Now() && !Now()->done; }

bool IsMeasuring() { return Now().has_value(); }

bool MeasureFrom(SurfacePoint pixel) {
    const auto position = PositionAt(pixel);
    if (!position) {
        return false;
    }
    if (AwaitsSecondPlace()) {
        Reach(position->place);
        Now()->done = true;
        Machine().window->SetMousePointer(MousePointer::Normal);
        return true;
    }
    EndMeasuring();
    Now() = Measured{.from = position->place, .fromText = PositionText(*position)};
    Machine().window->SetMousePointer(MousePointer::Cross);
    return true;
}

void MeasureTo(std::optional<SurfacePoint> pixel) {
    if (!AwaitsSecondPlace()) {
        return;
    }
    const auto position = pixel ? PositionAt(*pixel) : std::nullopt;
    if (position) {
        Reach(position->place);
    } else {
        Now()->reached = false;
        Machine().window->HidePreview();
    }
}

bool EndMeasuring() {
    if (!Now()) {
        return false;
    }
    Now().reset();
    Machine().window->HidePreview();
    Machine().window->SetMousePointer(MousePointer::Normal);
    return true;
}

std::string MeasuredText() {
    if (!Now()) {
        return {};
    }
    if (!Now()->reached) {
        return "From " + Now()->fromText + ": click the other place; Esc ends";
    }
    return DistanceText(Now()->minutes, Now()->course) + "   from " + Now()->fromText;
}

std::string DistanceText(double minutes, double course) {
    // A course that rounds to a full circle is north.
    const double rounded = std::fmod(std::round(course * 10.0), 3600.0) / 10.0;
    return LengthText(minutes * KilometresPerNauticalMile) + " km   " +
           LengthText(minutes * StatuteMilesPerNauticalMile) + " mi   " + LengthText(minutes) +
           " nmi   course " + FormatNumber(rounded, "000.0") + "\u00B0";
}

} // namespace quelmont
