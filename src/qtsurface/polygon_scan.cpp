#include "qtsurface/polygon_scan.h"

namespace quelmont {

PolygonScan::PolygonScan(std::span<const SurfacePoint> points, std::span<const std::int32_t> counts,
                         const ScanRows& rows)
    : scanned(rows) {
    for (const std::int32_t count : counts) {
        const auto outline = points.first(static_cast<std::size_t>(count));
        points = points.subspan(outline.size());
        for (std::size_t i = 0; i < outline.size(); ++i) {
            SurfacePoint upper = outline[i];
            SurfacePoint lower = outline[i + 1 == outline.size() ? 0 : i + 1];
            const int direction = upper.y < lower.y ? 1 : -1;
            if (direction < 0) {
                std::swap(upper, lower);
            }
            if (upper.y < lower.y && lower.y > rows.first && upper.y < rows.At(rows.count)) {
                const double slope =
                    (static_cast<double>(lower.x) - upper.x) / (static_cast<double>(lower.y) - upper.y);
                edges.push_back({upper, lower, slope, direction});
            }
        }
    }
    std::sort(edges.begin(), edges.end(), [](const Edge& a, const Edge& b) { return a.upper.y < b.upper.y; });
}

std::int64_t PolygonScan::FirstRow() const {
    if (edges.empty()) {
        return scanned.count;
    }
    const std::int64_t above = edges.front().upper.y - scanned.first;
    return above <= 0 ? 0 : (above + scanned.step - 1) / scanned.step;
}

std::size_t PolygonScan::FindCrossings(std::int64_t y, std::size_t next) {
    std::erase_if(active, [&](std::size_t index) { return edges[index].lower.y <= y; });
    for (; next < edges.size() && edges[next].upper.y <= y; ++next) {
        if (edges[next].lower.y > y) {
            active.push_back(next);
        }
    }
    crossings.clear();
    for (const std::size_t index : active) {
        const Edge& edge = edges[index];
        crossings.push_back(
            {edge.upper.x + static_cast<double>(y - edge.upper.y) * edge.slope, edge.direction});
    }
    std::sort(crossings.begin(), crossings.end(),
              [](const Crossing& a, const Crossing& b) { return a.x < b.x; });
    return next;
}

} // namespace quelmont
