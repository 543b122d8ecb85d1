#include "output/area_output.h"

#include "core/error_box.h"
#include "core/map_design.h"
#include "core/rounding.h"
#include "output/draw_target.h"
#include "output/export_file.h"
#include "output/fan_out.h"
#include "output/output_state.h"
#include "output/page_scale.h"
#include "output/thinned_ring.h"
#include "platform/draw_surface.h"
#include "platform/fine_lines.h"

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <vector>

namespace quelmont {

namespace {

constexpr const char* Routine = "FillAreas";
/// The grid's name in AsciiFileName, under which areas are written too.
constexpr std::size_t FirstSlot = 1;

FileWriter* AreaWriter() {
    FileWriter* writer = ArmedWriter();
    return writer != nullptr && writer->TakesAreas() ? writer : nullptr;
}

/// Pixels of the device, y downward.
PlanePoint DevicePlace(const PlanePoint& point) {
    return {
        (((point.x - Design.MapXMin) * Design.ScreenScaleX) + Design.ScreenOriginX) / OutputNow.DevicePixelX,
        (Design.ScreenOriginY - ((point.y - Design.MapYMin) * Design.ScreenScaleY)) / OutputNow.DevicePixelY};
}

SurfacePoint OnDevice(const PlanePoint& point) {
    const PlanePoint place = DevicePlace(point);
    return {PageX(RoundToInt32(place.x)), PageY(RoundToInt32(place.y))};
}

/// In parts of a pixel. Surfaces with fine lines are pictures, never pages, which would move the place.
SurfacePoint OnFineDevice(const PlanePoint& point) {
    const PlanePoint place = DevicePlace(point);
    return {RoundToInt32(place.x * FinePerPixel), RoundToInt32(place.y * FinePerPixel)};
}

void FillOnSurface(ColorValue color, const PlaneRings& rings) {
    std::vector<SurfacePoint> points;
    std::vector<std::int32_t> counts;
    for (const PlaneRing& ring : rings) {
        AppendThinned(ring, OutputNow.fineLines != nullptr ? OnFineDevice : OnDevice, points, counts);
    }
    if (counts.empty()) {
        return;
    }
    DrawSurface& surface = *Design.Surface;
    const SurfaceHandle brush = surface.CreateSolidBrush(ColorBits(color));
    ReportUnless(brush != 0, "CreateSolidBrush(1) error in FillAreas");
    const SurfaceHandle pen = surface.CreatePen(PenStyleNull, 1, ColorBits(color));
    ReportUnless(pen != 0, "CreatePen(1) error in FillAreas");
    const SurfaceHandle brushBefore = surface.SelectObject(brush);
    const SurfaceHandle penBefore = surface.SelectObject(pen);
    const int modeBefore = surface.SetPolyFillMode(FillAlternate);
    if (brush != 0 && pen != 0) {
        const bool filled = OutputNow.fineLines != nullptr
                                ? OutputNow.fineLines->PolyPolygonFine(points, counts)
                                : surface.PolyPolygon(points, counts);
        ReportUnless(filled, "PolyPolygon(1) error in FillAreas");
    }
    surface.SetPolyFillMode(modeBefore);
    surface.SelectObject(penBefore);
    surface.SelectObject(brushBefore);
    ReportUnless(pen == 0 || surface.DeleteObject(pen), "DeleteObject(1) error in FillAreas");
    ReportUnless(brush == 0 || surface.DeleteObject(brush), "DeleteObject(2) error in FillAreas");
}

} // namespace

double DeviceUnitsPerUnit() {
    const double screen = std::max(std::fabs(Design.ScreenScaleX / OutputNow.DevicePixelX),
                                   std::fabs(Design.ScreenScaleY / OutputNow.DevicePixelY));
    return AreaWriter() != nullptr ? std::max(screen, Design.LogicalScale) : screen;
}

AreaOutput::AreaOutput() : toFile(AreaWriter() != nullptr && OpenExport(FirstSlot)) {}

AreaOutput::~AreaOutput() {
    if (toFile) {
        Guarded(Routine, CloseExport);
    }
}

void AreaOutput::Begin(std::string_view title) const {
    if (toFile) {
        BeginFilePart(MapPart::Areas, title);
    }
}

void AreaOutput::Fill(ColorValue color, const PlaneRings& rings) {
    FillOnSurface(color, rings);
    if (FileWriter* writer = toFile ? AreaWriter() : nullptr) {
        GuardedWriting(Routine, [&] { writer->Area(color, rings); });
    }
}

} // namespace quelmont
