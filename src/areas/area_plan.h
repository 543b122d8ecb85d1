#pragma once

#include "areas/area_frame.h"
#include "areas/area_row.h"
#include "areas/file_areas.h"
#include "core/map_extras.h"
#include "core/standard_colors.h"
#include "output/area_rings.h"

#include <cstddef>
#include <map>
#include <memory>
#include <optional>
#include <utility>
#include <vector>

namespace quelmont {

/// What is painted in one colour at once.
struct AreaLayer {
    ColorValue color = 0;
    AreaClass area = AreaClass::Sea;
    std::vector<std::size_t> lines; ///< numbers of the closed lines that bound it together
    PlaneRings rings;               ///< the same on the map
};

/// The layers of one file from bottom to top: each covers the areas about those of the next, but what has no
/// colour is spared in all of them.
class AreaPlan {
public:
    AreaPlan(std::shared_ptr<const FileAreas> areas, const FillChoice& choice);

    /// Puts what is on a map behind the rings of the layers.
    void Cut(const AreaFrame& frame);

    const std::vector<AreaLayer>& Layers() const { return layers; }
    bool Empty() const { return layers.empty() && inSea.lines.empty(); }
    /// What the sea spares, its colour means nothing.
    const AreaLayer& SparedBySea() const { return inSea; }

private:
    void Add(const NestedRing& line);
    void Spare(const NestedRing& line);
    std::optional<ColorValue> ColorOf(AreaClass area) const;

    std::shared_ptr<const FileAreas> areas;
    FillChoice choice;
    std::vector<AreaLayer> layers;
    std::map<std::pair<std::size_t, AreaClass>, std::size_t> layerOf; ///< by depth and class
    AreaLayer inSea;
};

} // namespace quelmont
