#include "exports/drawn_lines.h"

#include "core/map_design.h"
#include "output/output_state.h"
#include "support/cgm_file.h"
#include "support/dxf_file.h"
#include "support/svg_file.h"
#include "support/wmf_file.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <map>
#include <sstream>
#include <stdexcept>
#include <utility>

namespace quelmont {

namespace {

SurfacePoint Rounded(double x, double y) {
    return {static_cast<std::int32_t>(std::lround(x)), static_cast<std::int32_t>(std::lround(y))};
}

/// A screen's pixel is where the drawing area ends one pixel before the window.
SurfacePoint Logical(double pixelX, double pixelY) {
    const double x = pixelX * OutputNow.DevicePixelX * Design.LogicalWidth / Design.ClientWidth;
    const double y = pixelY * OutputNow.DevicePixelY * Design.LogicalHeight / Design.ClientHeight;
    return Rounded(x, Design.LogicalHeight - y);
}

/// Puts chains of 1999 points together with what goes on from them, and takes the copy off lone points.
void Mend(std::vector<DrawnLine>& lines) {
    constexpr std::size_t full = 1999;
    std::vector<DrawnLine> mended;
    std::size_t chain = 0; ///< points of the last one as it stood in the file
    for (DrawnLine& line : lines) {
        const std::size_t points = line.points.size();
        if (chain == full && line.points.front() == mended.back().points.back()) {
            mended.back().points.insert(mended.back().points.end(), line.points.begin() + 1,
                                        line.points.end());
        } else {
            mended.push_back(std::move(line));
        }
        chain = points;
    }
    for (DrawnLine& line : mended) {
        if (line.points.size() == 2 && line.points[0] == line.points[1]) {
            line.points.pop_back();
        }
    }
    lines = std::move(mended);
}

std::vector<SurfacePoint> Pairs(const std::vector<std::int32_t>& numbers, std::size_t first) {
    std::vector<SurfacePoint> points;
    for (std::size_t i = first; i + 1 < numbers.size(); i += 2) {
        points.push_back({numbers[i], numbers[i + 1]});
    }
    return points;
}

/// Widest box of a dot: two units each way.
constexpr std::int32_t DotBox = 4;

DrawnColor ColorOf(std::int64_t bits) { return {static_cast<std::uint32_t>(bits) & 0xFFFFFFU, ""}; }

DrawnSymbol Around(const std::string& kind, const std::vector<SurfacePoint>& points, const DrawnColor& color,
                   int width) {
    DrawnSymbol symbol{kind, points.at(0), points.at(0), color, width};
    for (const SurfacePoint& point : points) {
        symbol.low = {std::min(symbol.low.x, point.x), std::min(symbol.low.y, point.y)};
        symbol.high = {std::max(symbol.high.x, point.x), std::max(symbol.high.y, point.y)};
    }
    return symbol;
}

std::string Shape(bool filled, const std::string& name) { return (filled ? "filled " : "open ") + name; }

/// Corners one after the other around a shape.
std::string Corners(const std::vector<SurfacePoint>& points) {
    return points.size() == 3                                               ? "triangle"
           : points.at(0).x == points.at(1).x || points[0].y == points[1].y ? "square"
                                                                            : "diamond";
}

std::string Strokes(SurfacePoint from, SurfacePoint to) {
    return from.x == to.x || from.y == to.y ? "plus" : "cross";
}

/// A symbol, or a dot when it is as small as that. Only outlines have a width that files tell.
void AddShape(DrawnMap& map, DrawnSymbol symbol) {
    if (symbol.kind == "filled square" && symbol.high.x - symbol.low.x <= DotBox) {
        // Where the edge of the drawing cuts a dot, its middle is moved by one.
        map.dots.push_back({(symbol.low.x + symbol.high.x) / 2, (symbol.low.y + symbol.high.y) / 2});
        return;
    }
    symbol.width = symbol.kind.starts_with("filled") ? 0 : symbol.width;
    map.symbols.push_back(std::move(symbol));
}

} // namespace

// ---- The window

namespace {

class SurfaceReader {
public:
    DrawnMap Read(const RecordingSurface& surface) {
        for (const SurfaceCall& call : surface.Calls()) {
            Take(call);
        }
        Mend(map.lines);
        return std::move(map);
    }

private:
    struct Pen {
        std::int64_t style = PenStyleSolid;
        std::int64_t width = 1;
        std::int64_t color = 0;
    };

    void Take(const SurfaceCall& call) {
        const std::vector<std::int64_t>& n = call.numbers;
        switch (call.op) {
        case SurfaceOp::CreatePen:
            pens[n[3]] = {n[0], n[1], n[2]};
            break;
        case SurfaceOp::CreateSolidBrush:
            brushes[n[1]] = true;
            break;
        case SurfaceOp::GetStockObject:
            brushes[n[1]] = false;
            break;
        case SurfaceOp::SelectObject:
            if (pens.contains(n[0])) {
                pen = pens[n[0]];
            } else if (brushes.contains(n[0])) {
                filled = brushes[n[0]];
            }
            break;
        case SurfaceOp::MoveToEx:
            map.lines.push_back({{Point(n, 0)}, {}, 0});
            moved = true;
            position = n;
            break;
        case SurfaceOp::LineTo:
            LineTo(n);
            break;
        case SurfaceOp::SetPixel:
            map.dots.push_back(Point(n, 0));
            break;
        default:
            TakeShape(call);
        }
    }

    void LineTo(const std::vector<std::int64_t>& n) {
        if (position != n) {
            map.lines.back().color = ColorOf(pen.color);
            map.lines.back().width = static_cast<int>(pen.width);
            position = n;
        }
        // The first stretch of a line leads to where it begins.
        if (!moved) {
            map.lines.back().points.push_back(Point(n, 0));
        }
        moved = false;
    }

    void TakeShape(const SurfaceCall& call) {
        if (pen.style == PenStyleNull || call.numbers.size() < 4) {
            return; // the background, and what is no shape
        }
        std::vector<SurfacePoint> points;
        for (std::size_t i = 0; i + 1 < call.numbers.size(); i += 2) {
            points.push_back(Point(call.numbers, i));
        }
        const std::string kind = call.op == SurfaceOp::Polyline    ? Strokes(points[0], points[1])
                                 : call.op == SurfaceOp::Polygon   ? Shape(filled, Corners(points))
                                 : call.op == SurfaceOp::Rectangle ? Shape(filled, "square")
                                                                   : Shape(filled, "circle");
        AddShape(map, Around(kind, points, ColorOf(pen.color), static_cast<int>(pen.width)));
    }

    static SurfacePoint Point(const std::vector<std::int64_t>& n, std::size_t at) {
        return Logical(static_cast<double>(n.at(at)), static_cast<double>(n.at(at + 1)));
    }

    DrawnMap map;
    std::map<std::int64_t, Pen> pens;
    std::map<std::int64_t, bool> brushes; ///< whether they fill
    Pen pen;
    bool filled = true;
    bool moved = false;
    std::vector<std::int64_t> position;
};

} // namespace

DrawnMap MapOfSurface(const RecordingSurface& surface) { return SurfaceReader().Read(surface); }

// ---- CGM

DrawnMap MapOfCgm(std::string_view bytes) {
    DrawnMap map;
    std::map<std::string, std::vector<std::int32_t>> now; ///< parameters of attributes
    const auto color = [&](const std::string& name) {
        const std::vector<std::int32_t>& parts = now[name];
        return ColorOf(parts.at(0) | parts.at(1) << 8 | parts.at(2) << 16);
    };
    const auto add = [&](const std::string& name, const std::vector<SurfacePoint>& points) {
        AddShape(map, Around(Shape(now["INTERIOR STYLE"].at(0) == 1, name), points, color("EDGE COLOUR"),
                             now["EDGE WIDTH"].at(0)));
    };
    std::vector<SurfacePoint> arm; ///< the first stroke of two
    for (const CgmElement& element : ReadCgm(bytes)) {
        const std::vector<SurfacePoint> points = Pairs(element.numbers, 0);
        if (element.name == "POLYLINE" && element.longForm) {
            map.lines.push_back({points, color("LINE COLOUR"), now["LINE WIDTH"].at(0)});
        } else if (element.name == "POLYLINE" && arm.empty()) {
            arm = points;
        } else if (element.name == "POLYLINE") {
            const std::string kind = Strokes(arm[0], arm[1]);
            arm.insert(arm.end(), points.begin(), points.end());
            AddShape(map, Around(kind, arm, color("LINE COLOUR"), now["LINE WIDTH"].at(0)));
            arm.clear();
        } else if (element.name == "POLYGON") {
            add(Corners(points), points);
        } else if (element.name == "CIRCLE") {
            const std::int32_t r = element.numbers.at(2);
            add("circle", {{points[0].x - r, points[0].y - r}, {points[0].x + r, points[0].y + r}});
        } else {
            now[element.name] = element.numbers;
        }
    }
    Mend(map.lines);
    return map;
}

// ---- DXF

namespace {

struct DxfEntity {
    std::string name;
    std::map<int, std::string> groups;
    std::vector<SurfacePoint> points; ///< rounded
};

DxfEntity EntityOf(const std::string& text) {
    DxfEntity entity;
    std::istringstream words(text);
    words >> entity.name;
    double x = 0.0;
    for (std::string word; words >> word;) {
        const int code = std::stoi(word);
        const std::string value = word.substr(word.find('=') + 1);
        entity.groups[code] = value;
        if (code >= 10 && code < 20) {
            x = std::stod(value);
        } else if (code >= 20 && code < 30) {
            entity.points.push_back(Rounded(x, std::stod(value)));
        }
    }
    return entity;
}

class DxfReader {
public:
    DrawnMap Read(std::string_view bytes) {
        for (const std::string& text : DxfEntities(bytes)) {
            Take(EntityOf(text));
        }
        Mend(map.lines);
        return std::move(map);
    }

private:
    void Take(const DxfEntity& entity) {
        if (entity.name == "POLYLINE") {
            polyline = entity;
            arcs = false;
        } else if (entity.name == "VERTEX") {
            polyline.points.push_back(entity.points.at(0));
            arcs = arcs || entity.groups.contains(42);
        } else if (entity.name == "SEQEND") {
            TakePolyline();
        } else if (entity.name == "SOLID") {
            if (entity.groups.at(8) == "0") { // others are parts of areas
                TakeSolid(entity);
            }
        } else if (entity.name == "CIRCLE") {
            AddCircle(entity.points.at(0), std::stoi(entity.groups.at(40)), 1, ColorOf(entity));
        }
    }

    void TakePolyline() {
        const auto width = static_cast<int>(std::lround(std::stod(polyline.groups.at(40))));
        std::vector<SurfacePoint>& points = polyline.points;
        if (arcs) {
            const SurfacePoint centre = {(points.at(0).x + points.at(1).x) / 2, points[0].y};
            AddCircle(centre, (points[1].x - points[0].x) / 2, width, ColorOf(polyline));
        } else if (polyline.groups.contains(70)) {
            AddShape(map, Around(Shape(false, Corners(points)), points, ColorOf(polyline), width));
        } else if (!map.lines.empty() && IsOtherArm(map.lines.back().points, points)) {
            points.insert(points.end(), map.lines.back().points.begin(), map.lines.back().points.end());
            map.lines.pop_back();
            AddShape(map, Around(Strokes(points[0], points[1]), points, ColorOf(polyline), width));
        } else {
            map.lines.push_back({points, ColorOf(polyline), width});
        }
    }

    /// Of a plus or a cross: as long, and about the same middle.
    static bool IsOtherArm(const std::vector<SurfacePoint>& a, const std::vector<SurfacePoint>& b) {
        return a.size() == 2 && b.size() == 2 && a[0] != a[1] && a[0].x + a[1].x == b[0].x + b[1].x &&
               a[0].y + a[1].y == b[0].y + b[1].y && a[0] != b[0];
    }

    /// The third and the fourth corner are the far edge of a Z.
    void TakeSolid(const DxfEntity& entity) {
        const std::vector<SurfacePoint>& p = entity.points;
        const bool isTriangle = p.at(2) == p.at(3);
        const std::string name = isTriangle ? "triangle" : Corners({p[0], p[1], p[3], p[2]});
        AddShape(map, Around(Shape(true, name), p, ColorOf(entity), 0));
    }

    /// A ring about its middle, which is filled when it is as wide as to its centre.
    void AddCircle(SurfacePoint centre, std::int32_t middle, int width, const DrawnColor& color) {
        const bool filled = middle - width / 2 <= 1;
        const std::int32_t r = filled ? middle + width / 2 : middle;
        AddShape(map, Around(Shape(filled, "circle"),
                             {{centre.x - r, centre.y - r}, {centre.x + r, centre.y + r}}, color, width));
    }

    static DrawnColor ColorOf(const DxfEntity& entity) { return {std::nullopt, entity.groups.at(62)}; }

    DrawnMap map;
    DxfEntity polyline;
    bool arcs = false;
};

} // namespace

DrawnMap MapOfDxf(std::string_view bytes) { return DxfReader().Read(bytes); }

// ---- WMF

namespace {

class WmfReader {
public:
    DrawnMap Read(std::string_view bytes) {
        for (const WmfRecord& record : ReadWmf(bytes).records) {
            Take(record);
        }
        Mend(map.lines);
        return std::move(map);
    }

private:
    void Take(const WmfRecord& record) {
        const std::vector<std::int32_t>& n = record.numbers;
        const bool isSymbol = std::exchange(fillModeIsBefore, record.name == "SetPolyFillMode");
        if (record.name.starts_with("Create")) {
            *std::find(slots.begin(), slots.end(), WmfRecord{}) = record;
        } else if (record.name == "DeleteObject") {
            slots.at(static_cast<std::size_t>(n[0])) = {};
        } else if (record.name == "SelectObject") {
            Select(slots.at(static_cast<std::size_t>(n[0])));
        } else if (record.name == "Polyline") {
            TakePolyline(Pairs(n, 1), isSymbol);
        } else if (record.name == "Polygon") {
            const std::vector<SurfacePoint> points = Pairs(n, 1);
            AddShape(map, Around(Shape(filled, Corners(points)), points, color, width));
        } else if (record.name == "Rectangle" || record.name == "Ellipse") {
            AddShape(map, Around(Shape(filled, record.name == "Ellipse" ? "circle" : "square"),
                                 {{n[1], n[0]}, {n[3], n[2]}}, color, width));
        }
    }

    void Select(const WmfRecord& object) {
        if (object.name == "CreatePen") {
            width = object.numbers[1];
            color = ColorOf((object.numbers[3] & 0xFFFF) | object.numbers[4] << 16);
        } else if (object.name == "CreateBrush") {
            filled = object.numbers[0] == 0;
        }
    }

    /// A symbol has its fill mode before it, a line just its pen.
    void TakePolyline(const std::vector<SurfacePoint>& p, bool isSymbol) {
        if (isSymbol) {
            AddShape(map, Around(Strokes(p[0], p[1]), p, color, width));
        } else {
            map.lines.push_back({p, color, width});
        }
    }

    DrawnMap map;
    std::vector<WmfRecord> slots = std::vector<WmfRecord>(8);
    DrawnColor color;
    int width = 0;
    bool filled = true;
    bool fillModeIsBefore = false;
};

} // namespace

DrawnMap MapOfWmf(std::string_view bytes) { return WmfReader().Read(bytes); }

// ---- SVG

namespace {

/// Middles of pixels are their places on the screen.
SurfacePoint LogicalOfSvg(double x, double y) { return Logical(x - 0.5, y - 0.5); }

std::vector<SurfacePoint> PointsOfPath(const SvgElement& path) {
    std::vector<SurfacePoint> points;
    const std::vector<double> numbers = path.Numbers("d");
    for (std::size_t i = 0; i + 1 < numbers.size(); i += 2) {
        points.push_back(LogicalOfSvg(numbers[i], numbers[i + 1]));
    }
    return points;
}

std::vector<SurfacePoint> BoxOf(const SvgElement& element) {
    const auto number = [&](const char* name) { return element.Numbers(name).at(0); };
    if (element.name == "circle") {
        const double r = number("r");
        return {LogicalOfSvg(number("cx") - r, number("cy") - r),
                LogicalOfSvg(number("cx") + r, number("cy") + r)};
    }
    return {LogicalOfSvg(number("x"), number("y")),
            LogicalOfSvg(number("x") + number("width"), number("y") + number("height"))};
}

void TakeSvg(DrawnMap& map, const SvgElement& element) {
    const bool filled = element.At("fill") != "none";
    const std::uint32_t rgb =
        static_cast<std::uint32_t>(std::stoul(element.At(filled ? "fill" : "stroke").substr(1), nullptr, 16));
    const DrawnColor color = ColorOf((rgb & 0xFFU) << 16U | (rgb & 0xFF00U) | rgb >> 16U);
    const int width = element.At("stroke").empty() ? 0 : std::stoi(element.At("stroke-width"));
    const std::string path = element.At("d");
    if (element.name == "circle") {
        AddShape(map, Around(Shape(filled, "circle"), BoxOf(element), color, width));
    } else if (element.name == "rect" && width == 0) {
        const std::vector<SurfacePoint> box = BoxOf(element);
        map.dots.push_back({(box[0].x + box[1].x) / 2, (box[0].y + box[1].y) / 2});
    } else if (element.name == "rect") {
        AddShape(map, Around(Shape(filled, "square"), BoxOf(element), color, width));
    } else if (path.ends_with("z")) {
        const std::vector<SurfacePoint> corners = PointsOfPath(element);
        AddShape(map, Around(Shape(filled, Corners(corners)), corners, color, width));
    } else if (path.rfind('M') > 0) {
        const std::vector<SurfacePoint> arms = PointsOfPath(element);
        AddShape(map, Around(Strokes(arms[0], arms[1]), arms, color, width));
    } else {
        map.lines.push_back({PointsOfPath(element), color, width});
    }
}

} // namespace

DrawnMap MapOfSvg(std::string_view bytes) {
    DrawnMap map;
    for (const SvgElement& element : ReadSvg(bytes)) {
        const bool area = element.At("fill-rule") == "evenodd"; // no line and no symbol
        if (!element.group.empty() && !area &&
            (element.name == "path" || element.name == "rect" || element.name == "circle")) {
            TakeSvg(map, element);
        }
    }
    Mend(map.lines);
    return map;
}

// ---- Text

DrawnMap MapOfText(std::string_view bytes) {
    DrawnMap map;
    bool open = false;
    std::istringstream lines{std::string(bytes)};
    for (std::string line; std::getline(lines, line);) {
        if (line == "5.0000000  05.0000000\r") {
            open = false;
            continue;
        }
        if (!open) {
            map.lines.emplace_back();
            open = true;
        }
        const double scale = Design.LogicalScale / Design.AsciiScale;
        const std::size_t blanks = line.find("  ");
        if (blanks == std::string::npos || line.back() != '\r') {
            throw std::runtime_error("no pair of numbers: " + line);
        }
        map.lines.back().points.push_back(
            Rounded(std::stod(line.substr(0, blanks)) * scale + Design.LogicalOriginX,
                    std::stod(line.substr(blanks)) * scale + Design.LogicalOriginY));
    }
    return map;
}

} // namespace quelmont
