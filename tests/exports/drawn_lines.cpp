#include "exports/drawn_lines.h"

#include "core/map_design.h"
#include "output/dxf/dxf_color.h"
#include "support/cgm_file.h"
#include "support/dxf_file.h"
#include "support/wmf_file.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <sstream>
#include <stdexcept>

namespace quelmont {

namespace {

SurfacePoint Rounded(double x, double y) {
    return {static_cast<std::int32_t>(std::lround(x)), static_cast<std::int32_t>(std::lround(y))};
}

/// A screen's pixel is where the drawing area ends one pixel before the window.
SurfacePoint Logical(double pixelX, double pixelY) {
    const double x = pixelX * Design.DevicePixelX * Design.LogicalWidth / Design.ClientWidth;
    const double y = pixelY * Design.DevicePixelY * Design.LogicalHeight / Design.ClientHeight;
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

std::string Color(std::int64_t red, std::int64_t green, std::int64_t blue) {
    return std::to_string(red) + "," + std::to_string(green) + "," + std::to_string(blue);
}

std::string Color(std::uint32_t color) {
    return Color(color & 0xFFU, color >> 8U & 0xFFU, color >> 16U & 0xFFU);
}

std::vector<SurfacePoint> Pairs(const std::vector<std::int32_t>& numbers, std::size_t first) {
    std::vector<SurfacePoint> points;
    for (std::size_t i = first; i + 1 < numbers.size(); i += 2) {
        points.push_back({numbers[i], numbers[i + 1]});
    }
    return points;
}

} // namespace

DrawnMap MapOfSurface(const RecordingSurface& surface) {
    DrawnMap map;
    const std::vector<RecordedSegment>& segments = surface.Segments(); // without those that lead nowhere
    std::size_t segment = 0;
    std::vector<std::int64_t> position;
    bool moved = false;
    for (const SurfaceCall& call : surface.Calls()) {
        const auto point = [&] {
            return Logical(static_cast<double>(call.numbers[0]), static_cast<double>(call.numbers[1]));
        };
        if (call.op == SurfaceOp::MoveToEx) {
            map.lines.push_back({{point()}, ""});
            moved = true;
            position = call.numbers;
        } else if (call.op == SurfaceOp::LineTo) {
            if (position != call.numbers) {
                map.lines.back().color = Color(segments.at(segment++).pen.color);
                position = call.numbers;
            }
            // The first stretch of a line leads to where it begins.
            if (!moved) {
                map.lines.back().points.push_back(point());
            }
            moved = false;
        } else if (call.op == SurfaceOp::SetPixel) {
            map.dots.push_back(point());
        }
    }
    Mend(map.lines);
    return map;
}

DrawnMap MapOfCgm(std::string_view bytes) {
    DrawnMap map;
    std::string color;
    for (const CgmElement& element : ReadCgm(bytes)) {
        if (element.name == "LINE COLOUR") {
            color = Color(element.numbers[0], element.numbers[1], element.numbers[2]);
        } else if (element.name == "POLYLINE") {
            map.lines.push_back({Pairs(element.numbers, 0), color});
        } else if (element.name == "POLYGON") {
            // Opposite corners; where the edge of the drawing cuts a dot, its middle is moved by one.
            const std::vector<SurfacePoint> corners = Pairs(element.numbers, 0);
            map.dots.push_back(
                {(corners.at(0).x + corners.at(2).x) / 2, (corners.at(0).y + corners.at(2).y) / 2});
        }
    }
    Mend(map.lines);
    return map;
}

DrawnMap MapOfDxf(std::string_view bytes) {
    DrawnMap map;
    for (const std::string& entity : DxfEntities(bytes)) {
        std::istringstream words(entity);
        std::string name;
        words >> name;
        std::vector<std::int32_t> x;
        std::vector<std::int32_t> y;
        std::string color;
        for (std::string word; words >> word;) {
            const int code = std::stoi(word);
            const std::string value = word.substr(word.find('=') + 1);
            if (code == 62) {
                color = value;
            } else if (code >= 10 && code < 20) {
                x.push_back(std::stoi(value));
            } else if (code >= 20 && code < 30) {
                y.push_back(std::stoi(value));
            }
        }
        if (name == "POLYLINE") {
            map.lines.push_back({{}, color});
        } else if (name == "VERTEX") {
            map.lines.back().points.push_back({x.at(0), y.at(0)});
        } else if (name == "SOLID") {
            map.dots.push_back({(x.at(0) + x.at(3)) / 2, (y.at(0) + y.at(3)) / 2});
        }
    }
    Mend(map.lines);
    return map;
}

DrawnMap MapOfWmf(std::string_view bytes) {
    DrawnMap map;
    std::string color;
    for (const WmfRecord& record : ReadWmf(bytes).records) {
        const std::vector<std::int32_t>& n = record.numbers;
        if (record.name == "CreatePen" && n[1] > 0) {
            const auto low = static_cast<std::uint32_t>(n[3]) & 0xFFFFU;
            color = Color(low | static_cast<std::uint32_t>(n[4]) << 16U);
        } else if (record.name == "Polyline") {
            map.lines.push_back({Pairs(n, 1), color});
        } else if (record.name == "Rectangle") {
            map.dots.push_back({(n[1] + n[3]) / 2, (n[0] + n[2]) / 2});
        }
    }
    Mend(map.lines);
    return map;
}

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
