#include "areas/area_plan.h"

#include <algorithm>

namespace quelmont {

AreaPlan::AreaPlan(std::shared_ptr<const FileAreas> areas_, const FillChoice& choice_)
    : areas(std::move(areas_)), choice(choice_) {
    const std::vector<NestedRing>& nested = areas->nested;
    std::vector<const NestedRing*> byDepth;
    byDepth.reserve(nested.size());
    for (const NestedRing& line : nested) {
        byDepth.push_back(&line);
    }
    std::stable_sort(byDepth.begin(), byDepth.end(),
                     [](const NestedRing* a, const NestedRing* b) { return a->depth < b->depth; });
    for (const NestedRing* line : byDepth) {
        if (ColorOf(line->inside)) {
            Add(*line);
        } else {
            Spare(*line);
        }
    }
}

std::optional<ColorValue> AreaPlan::ColorOf(AreaClass area) const {
    switch (area) {
    case AreaClass::Land:
        return choice.land;
    case AreaClass::Lake:
        return choice.lakes;
    case AreaClass::Sea:
        break;
    }
    return choice.sea;
}

void AreaPlan::Add(const NestedRing& line) {
    const auto [found, isNew] = layerOf.try_emplace({line.depth, line.inside}, layers.size());
    if (isNew) {
        layers.push_back({*ColorOf(line.inside), line.inside, {}, {}});
    }
    layers[found->second].lines.push_back(line.ring);
}

/// Cuts a line's inside out of everything that would be painted there beneath it, up to what is not painted
/// either.
void AreaPlan::Spare(const NestedRing& line) {
    const std::vector<NestedRing>& nested = areas->nested;
    std::size_t around = line.around;
    while (around != NestedRing::None && ColorOf(nested[around].inside)) {
        const NestedRing& painted = nested[around];
        layers[layerOf.at({painted.depth, painted.inside})].lines.push_back(line.ring);
        around = painted.around;
    }
    if (around == NestedRing::None) {
        inSea.lines.push_back(line.ring);
    }
}

void AreaPlan::Cut(const AreaFrame& frame) {
    const auto cut = [&](AreaLayer& layer) {
        for (const std::size_t line : layer.lines) {
            frame.Cut(areas->lines[line], layer.rings);
        }
    };
    std::for_each(layers.begin(), layers.end(), cut);
    if (choice.sea) {
        cut(inSea);
    }
}

} // namespace quelmont
