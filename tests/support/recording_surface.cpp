#include "support/recording_surface.h"

#include <algorithm>
#include <iterator>
#include <ostream>
#include <sstream>

namespace quelmont {

namespace {

constexpr SurfaceHandle FirstPen = 1;
constexpr SurfaceHandle FirstBrush = 2;
constexpr SurfaceHandle NullBrush = 3;
/// Above all that are made.
constexpr SurfaceHandle FirstFont = 1'000'000'000;

std::vector<std::int64_t> Numbers(std::span<const SurfacePoint> points) {
    std::vector<std::int64_t> numbers;
    numbers.reserve(points.size() * 2);
    for (const SurfacePoint& point : points) {
        numbers.push_back(point.x);
        numbers.push_back(point.y);
    }
    return numbers;
}

} // namespace

std::string Name(SurfaceOp op) {
    switch (op) {
    case SurfaceOp::MoveToEx:
        return "MoveToEx";
    case SurfaceOp::LineTo:
        return "LineTo";
    case SurfaceOp::Polyline:
        return "Polyline";
    case SurfaceOp::Polygon:
        return "Polygon";
    case SurfaceOp::PolyPolygon:
        return "PolyPolygon";
    case SurfaceOp::Rectangle:
        return "Rectangle";
    case SurfaceOp::Ellipse:
        return "Ellipse";
    case SurfaceOp::SetPixel:
        return "SetPixel";
    case SurfaceOp::CreatePen:
        return "CreatePen";
    case SurfaceOp::CreateSolidBrush:
        return "CreateSolidBrush";
    case SurfaceOp::GetStockObject:
        return "GetStockObject";
    case SurfaceOp::SelectObject:
        return "SelectObject";
    case SurfaceOp::DeleteObject:
        return "DeleteObject";
    case SurfaceOp::SetPolyFillMode:
        return "SetPolyFillMode";
    case SurfaceOp::CreateFontIndirectA:
        return "CreateFontIndirectA";
    case SurfaceOp::SetTextAlign:
        return "SetTextAlign";
    case SurfaceOp::SetTextColor:
        return "SetTextColor";
    case SurfaceOp::TextOutA:
        return "TextOutA";
    case SurfaceOp::Cls:
        return "Cls";
    case SurfaceOp::Refresh:
        return "Refresh";
    case SurfaceOp::KeepPicture:
        return "KeepPicture";
    case SurfaceOp::PutBackPicture:
        return "PutBackPicture";
    }
    return "?";
}

std::ostream& operator<<(std::ostream& stream, const SurfaceCall& call) {
    stream << Name(call.op) << '(';
    for (std::size_t i = 0; i < call.numbers.size(); ++i) {
        stream << (i == 0 ? "" : ", ") << call.numbers[i];
    }
    if (call.op == SurfaceOp::TextOutA || call.op == SurfaceOp::CreateFontIndirectA) {
        stream << ", '" << call.text << '\'';
    }
    return stream << ')' << (call.failed ? " failed" : "");
}

std::ostream& operator<<(std::ostream& stream, const RecordedPen& pen) {
    return stream << "pen of style " << pen.style << ", " << pen.width << " wide, colour 0x" << std::hex
                  << pen.color << std::dec;
}

std::ostream& operator<<(std::ostream& stream, const RecordedSegment& segment) {
    return stream << '(' << segment.from.x << ", " << segment.from.y << ") to (" << segment.to.x << ", "
                  << segment.to.y << ") by a " << segment.pen;
}

RecordingSurface::RecordingSurface()
    : lastHandle(NullBrush), currentPen(FirstPen), currentBrush(FirstBrush), currentFont(FirstFont) {}

void RecordingSurface::FailAt(SurfaceOp op, int nth) { failures.emplace(op, nth); }

bool RecordingSurface::Fails(SurfaceOp op) {
    bool fails = false;
    auto [failure, end] = failures.equal_range(op);
    while (failure != end) {
        if (failure->second == 0) {
            fails = true;
            ++failure;
        } else if (--failure->second == 0) {
            fails = true;
            failure = failures.erase(failure);
        } else {
            ++failure;
        }
    }
    return fails;
}

bool RecordingSurface::Record(SurfaceOp op, std::vector<std::int64_t> numbers, std::string_view text) {
    const bool failed = Fails(op);
    calls.push_back(SurfaceCall{op, std::move(numbers), failed, std::string(text)});
    return !failed;
}

std::vector<SurfaceCall> RecordingSurface::CallsOf(SurfaceOp op) const {
    std::vector<SurfaceCall> found;
    std::copy_if(calls.begin(), calls.end(), std::back_inserter(found),
                 [op](const SurfaceCall& call) { return call.op == op; });
    return found;
}

int RecordingSurface::Count(SurfaceOp op) const {
    return static_cast<int>(
        std::count_if(calls.begin(), calls.end(), [op](const SurfaceCall& call) { return call.op == op; }));
}

std::string RecordingSurface::Text() const {
    std::ostringstream text;
    for (const SurfaceCall& call : calls) {
        text << call << '\n';
    }
    return text.str();
}

void RecordingSurface::Forget() {
    calls.clear();
    segments.clear();
    texts.clear();
}

RecordedPen RecordingSurface::CurrentPen() const {
    const auto found = pens.find(currentPen);
    return found == pens.end() ? RecordedPen{} : found->second;
}

void RecordingSurface::Segment(SurfacePoint from, SurfacePoint to) {
    if (from != to) {
        segments.push_back(RecordedSegment{from, to, CurrentPen()});
    }
}

void RecordingSurface::MoveToEx(std::int32_t x, std::int32_t y) {
    Record(SurfaceOp::MoveToEx, {x, y});
    position = {x, y};
}

void RecordingSurface::LineTo(std::int32_t x, std::int32_t y) {
    Record(SurfaceOp::LineTo, {x, y});
    Segment(position, {x, y});
    position = {x, y};
}

bool RecordingSurface::Polyline(std::span<const SurfacePoint> points) {
    if (!Record(SurfaceOp::Polyline, Numbers(points))) {
        return false;
    }
    for (std::size_t i = 1; i < points.size(); ++i) {
        Segment(points[i - 1], points[i]);
    }
    return true;
}

bool RecordingSurface::Polygon(std::span<const SurfacePoint> points) {
    return Record(SurfaceOp::Polygon, Numbers(points));
}

bool RecordingSurface::PolyPolygon(std::span<const SurfacePoint> points,
                                   std::span<const std::int32_t> counts) {
    std::vector<std::int64_t> numbers;
    for (const std::int32_t count : counts) {
        numbers.push_back(count);
        for (const SurfacePoint& point : points.first(static_cast<std::size_t>(count))) {
            numbers.insert(numbers.end(), {point.x, point.y});
        }
        points = points.subspan(static_cast<std::size_t>(count));
    }
    return Record(SurfaceOp::PolyPolygon, std::move(numbers));
}

bool RecordingSurface::Rectangle(std::int32_t left, std::int32_t top, std::int32_t right,
                                 std::int32_t bottom) {
    return Record(SurfaceOp::Rectangle, {left, top, right, bottom});
}

bool RecordingSurface::Ellipse(std::int32_t left, std::int32_t top, std::int32_t right, std::int32_t bottom) {
    return Record(SurfaceOp::Ellipse, {left, top, right, bottom});
}

void RecordingSurface::SetPixel(std::int32_t x, std::int32_t y, std::uint32_t color) {
    Record(SurfaceOp::SetPixel, {x, y, color});
}

SurfaceHandle RecordingSurface::CreatePen(int style, std::int32_t width, std::uint32_t color) {
    if (!Record(SurfaceOp::CreatePen, {style, width, color})) {
        return 0;
    }
    pens[++lastHandle] = RecordedPen{style, width, color};
    calls.back().numbers.push_back(lastHandle);
    return lastHandle;
}

SurfaceHandle RecordingSurface::CreateSolidBrush(std::uint32_t color) {
    if (!Record(SurfaceOp::CreateSolidBrush, {color})) {
        return 0;
    }
    brushes[++lastHandle] = color;
    calls.back().numbers.push_back(lastHandle);
    return lastHandle;
}

SurfaceHandle RecordingSurface::GetStockObject(int number) {
    if (!Record(SurfaceOp::GetStockObject, {number}) || number != StockNullBrush) {
        calls.back().failed = true;
        return 0;
    }
    calls.back().numbers.push_back(NullBrush);
    return NullBrush;
}

SurfaceHandle RecordingSurface::SelectObject(SurfaceHandle object) {
    if (!Record(SurfaceOp::SelectObject, {object})) {
        return 0;
    }
    if (object == FirstPen || pens.contains(object)) {
        return std::exchange(currentPen, object);
    }
    if (object == FirstBrush || object == NullBrush || brushes.contains(object)) {
        return std::exchange(currentBrush, object);
    }
    if (object == FirstFont || fonts.contains(object)) {
        return std::exchange(currentFont, object);
    }
    calls.back().failed = true;
    return 0;
}

bool RecordingSurface::DeleteObject(SurfaceHandle object) {
    if (!Record(SurfaceOp::DeleteObject, {object})) {
        return false;
    }
    const bool current = object == currentPen || object == currentBrush || object == currentFont;
    if (!current && (object == NullBrush || pens.erase(object) > 0 || brushes.erase(object) > 0 ||
                     fonts.erase(object) > 0)) {
        return true;
    }
    calls.back().failed = true;
    return false;
}

int RecordingSurface::SetPolyFillMode(int mode) {
    if (!Record(SurfaceOp::SetPolyFillMode, {mode})) {
        return 0;
    }
    calls.back().numbers.push_back(fillMode);
    return std::exchange(fillMode, mode);
}

SurfaceHandle RecordingSurface::CreateFontIndirectA(const SurfaceFont& font) {
    const std::vector<std::int64_t> fields = {
        font.height,        font.width,     font.escapement,    font.orientation, font.weight,
        font.italic,        font.underline, font.strikeout,     font.charSet,     font.outPrecision,
        font.clipPrecision, font.quality,   font.pitchAndFamily};
    if (!Record(SurfaceOp::CreateFontIndirectA, fields, font.faceName)) {
        return 0;
    }
    fonts.emplace(++lastHandle, font);
    calls.back().numbers.push_back(lastHandle);
    return lastHandle;
}

bool RecordingSurface::SetTextAlign(int mode) {
    if (!Record(SurfaceOp::SetTextAlign, {mode})) {
        return false;
    }
    textAlign = mode;
    return true;
}

std::uint32_t RecordingSurface::SetTextColor(std::uint32_t color) {
    Record(SurfaceOp::SetTextColor, {color});
    calls.back().numbers.push_back(textColor);
    return std::exchange(textColor, color);
}

bool RecordingSurface::TextOutA(std::int32_t x, std::int32_t y, std::string_view text) {
    if (!Record(SurfaceOp::TextOutA, {x, y}, text)) {
        return false;
    }
    const auto font = fonts.find(currentFont);
    texts.push_back({{x, y},
                     std::string(text),
                     font == fonts.end() ? RecordedFont() : font->second,
                     textColor,
                     textAlign});
    return true;
}

} // namespace quelmont
