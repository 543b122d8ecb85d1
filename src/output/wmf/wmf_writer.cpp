#include "output/wmf/wmf_writer.h"

#include "core/error_box.h"
#include "core/map_design.h"
#include "core/rounding.h"
#include "output/area_pieces.h"
#include "output/export_file.h"
#include "output/little_endian.h"
#include "output/logical_point.h"
#include "output/output_state.h"
#include "output/print_text.h"
#include "output/symbols.h"

#include <array>
#include <string>
#include <utility>

namespace quelmont {

namespace {

constexpr std::uint16_t KeyLow = 0xCDD7;
constexpr std::uint16_t KeyHigh = 0x9AC6;
constexpr std::uint16_t UnitsPerInch = 6000;
constexpr std::size_t PlaceableBytes = 22;

/// Records that wait for the file.
constexpr std::size_t BlockBytes = std::size_t{256} * 1024;

/// The 22 bytes before the metafile. The checksum leaves out the left and the upper edge: they are
/// equal, and would cancel each other.
std::string PlaceableHeader() {
    const auto word = [](std::int32_t value) { return static_cast<std::uint16_t>(RoundToInt16(value)); };
    const std::uint16_t left = word(-Design.LogicalMarginX);
    const std::uint16_t top = word(-Design.LogicalMarginY);
    const std::uint16_t right = word(Design.LogicalWidth + Design.LogicalMarginX);
    const std::uint16_t bottom = word(Design.LogicalHeight + Design.LogicalMarginY);
    const auto checksum = static_cast<std::uint16_t>((KeyLow ^ KeyHigh) ^ right ^ bottom ^ UnitsPerInch);
    const std::array<std::uint16_t, 11> words = {KeyLow, KeyHigh,      0, left, top,     right,
                                                 bottom, UnitsPerInch, 0, 0,    checksum};
    std::string header;
    for (const std::uint16_t value : words) {
        AppendWord(header, value);
    }
    return header;
}

} // namespace

// ---- The recording

MetafileRecorder& WmfWriter::WmfSurface() {
    if (!recording) {
        throw RunTimeError(ErrorFileNotFound);
    }
    return *recording;
}

void WmfWriter::Header() {
    Design.OutputFileName = Design.WmfFileName;
    Design.SymbolRadiusFile = 2;
    MetafileRecorder& surface = recording.emplace();
    WmfPen = 0;
    WmfBrush = 0;
    beginningFailed.reset();
    begun = false;
    written = true;
    ReportLossUnless(surface.SetMapMode(MetafileRecorder::MapAnisotropic),
                     "SetMapMode error in mnuInput_Click");
    ReportLossUnless(
        surface.SetWindowOrgEx(-Design.LogicalMarginX, Design.LogicalHeight + Design.LogicalMarginY),
        "SetWindowOrgEx error in mnuInput_Click");
    ReportLossUnless(surface.SetWindowExtEx(Design.LogicalWidth + 2 * Design.LogicalMarginX,
                                            -(Design.LogicalHeight + 2 * Design.LogicalMarginY)),
                     "SetWindowExtEx error in mnuInput_Click");
    surface.SetBkMode(MetafileRecorder::BackgroundTransparent);
}

void WmfWriter::OpenStretch(std::size_t /*slot*/) { WmfSurface(); }

void WmfWriter::ResetLine() {
    WmfPoints.clear();
    carried.reset();
}

void WmfWriter::RecordText() {
    DrawSurface* const surfaceBefore = std::exchange(Design.Surface, &WmfSurface());
    Design.TextToMetafile = true;
    PrintText();
    Design.TextToMetafile = false;
    Design.Surface = surfaceBefore;
}

void WmfWriter::Finish() {
    Guarded("SaveMetafileToDisk", [this] {
        RecordText();
        SaveMetafileToDisk();
    });
    recording.reset();
    ResetLine();
}

void WmfWriter::SaveRecords() {
    const std::string records = WmfSurface().TakeRecords();
    try {
        if (begun) {
            ResumeExport(Design.WmfFileName);
        } else {
            begun = true;
            BeginExport(Design.WmfFileName);
            WriteExport(std::string(PlaceableBytes + MetafileRecorder::HeaderBytes, '\0'));
        }
    } catch (const RunTimeError& error) {
        // It is reported at the end; what follows is skipped.
        beginningFailed = beginningFailed.value_or(error);
        return;
    }
    try {
        WriteExport(records);
    } catch (const RunTimeError&) {
        written = false;
    }
    CloseRecords();
}

void WmfWriter::CloseRecords() {
    try {
        CloseExport();
    } catch (const RunTimeError&) {
        written = false;
    }
}

void WmfWriter::SaveMetafileToDisk() {
    WmfSurface().RecordEnd();
    SaveRecords();
    if (beginningFailed) {
        throw RunTimeError(*beginningFailed);
    }
    const std::string headers = PlaceableHeader() + WmfSurface().Header();
    bool headed = true;
    try {
        ResumeExport(Design.WmfFileName);
        PatchExport(0, headers);
    } catch (const RunTimeError&) {
        headed = false;
    }
    ReportUnless(headed, "lwrite error in SaveMetafileToDisk");
    CloseRecords();
    ReportUnless(written, "hwrite error in SaveMetafileToDisk");
    FinishExports();
}

void WmfWriter::SaveBlock() {
    if (WmfSurface().Waiting() >= BlockBytes) {
        SaveRecords();
    }
}

// ---- Lines

void WmfWriter::Point() {
    GuardedWriting("WmfWrite", [this] { WmfWrite(); });
}

void WmfWriter::ChainPoint(SurfacePoint point) {
    if (OutputNow.LineBreakPending) {
        OutputNow.LineBreakPending = false;
        WmfPoints.clear();
        if (carried) {
            WmfPoints.push_back(*std::exchange(carried, std::nullopt));
        }
    }
    WmfPoints.push_back(point);
    Design.PointCount = static_cast<std::int32_t>(WmfPoints.size());
    WmfPenColor = Design.PenColor;
    WmfPenWidth = RoundToInt32(FileLineWidth());
    if (Design.PointCount == Design.MaxChainPoints) {
        FlushChain();
        OutputNow.LineBreakPending = true;
        carried = point;
    }
}

void WmfWriter::LineBreak() {
    if (Design.CurrentSymbolType == SymbolLine) {
        carried.reset();
        FlushChain();
    }
}

void WmfWriter::FlushChain() {
    if (WmfPoints.empty()) {
        return;
    }
    if (WmfPoints.size() == 1) {
        WmfPoints.push_back(WmfPoints.front()); // a lone point must leave a mark too
        Design.PointCount = 2;
    }
    const SurfaceHandle made = WmfSurface().CreatePen(PenStyleSolid, WmfPenWidth, ColorBits(WmfPenColor));
    ReportLossUnless(made != 0, "CreatePen(1) error in PrintLineBrkDisk");
    const SurfaceHandle before = made == 0 ? 0 : WmfSurface().SelectObject(made);
    ReportLossUnless(WmfSurface().Polyline(WmfPoints), "Polyline(1) error in PrintLineBrkDisk");
    if (made != 0) {
        WmfSurface().SelectObject(before);
        ReportLossUnless(WmfSurface().DeleteObject(made), "DeleteObject(2) error in PrintLineBrkDisk");
    }
    WmfPoints.clear();
    SaveBlock();
}

// ---- Areas

void WmfWriter::Area(ColorValue color, const PlaneRings& rings) {
    constexpr std::size_t mostPoints = 16000; // the record counts them in a word
    MetafileRecorder& surface = WmfSurface();
    const SurfaceHandle pen = surface.CreatePen(PenStyleNull, 1, ColorBits(color));
    const SurfaceHandle brush = surface.CreateSolidBrush(ColorBits(color));
    ReportLossUnless(pen != 0 && brush != 0, "CreateSolidBrush(1) error in FillAreas");
    const SurfaceHandle penBefore = surface.SelectObject(pen);
    const SurfaceHandle brushBefore = surface.SelectObject(brush);
    const int modeBefore = surface.SetPolyFillMode(FillAlternate);
    ForEachPiece(rings, mostPoints, [&](const AreaPiece& piece) {
        std::vector<SurfacePoint> points;
        for (const LogicalPoint& point : piece.points) {
            points.push_back({point.x, point.y});
        }
        ReportLossUnless(surface.PolyPolygon(points, piece.counts), "PolyPolygon(1) error in FillAreas");
        SaveBlock();
    });
    surface.SetPolyFillMode(modeBefore);
    surface.SelectObject(penBefore);
    surface.SelectObject(brushBefore);
    ReportLossUnless(surface.DeleteObject(pen) && surface.DeleteObject(brush),
                     "DeleteObject(1) error in FillAreas");
}

// ---- Symbols

void WmfWriter::WmfWrite() {
    const LogicalPoint point = LogicalPointOfCell();
    if (Design.CurrentSymbolType == SymbolLine) {
        ChainPoint({point.x, point.y});
        return;
    }
    const double r = Design.SymbolRadiusFile;
    DrawWmfSymbol({.centre = {point.x, point.y},
                   .left = RoundToInt16(point.x - r),
                   .right = RoundToInt16(point.x + r),
                   .low = RoundToInt16(point.y - r),
                   .high = RoundToInt16(point.y + r),
                   .base = RoundToInt32(point.y - TriangleBase * r),
                   .apex = RoundToInt32(TriangleApex * r + point.y)});
}

void WmfWriter::DrawWmfSymbol(const Symbol& symbol) {
    MetafileRecorder& surface = WmfSurface();
    const bool filled = Design.CurrentSymbolType == SymbolDot || IsFilledShape(Design.CurrentSymbolType);
    WmfPen = surface.CreatePen(PenStyleSolid, Design.BorderWidthFile, ColorBits(Design.PenColor));
    ReportLossUnless(WmfPen != 0, "CreatePen(1) error in WmfWrite");
    const SurfaceHandle penBefore = WmfPen == 0 ? 0 : surface.SelectObject(WmfPen);
    WmfBrush = filled ? surface.CreateSolidBrush(ColorBits(Design.PenColor)) : 0;
    ReportLossUnless(!filled || WmfBrush != 0, "CreateSolidBrush(1) error in WmfWrite");
    const SurfaceHandle brushBefore =
        surface.SelectObject(WmfBrush != 0 ? WmfBrush : surface.GetStockObject(StockNullBrush));
    const int modeBefore = surface.SetPolyFillMode(FillAlternate);
    ReportLossUnless(modeBefore != 0, "SetPolyFillMode(1) error in WmfWrite");
    Shape(symbol);
    if (WmfPen != 0) {
        surface.SelectObject(penBefore);
        ReportLossUnless(surface.DeleteObject(WmfPen), "DeleteObject(3) error in WmfWrite");
        WmfPen = 0;
    }
    ReportLossUnless(surface.SetPolyFillMode(modeBefore) != 0, "SetPolyFillMode(2) error in WmfWrite");
    surface.SelectObject(brushBefore);
    if (WmfBrush != 0) {
        ReportLossUnless(surface.DeleteObject(WmfBrush), "DeleteObject(4) error in WmfWrite");
        WmfBrush = 0;
    }
    SaveBlock();
}

void WmfWriter::Shape(const Symbol& s) {
    MetafileRecorder& surface = WmfSurface();
    const auto polyline = [&](const std::vector<SurfacePoint>& points, std::string_view failure) {
        ReportLossUnless(surface.Polyline(points), failure);
    };
    const auto polygon = [&](const std::vector<SurfacePoint>& points, std::string_view failure) {
        ReportLossUnless(surface.Polygon(points), failure);
    };
    const auto [x, y] = s.centre;
    switch (Design.CurrentSymbolType) {
    case SymbolPlus:
        polyline({{s.left, y}, {s.right, y}, {x, y}, {x, s.low}, {x, s.high}},
                 "Polyline(1) error in WmfWrite");
        break;
    case SymbolCross:
        polyline({{s.left, s.low}, {s.right, s.high}, {x, y}, {s.right, s.low}, {s.left, s.high}},
                 "Polyline(2) error in WmfWrite");
        break;
    case SymbolDot:
    case SymbolOpenSquare:
    case SymbolFilledSquare:
        ReportLossUnless(surface.Rectangle(s.left, s.low, s.right, s.high), "Rectangle(1) error in WmfWrite");
        break;
    case SymbolOpenDiamond:
    case SymbolFilledDiamond:
        polygon({{s.left, y}, {x, s.high}, {s.right, y}, {x, s.low}}, "Polygon(2) error in WmfWrite");
        break;
    case SymbolOpenTriangle:
    case SymbolFilledTriangle:
        polygon({{s.left, s.base}, {s.right, s.base}, {x, s.apex}}, "Polygon(3) error in WmfWrite");
        break;
    case SymbolOpenCircle:
    case SymbolFilledCircle:
        ReportLossUnless(surface.Ellipse(s.left, s.low, s.right, s.high), "Ellipse(1) error in WmfWrite");
        break;
    default:
        break;
    }
}

} // namespace quelmont
