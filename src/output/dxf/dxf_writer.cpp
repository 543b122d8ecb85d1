#include "output/dxf/dxf_writer.h"

#include "core/error_box.h"
#include "core/map_design.h"
#include "core/number_text.h"
#include "core/rounding.h"
#include "core/text_encoding.h"
#include "output/area_pieces.h"
#include "output/area_trapezoids.h"
#include "output/dxf/dxf_color.h"
#include "output/export_file.h"
#include "output/output_state.h"
#include "output/symbols.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <cstdio>
#include <limits>
#include <span>
#include <utility>
#include <vector>

namespace quelmont {

namespace {

/// Bytes of a sequence end: "  0", "SEQEND" and their line ends.
constexpr std::int64_t SequenceEndLength = 13;

constexpr const char* LineEnd = "\r\n";

/// A group's code in three columns, and its line end.
void AppendCode(std::string& text, int code) {
    text += code >= 100 ? static_cast<char>('0' + code / 100) : ' ';
    text += code >= 10 ? static_cast<char>('0' + code / 10 % 10) : ' ';
    text += static_cast<char>('0' + code % 10);
    text += LineEnd;
}

void AppendWhole(std::string& text, int value) {
    std::array<char, 16> digits = {};
    text.append(digits.data(), std::to_chars(digits.begin(), digits.end(), value).ptr);
}

/// Up to 15 significant digits, as many as are needed, and one before the point at least.
void AppendReal(std::string& text, double value) {
    const auto whole = static_cast<std::int32_t>(std::clamp(value, -1e9, 1e9));
    if (static_cast<double>(whole) == value) {
        AppendWhole(text, whole); // nearly all of them
        return;
    }
    std::string general = PlainNumber(value);
    const std::size_t front = general.front() == '-' ? 1 : 0;
    if (general[front] == '.') {
        general.insert(front, 1, '0');
    }
    text += general;
}

void Group(int code, std::string_view value) {
    std::string text;
    AppendCode(text, code);
    text += value;
    text += LineEnd;
    WriteExport(text);
}

void Group(int code, int value) {
    std::string text;
    AppendWhole(text, value);
    Group(code, text);
}

void Group(int code, double value) {
    std::string text;
    AppendReal(text, value);
    Group(code, text);
}

/// A text in ASCII, on one line: a blank for a control character, the number of any other.
std::string Escaped(std::string_view text) {
    std::string escaped;
    for (const char32_t character : Characters(text)) {
        if (character < 0x80) {
            const bool isControl = character < 0x20 || character == 0x7F;
            escaped += isControl ? ' ' : static_cast<char>(character);
        } else if (character <= 0xFFFF) {
            std::array<char, 16> number = {};
            std::snprintf(number.data(), number.size(), "\\U+%04X", static_cast<unsigned>(character));
            escaped += number.data();
        } else {
            escaped += '?';
        }
    }
    return escaped;
}

struct FixedGroup {
    int code;
    const char* value;
};

// clang-format off
/// Tables.
constexpr std::array GroupsBeforeLayers = std::to_array<FixedGroup>({
    {0, "ENDSEC"},
    {0, "SECTION"}, {2, "TABLES"},
    {0, "TABLE"}, {2, "LTYPE"}, {70, "1"},
    {0, "LTYPE"}, {2, "CONTINUOUS"}, {70, "64"}, {3, "Solid line"}, {72, "65"}, {73, "0"}, {40, "0"},
    {0, "ENDTAB"},
});
/// More tables and the empty section of blocks.
constexpr std::array GroupsBehindLayers = std::to_array<FixedGroup>({
    {0, "ENDTAB"},
    {0, "TABLE"}, {2, "STYLE"}, {70, "1"},
    {0, "STYLE"}, {2, "STANDARD"}, {70, "0"}, {40, "0"}, {41, "1"}, {50, "0"}, {71, "0"}, {42, "1"}, {3, "TXT"}, {4, ""},
    {0, "ENDTAB"},
    {0, "ENDSEC"},
    {0, "SECTION"}, {2, "BLOCKS"}, {0, "ENDSEC"},
    {0, "SECTION"}, {2, "ENTITIES"},
});
// clang-format on

void FixedGroups(std::span<const FixedGroup> groups) {
    for (const FixedGroup& group : groups) {
        Group(group.code, group.value);
    }
}

constexpr const char* DistortionLayer = "DISTORTION";

/// The layer of an area by the title of its part: "Land" lies on "LAND".
std::string LayerOf(std::string_view title) {
    std::string layer(title);
    std::transform(layer.begin(), layer.end(), layer.begin(),
                   [](char letter) { return letter >= 'a' && letter <= 'z' ? letter - 'a' + 'A' : letter; });
    return layer;
}

/// The table of layers: that of everything, and one for each kind of areas that are filled or shaded.
void Layers() {
    std::vector<std::pair<std::string, std::string>> layers = {{"0", "8"}};
    for (const auto& [title, color] :
         {std::pair(SeaTitle, Design.Fill.sea), std::pair(LandTitle, Design.Fill.land),
          std::pair(LakesTitle, Design.Fill.lakes)}) {
        if (color) {
            layers.emplace_back(LayerOf(title), DxfAreaColor(*color));
        }
    }
    if (Design.Distortion.kind != DistortionKind::None) {
        layers.emplace_back(DistortionLayer, "8");
    }
    Group(0, "TABLE");
    Group(2, "LAYER");
    Group(70, static_cast<int>(layers.size()));
    for (const auto& [name, color] : layers) {
        Group(0, "LAYER");
        Group(2, name);
        Group(70, "0");
        Group(62, color);
        Group(6, "CONTINUOUS");
    }
}

/// Two decimals are a hundredth of what lines are rounded to.
double Hundredths(double value) { return std::round(value * 100.0) / 100.0; }

void AppendPlace(std::string& text, int code, double x, double y) {
    AppendCode(text, code);
    AppendReal(text, Hundredths(x));
    text += LineEnd;
    AppendCode(text, code + 10);
    AppendReal(text, Hundredths(y));
    text += LineEnd;
}

PlaneRings RingsOf(const AreaPiece& piece) {
    PlaneRings rings;
    auto point = piece.points.begin();
    for (const std::int32_t count : piece.counts) {
        PlaneRing& ring = rings.emplace_back();
        for (std::int32_t i = 0; i < count; ++i, ++point) {
            ring.push_back({static_cast<double>(point->x), static_cast<double>(point->y)});
        }
    }
    return rings;
}

void Limits(const char* least, const char* most) {
    Group(9, least);
    Group(10, -Design.LogicalMarginX);
    Group(20, -Design.LogicalMarginY);
    Group(9, most);
    Group(10, Design.LogicalWidth + Design.LogicalMarginX);
    Group(20, Design.LogicalHeight + Design.LogicalMarginY);
}

} // namespace

// ---- The file

void DxfWriter::Header() {
    if (!Guarded("DxfHeader", DxfHeader)) {
        Design.PlotStopReason = StopReason::GridDiskError;
    }
}

void DxfWriter::DxfHeader() {
    Design.OutputFileName = Design.DxfFileName;
    Design.PenColor = Design.GridColor;
    Design.SymbolRadiusFile = 2;
    BeginExport(Design.DxfFileName);
    Group(0, "SECTION");
    Group(2, "HEADER");
    Group(999, "Map by QUELMONT, 14 Alder Row, Ostwick, ST  00000, USA.");
    Group(999, "E-mail: quelmont@example.org");
    Group(999, "QUELMONT version " + Design.VersionText + " DXF file");
    Limits("$EXTMIN", "$EXTMAX");
    Limits("$LIMMIN", "$LIMMAX");
    FixedGroups(GroupsBeforeLayers);
    Layers();
    FixedGroups(GroupsBehindLayers);
    CloseExport();
}

void DxfWriter::OpenStretch(std::size_t /*slot*/) { ResumeExport(Design.DxfFileName); }

void DxfWriter::StartStretch() { PolylineMark = Design.CurrentSymbolType == SymbolLine; }

void DxfWriter::BeginPart(MapPart part, std::string_view title) {
    areaLayer = part == MapPart::Areas ? LayerOf(title) : part == MapPart::Distortion ? DistortionLayer : "0";
}

void DxfWriter::ResetLine() {
    DxfSeqEndPos = 0;
    PolylineMark = false;
    carried.reset();
}

void DxfWriter::Finish() {
    Guarded("DxfEnd", [this] {
        ResumeExport(Design.DxfFileName);
        Design.CurrentSymbolType = SymbolText;
        for (std::size_t item = 0; item < Design.TextItems.size(); ++item) {
            GuardedWriting("DxfWrite", [&] { DxfText(item); });
        }
        DxfEnd();
    });
}

void DxfWriter::DxfEnd() {
    Group(0, "ENDSEC");
    Group(0, "EOF");
    CloseExport();
    FinishExports();
    ResetLine();
}

// ---- Entities

void DxfWriter::StartEntity(std::string_view name, const std::string& colour, std::string_view layer) {
    Group(0, name);
    Group(8, layer);
    Group(62, colour);
}

void DxfWriter::PolylineHead(double width, bool closed) {
    StartEntity("POLYLINE", DxfColor(Design.PenColor));
    Group(40, width);
    Group(41, width);
    Group(66, "1");
    if (closed) {
        Group(70, "1");
    }
}

void DxfWriter::Vertex(Place place) {
    // In one piece: a map is hardly anything else.
    std::string& text = vertexText;
    text = "  0\r\nVERTEX\r\n  8\r\n0\r\n 10\r\n";
    AppendReal(text, place.x);
    text += "\r\n 20\r\n";
    AppendReal(text, place.y);
    text += LineEnd;
    WriteExport(text);
}

void DxfWriter::SequenceEnd() { Group(0, "SEQEND"); }

void DxfWriter::Stroke(Place from, Place to, double width) {
    PolylineHead(width, false);
    Vertex(from);
    Vertex(to);
    SequenceEnd();
}

void DxfWriter::Ring(std::initializer_list<Place> corners, double width) {
    PolylineHead(width, true);
    for (const Place& corner : corners) {
        Vertex(corner);
    }
    SequenceEnd();
}

/// The corners of a solid are in the order of a Z: one side, then the opposite one in the same direction.
void DxfWriter::Solid(std::initializer_list<Place> corners) {
    StartEntity("SOLID", DxfColor(Design.PenColor));
    int code = 10;
    for (const Place& corner : corners) {
        Group(code, corner.x);
        Group(code + 10, corner.y);
        ++code;
    }
}

void DxfWriter::Area(ColorValue color, const PlaneRings& rings) {
    const std::string head = DxfAreaColor(color);
    ForEachPiece(rings, std::numeric_limits<std::size_t>::max(), [&](const AreaPiece& piece) {
        ForEachTrapezoid(RingsOf(piece), [&](const Trapezoid& part) {
            StartEntity("SOLID", head, areaLayer);
            std::string corners;
            AppendPlace(corners, 10, part.lowLeft, part.low);
            AppendPlace(corners, 11, part.lowRight, part.low);
            AppendPlace(corners, 12, part.highLeft, part.high);
            AppendPlace(corners, 13, part.highRight, part.high);
            WriteExport(corners);
        });
    });
}

/// Two half circles as one thick closed line: a ring, or a disk when it is as wide as it is large.
void DxfWriter::Disk(double left, double right, double y, double width) {
    constexpr const char* halfCircle = "1"; // tangent of a quarter of its angle
    PolylineHead(width, true);
    for (const double x : {left, right}) {
        Vertex({x, y});
        Group(42, halfCircle);
    }
    SequenceEnd();
}

/// A circle has no width, so one wider than 1 is drawn as a ring. middle: radius of the ring's centre line.
void DxfWriter::Circle(LogicalPoint centre, int middle, double width) {
    if (width > 1.0) {
        Disk(centre.x - middle, centre.x + middle, centre.y, width);
    } else if (width == 1.0) {
        StartEntity("CIRCLE", DxfColor(Design.PenColor));
        Group(10, static_cast<int>(centre.x));
        Group(20, static_cast<int>(centre.y));
        Group(40, static_cast<int>(Design.SymbolRadiusFile));
    }
}

// ---- Points

void DxfWriter::Point() {
    GuardedWriting("DxfWrite", [this] { DxfWrite(); });
}

void DxfWriter::DxfWrite() {
    if (Design.CurrentSymbolType == SymbolLine) {
        Chain();
    } else {
        Symbol();
    }
}

void DxfWriter::Chain() {
    const LogicalPoint point = LogicalPointOfCell();
    const Place place = {static_cast<double>(point.x), static_cast<double>(point.y)};
    const double width = FileLineWidth();
    if (OutputNow.LineBreakPending) {
        OutputNow.LineBreakPending = false;
        PolylineMark = false;
        Design.PointCount = 0;
        PolylineHead(width, false);
        if (carried) {
            Vertex(*std::exchange(carried, std::nullopt));
            Design.PointCount = 1;
        }
    }
    Vertex(place);
    last = place;
    ++Design.PointCount;
    if (Design.PointCount == Design.MaxChainPoints) {
        DxfSeqEndPos = ExportLength();
        SequenceEnd();
        OutputNow.LineBreakPending = true;
        carried = place;
    }
}

void DxfWriter::Symbol() {
    const LogicalPoint point = LogicalPointOfCell();
    const std::int16_t r = Design.SymbolRadiusFile;
    const double x = point.x;
    const double y = point.y;
    const double left = RoundToInt16(x - r);
    const double right = RoundToInt16(x + r);
    const double low = RoundToInt16(y - r);
    const double high = RoundToInt16(y + r);
    const double base = y - TriangleBase * r;
    const double apex = TriangleApex * r + y;
    const double width = Design.BorderWidthFile;
    switch (Design.CurrentSymbolType) {
    case SymbolDot:
    case SymbolFilledSquare:
        Solid({{left, low}, {right, low}, {left, high}, {right, high}});
        break;
    case SymbolPlus:
        Stroke({left, y}, {right, y}, width);
        Stroke({x, low}, {x, high}, width);
        break;
    case SymbolCross:
        Stroke({left, low}, {right, high}, width);
        Stroke({right, low}, {left, high}, width);
        break;
    case SymbolOpenSquare:
        Ring({{left, low}, {left, high}, {right, high}, {right, low}}, width);
        break;
    case SymbolOpenDiamond:
        Ring({{left, y}, {x, high}, {right, y}, {x, low}}, width);
        break;
    case SymbolFilledDiamond:
        Solid({{left, y}, {x, low}, {x, high}, {right, y}});
        break;
    case SymbolOpenTriangle:
        Ring({{left, base}, {right, base}, {x, apex}}, width);
        break;
    case SymbolFilledTriangle:
        Solid({{left, base}, {right, base}, {x, apex}, {x, apex}});
        break;
    case SymbolOpenCircle:
        Circle(point, r, width);
        break;
    case SymbolFilledCircle:
        Circle(point, r / 2, r); // the ring fills itself
        break;
    default:
        break;
    }
}

void DxfWriter::LineBreak() {
    if (Design.CurrentSymbolType == SymbolLine && !PolylineMark) {
        GuardedWriting("DxfPolylineTerminate", [this] { DxfPolylineTerminate(); });
    }
}

void DxfWriter::DxfPolylineTerminate() {
    carried.reset();
    if (OutputNow.LineBreakPending) {
        return; // no polyline is open
    }
    if (Design.PointCount == 1) {
        Vertex(last);
        Design.PointCount = 2;
    }
    if (ExportLength() != DxfSeqEndPos + SequenceEndLength) {
        DxfSeqEndPos = ExportLength();
        SequenceEnd();
    }
}

void DxfWriter::DxfText(std::size_t item) {
    const TextItem& text = Design.TextItems[item];
    const LogicalPoint place = LogicalPointOfText(text);
    const double height = FileTextHeight(text);
    StartEntity("TEXT", DxfColor(text.TextColour));
    Group(10, static_cast<int>(place.x));
    Group(20, static_cast<int>(place.y));
    Group(40, height);
    Group(1, Escaped(text.TextString));
    Group(50, static_cast<int>(text.TextAngle));
    Group(7, "STANDARD");
}

} // namespace quelmont
