#include "areas/fill_areas.h"

#include "areas/area_frame.h"
#include "areas/area_lines.h"
#include "areas/area_plan.h"
#include "core/map_design.h"
#include "core/rounding.h"
#include "core/run_time_error.h"
#include "output/area_output.h"
#include "output/fan_out.h"
#include "platform/machine.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <functional>
#include <memory>
#include <utility>
#include <vector>

namespace quelmont {

namespace {

/// Calls use for the frame of the map, or of each of its lobes, whose bounds the design has then.
void ForEachFrame(const std::function<void(const AreaFrame&)>& use) {
    ForEachPartOfMap([&] {
        if (const std::unique_ptr<AreaFrame> frame = FrameOfMap()) {
            use(*frame);
        }
    });
}

/// Lines may be thinned so much that nothing is seen of it.
LineDetail DetailOfMap() {
    constexpr double share = 0.35; // of a device's unit
    LineDetail detail{.south = 90 * SecPerDegree, .north = -90 * SecPerDegree};
    double unitsPerSecond = 0.0;
    ForEachFrame([&](const AreaFrame& frame) {
        unitsPerSecond = std::max(unitsPerSecond, frame.UnitsPerSecond());
        detail.south = std::min(detail.south, frame.south);
        detail.north = std::max(detail.north, frame.north);
    });
    const double deviceUnits = std::max(unitsPerSecond * DeviceUnitsPerUnit(), share / SecPerDegree);
    detail.least = std::max(1, RoundToInt32(share / deviceUnits));
    return detail;
}

/// What the first file with areas leaves of the sea.
PlaneRings Sea(const std::vector<AreaPlan>& plans) {
    PlaneRings sea;
    ForEachFrame([&](const AreaFrame& frame) { sea.push_back(frame.Outline()); });
    const auto first =
        std::find_if(plans.begin(), plans.end(), [](const AreaPlan& plan) { return !plan.Empty(); });
    if (first != plans.end()) {
        const PlaneRings& spared = first->SparedBySea().rings;
        sea.insert(sea.end(), spared.begin(), spared.end());
    }
    return sea;
}

std::string_view TitleOf(AreaClass area) {
    return area == AreaClass::Land ? LandTitle : area == AreaClass::Lake ? LakesTitle : SeaTitle;
}

/// False when Escape was pressed.
bool PlanFile(const InputFileEntry& file, const LineDetail& detail, std::vector<AreaPlan>& plans) {
    std::vector<Ring> rings;
    try {
        if (!ReadAreaRings(file, detail, rings)) {
            return false;
        }
    } catch (const RunTimeError&) {
        return true; // the plot of its lines tells of it
    }
    plans.emplace_back(std::move(rings), Design.Fill);
    ForEachFrame([&](const AreaFrame& frame) { plans.back().Cut(frame); });
    Machine().pump->DoEvents();
    return Design.PlotStopReason != StopReason::Escape;
}

} // namespace

bool HasFilledAreas() { return Design.Fill != FillChoice{}; }

void FillAreas() {
    if (!HasFilledAreas() || !Design.LobeFirst) {
        return;
    }
    std::vector<AreaPlan> plans;
    if (Design.Fill.land || Design.Fill.lakes || Design.Fill.sea) {
        const LineDetail detail = DetailOfMap();
        for (const InputFileEntry& file : Design.InputFiles) {
            if (!PlanFile(file, detail, plans)) {
                return;
            }
        }
    }
    AreaOutput output;
    if (Design.Fill.sea) {
        output.Begin(SeaTitle);
        output.Fill(*Design.Fill.sea, Sea(plans));
    }
    for (const AreaPlan& plan : plans) {
        for (const AreaLayer& layer : plan.Layers()) {
            output.Begin(TitleOf(layer.area));
            output.Fill(layer.color, layer.rings);
        }
    }
}

} // namespace quelmont
