#include "mapinput/map_point.h"

#include "core/degrees.h"
#include "core/map_design.h"
#include "core/rounding.h"
#include "mapinput/map_input_state.h"
#include "mapinput/plot_progress.h"
#include "output/fan_out.h"
#include "platform/machine.h"
#include "projection/utm.h"

#include <algorithm>

namespace quelmont {

void MapPoint::BeginFile() {
    BeginClipping();
    Design.UtmPointPath = true;
    MapInputNow.StartLine = !hasPrevious || PrevInBounds;
    PointsRead = 0;
}

void MapPoint::ConvertToMetres() {
    Design.ProjLon = DegreesOf(Design.PointLonSec);
    Design.ProjLat = DegreesOf(Design.PointLatSec);
    UtmForward();
    Design.PointLonSec = RoundToInt32(Design.ProjLon);
    Design.PointLatSec = RoundToInt32(Design.ProjLat);
}

void MapPoint::StartNewLine() {
    MapInputNow.StartLine = true;
    Design.PointStatus = PointBeginsLine;
    if (PointInBounds && Design.PointCount > 0) {
        PrintLineBrkDisk();
        Design.LineStart = LineMoves;
    }
}

void MapPoint::EndLine() {
    const Export armed = ArmedExport();
    if (Design.PointCount > 0 && armed != Export::None &&
        (armed != Export::Cgm || Design.CurrentSymbolType == SymbolLine)) {
        PrintLineBrkDisk();
    }
}

void MapPoint::PassOutside(std::int64_t count) {
    TestBounds();
    PointsRead += count;
    PrevInBounds = PointInBounds;
    RememberPoint();
}

bool MapPoint::LetEventsRun() {
    Machine().window->Refresh();
    return RunEvents();
}

bool MapPoint::CountPoints(std::int64_t count) {
    for (const std::int64_t end = PointsRead + count; PointsRead < end;) {
        PointsRead = std::min(end, PointsRead - PointsRead % PointsPerTurn + PointsPerTurn);
        if (PointsRead % PointsPerTurn == 0 && !LetEventsRun()) {
            return false;
        }
    }
    return true;
}

bool MapPoint::SkipPoints(std::int64_t count) {
    PointsRead += count;
    return RunEvents();
}

bool MapPoint::RunEvents() {
    ShowProgress();
    Machine().pump->DoEvents();
    return Design.PlotStopReason != StopReason::Escape;
}

} // namespace quelmont
