#include "areas/fill_areas.h"

#include "areas/area_frame.h"
#include "areas/area_lines.h"
#include "areas/area_plan.h"
#include "areas/file_areas.h"
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

/// The largest whole number of 1, 2, 3, 4, 6, 8, 12 and so on that is not above a number of at least 1.
std::int32_t StepDown(std::int32_t number) {
    std::int32_t step = 1;
    while (number / 2 >= step) {
        step *= 2;
    }
    return number >= step / 2 * 3 && step > 1 ? step / 2 * 3 : step;
}

/// Lines may be thinned so much that nothing is seen of it. In steps, so that a map that is moved or made a
/// little larger needs the same.
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
    detail.least = StepDown(std::max(1, RoundToInt32(share / deviceUnits)));
    constexpr std::int32_t step = 10 * SecPerDegree;
    const auto outward = [](std::int32_t latitude) { return (latitude + step - 1) / step * step; };
    detail.north = detail.north > 0 ? outward(detail.north) : detail.north / step * step;
    detail.south = detail.south < 0 ? -outward(-detail.south) : detail.south / step * step;
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
    std::shared_ptr<const FileAreas> areas;
    try {
        areas = AreasOfFile(file, detail);
    } catch (const RunTimeError&) {
        return true; // the plot of its lines tells of it
    }
    if (!areas) {
        return false;
    }
    plans.emplace_back(std::move(areas), Design.Fill);
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
