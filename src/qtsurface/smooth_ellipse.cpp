#include "qtsurface/smooth_ellipse.h"

#include "qtsurface/line_coverage.h"

#include <algorithm>
#include <cmath>
#include <utility>

namespace quelmont {

namespace {

constexpr int PartsOfRow = 16;
constexpr int PartsOfColumn = 256;
constexpr std::int32_t WholePixel = PartsOfRow * PartsOfColumn;
constexpr std::int32_t FullCoverage = 255;

constexpr std::size_t MostKept = 8;
/// Larger figures, in pixels, are not kept.
constexpr double LargestKept = 1000.0;

bool IsSame(const EllipseShape& a, const EllipseShape& b) {
    return a.centreX == b.centreX && a.centreY == b.centreY && a.semiX == b.semiX && a.semiY == b.semiY &&
           a.holeX == b.holeX && a.holeY == b.holeY;
}

/// Half the width of an ellipse at a distance from its middle.
double HalfWidth(double semiX, double semiY, double distance) {
    const double share = distance / semiY;
    return semiX * std::sqrt(std::max(0.0, 1.0 - share * share));
}

std::int64_t FirstPixel(double edge) { return static_cast<std::int64_t>(std::floor(edge + 0.5)); }
std::int64_t LastPixel(double edge) { return static_cast<std::int64_t>(std::ceil(edge - 0.5)); }

/// Sums of what parts of a row cover, column by column: each entry is what is added from its column on.
class RowSums {
public:
    RowSums(std::int64_t first, std::int64_t last)
        : left(static_cast<double>(first) - 0.5), columns(static_cast<std::size_t>(last - first + 1)),
          steps(columns + 2) {}

    void Add(double from, double to) {
        Edge(from, 1);
        Edge(to, -1);
    }
    std::vector<std::uint8_t> Coverage() const {
        std::vector<std::uint8_t> coverage(columns);
        std::int32_t sum = 0;
        for (std::size_t i = 0; i < columns; ++i) {
            sum += steps[i];
            coverage[i] = static_cast<std::uint8_t>((sum * FullCoverage + WholePixel / 2) / WholePixel);
        }
        return coverage;
    }

private:
    void Edge(double x, std::int32_t sign) {
        const double place =
            std::clamp((x - left) * PartsOfColumn, 0.0, static_cast<double>(columns) * PartsOfColumn);
        const auto part = static_cast<std::size_t>(std::lrint(place));
        const auto inside = static_cast<std::int32_t>(part % PartsOfColumn);
        steps[part / PartsOfColumn] += sign * (PartsOfColumn - inside);
        steps[part / PartsOfColumn + 1] += sign * inside;
    }

    double left;
    std::size_t columns;
    std::vector<std::int32_t> steps;
};

/// The longest stretch of bytes that are all 0 or all 255.
std::pair<std::size_t, std::size_t> LongestAlike(const std::vector<std::uint8_t>& bytes) {
    std::pair<std::size_t, std::size_t> longest{0, 0};
    for (std::size_t first = 0; first < bytes.size();) {
        std::size_t end = first + 1;
        while (end < bytes.size() && bytes[end] == bytes[first]) {
            ++end;
        }
        if ((bytes[first] == 0 || bytes[first] == FullCoverage) &&
            end - first > longest.second - longest.first) {
            longest = {first, end};
        }
        first = end;
    }
    return longest;
}

} // namespace

void SmoothEllipses::AppendRow(Figure& figure, const EllipseShape& shape, std::int64_t row,
                               std::int64_t first, std::int64_t last) {
    RowSums sums(first, last);
    for (int part = 0; part < PartsOfRow; ++part) {
        const double distance = static_cast<double>(row) - shape.centreY + (part + 0.5) / PartsOfRow - 0.5;
        if (std::fabs(distance) >= shape.semiY) {
            continue;
        }
        const double outer = HalfWidth(shape.semiX, shape.semiY, distance);
        if (shape.holeX > 0.0 && shape.holeY > std::fabs(distance)) {
            const double hole = HalfWidth(shape.holeX, shape.holeY, distance);
            sums.Add(shape.centreX - outer, shape.centreX - hole);
            sums.Add(shape.centreX + hole, shape.centreX + outer);
        } else {
            sums.Add(shape.centreX - outer, shape.centreX + outer);
        }
    }
    const std::vector<std::uint8_t> bytes = sums.Coverage();
    const auto [from, to] = LongestAlike(bytes);
    figure.rows.push_back({first, figure.coverage.size(), static_cast<std::int32_t>(from),
                           static_cast<std::int32_t>(to - from), static_cast<std::int32_t>(bytes.size() - to),
                           from < to && bytes[from] != 0});
    figure.coverage.insert(figure.coverage.end(), bytes.begin(),
                           bytes.begin() + static_cast<std::ptrdiff_t>(from));
    figure.coverage.insert(figure.coverage.end(), bytes.begin() + static_cast<std::ptrdiff_t>(to),
                           bytes.end());
}

void SmoothEllipses::PaintRow(const PixelGrid& grid, const Figure& figure, const Row& row, std::int64_t down,
                              std::int64_t right, std::uint32_t pixel) {
    if (down < 0 || down >= grid.height) {
        return;
    }
    const std::uint8_t* bytes = figure.coverage.data() + row.bytes;
    std::uint32_t* const line = grid.pixels + down * grid.width;
    const auto blend = [&](std::int64_t column, std::int32_t count) {
        for (std::int32_t i = 0; i < count; ++i, ++bytes, ++column) {
            if (*bytes != 0 && column >= 0 && column < grid.width) {
                line[column] = Blend(line[column], pixel, *bytes);
            }
        }
    };
    const std::int64_t left = row.left + right;
    blend(left, row.before);
    if (row.full) {
        FillSpan(grid, down, left + row.before, left + row.before + row.between - 1, pixel);
    }
    blend(left + row.before + row.between, row.behind);
}

const SmoothEllipses::Figure& SmoothEllipses::FigureOf(const EllipseShape& shape) {
    const auto found = std::find_if(kept.begin(), kept.end(),
                                    [&](const Figure& figure) { return IsSame(figure.shape, shape); });
    if (found != kept.end()) {
        return *found;
    }
    if (kept.size() == MostKept) {
        kept.pop_front();
    }
    Figure& figure = kept.emplace_back();
    figure.shape = shape;
    figure.top = FirstPixel(shape.centreY - shape.semiY);
    for (std::int64_t row = figure.top; row <= LastPixel(shape.centreY + shape.semiY); ++row) {
        AppendRow(figure, shape, row, FirstPixel(shape.centreX - shape.semiX),
                  LastPixel(shape.centreX + shape.semiX));
    }
    return figure;
}

void SmoothEllipses::Paint(const PixelGrid& grid, const EllipseShape& ellipse, std::uint32_t pixel) {
    grid.Take(pixel);
    if (ellipse.semiX <= LargestKept && ellipse.semiY <= LargestKept) {
        const double right = std::floor(ellipse.centreX);
        const double down = std::floor(ellipse.centreY);
        EllipseShape shape = ellipse;
        shape.centreX -= right;
        shape.centreY -= down;
        const Figure& figure = FigureOf(shape);
        std::int64_t row = figure.top + static_cast<std::int64_t>(down);
        for (const Row& of : figure.rows) {
            PaintRow(grid, figure, of, row++, static_cast<std::int64_t>(right), pixel);
        }
        return;
    }
    const std::int64_t first = std::max<std::int64_t>(FirstPixel(ellipse.centreX - ellipse.semiX), 0);
    const std::int64_t last =
        std::min<std::int64_t>(LastPixel(ellipse.centreX + ellipse.semiX), grid.width - 1);
    const std::int64_t top = std::max<std::int64_t>(FirstPixel(ellipse.centreY - ellipse.semiY), 0);
    const std::int64_t bottom =
        std::min<std::int64_t>(LastPixel(ellipse.centreY + ellipse.semiY), grid.height - 1);
    for (std::int64_t row = top; row <= bottom && first <= last; ++row) {
        Figure figure;
        AppendRow(figure, ellipse, row, first, last);
        PaintRow(grid, figure, figure.rows.front(), row, 0, pixel);
    }
}

} // namespace quelmont
