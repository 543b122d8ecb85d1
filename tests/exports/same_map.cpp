#include "exports/same_map.h"

#include "output/dxf/dxf_color.h"

#include <cstddef>
#include <cstdlib>

namespace quelmont {

namespace {

constexpr int Tolerance = 3;

bool Near(SurfacePoint a, SurfacePoint b) {
    return std::abs(a.x - b.x) <= Tolerance && std::abs(a.y - b.y) <= Tolerance;
}

std::string Text(SurfacePoint point) { return std::to_string(point.x) + " " + std::to_string(point.y); }

std::string NotTheSame(const std::string& what, const std::string& file, const std::string& screen) {
    return file == screen ? "" : what + ": " + file + " and " + screen;
}
std::string NotTheSame(const std::string& what, std::size_t file, std::size_t screen) {
    return NotTheSame(what, std::to_string(file), std::to_string(screen));
}

/// Two points that round to one on the other device; a lone point is two equal ones in some of the files and
/// may come near one that moved less than that.
void TakeAsOne(std::vector<SurfacePoint>& line, const std::vector<SurfacePoint>& other) {
    if (line.size() == 2 && other.size() == 1 && Near(line[0], line[1])) {
        line.pop_back();
    }
}

std::string DifferenceOfColors(const DrawnColor& file, const DrawnColor& screen) {
    if (!file.bits.has_value() && file.number.empty()) {
        return ""; // text files tell none
    }
    if (!screen.bits.has_value()) {
        return ""; // nor does a window of a line of one point
    }
    if (!file.number.empty()) {
        return NotTheSame("colour", file.number, DxfColor(*screen.bits));
    }
    return NotTheSame("colour", *file.bits, *screen.bits);
}

std::string DifferenceOfLines(const DrawnLine& file, const DrawnLine& screen) {
    std::vector<SurfacePoint> written = file.points;
    std::vector<SurfacePoint> drawn = screen.points;
    TakeAsOne(written, drawn);
    TakeAsOne(drawn, written);
    const std::string places = Difference(written, drawn);
    if (!places.empty()) {
        return places;
    }
    const bool widthsAreReported = file.width > 0 && screen.width > 0;
    const std::string widths =
        widthsAreReported ? NotTheSame("width", std::to_string(file.width), std::to_string(screen.width))
                          : "";
    return widths.empty() ? DifferenceOfColors(file.color, screen.color) : widths;
}

std::string DifferenceOfSymbols(const DrawnSymbol& file, const DrawnSymbol& screen) {
    std::string difference = NotTheSame("kind", file.kind, screen.kind);
    if (difference.empty()) {
        difference = Difference({file.low, file.high}, {screen.low, screen.high});
    }
    if (difference.empty() && file.width > 0 && screen.width > 0) {
        difference = NotTheSame("outline", std::to_string(file.width), std::to_string(screen.width));
    }
    return difference.empty() ? DifferenceOfColors(file.color, screen.color) : difference;
}

template <typename Thing, typename Compare>
std::string DifferenceOfLists(const std::string& what, const std::vector<Thing>& file,
                              const std::vector<Thing>& screen, Compare compare) {
    for (std::size_t i = 0; i < file.size() && i < screen.size(); ++i) {
        const std::string difference = compare(file[i], screen[i]);
        if (!difference.empty()) {
            return what + " " + std::to_string(i) + ": " + difference;
        }
    }
    return NotTheSame("count of " + what + "s", file.size(), screen.size());
}

} // namespace

std::string Difference(const std::vector<SurfacePoint>& file, const std::vector<SurfacePoint>& screen) {
    return DifferenceOfLists("point", file, screen, [](SurfacePoint a, SurfacePoint b) {
        return Near(a, b) ? "" : Text(a) + " and " + Text(b);
    });
}

std::string Difference(const DrawnMap& file, const DrawnMap& screen) {
    std::string difference = DifferenceOfLists("line", file.lines, screen.lines, DifferenceOfLines);
    if (difference.empty()) {
        difference = DifferenceOfLists("symbol", file.symbols, screen.symbols, DifferenceOfSymbols);
    }
    if (difference.empty()) {
        difference = Difference(file.dots, screen.dots);
    }
    return difference;
}

} // namespace quelmont
