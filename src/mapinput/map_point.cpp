#include "mapinput/map_point.h"

#include "core/degrees.h"
#include "core/map_design.h"
#include "core/rounding.h"
#include "mapinput/map_input_state.h"
#include "output/fan_out.h"
#include "platform/machine.h"
#include "projection/utm.h"

#include <limits>

namespace quelmont {

namespace {

std::int32_t FitInt32(std::int64_t value) {
    if (value < std::numeric_limits<std::int32_t>::min() ||
        value > std::numeric_limits<std::int32_t>::max()) {
        throw RunTimeError(ErrorOverflow);
    }
    return static_cast<std::int32_t>(value);
}

} // namespace

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

void MapPoint::TestBounds() {
    if (Family() == ClippingFamily::Metres) {
        ConvertToMetres();
    } else {
        const std::int64_t lon = static_cast<std::int64_t>(Design.PointLonSec) - Design.LonWestSec;
        Design.PointLonSec = FitInt32(lon < 0 ? lon + SecPerCircle : lon);
    }
    CompareBounds();
}

void MapPoint::CompareBounds() {
    PointInBounds = Design.LatSouthSec <= Design.PointLatSec && Design.PointLatSec <= Design.LatNorthSec &&
                    Design.LonZeroSec <= Design.PointLonSec && Design.PointLonSec <= Design.LonSpanSec;
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

bool MapPoint::PlotStep() {
    if (!CountPoint()) {
        return false;
    }
    if (MapInputNow.StartLine) {
        PrevInBounds = false;
        Design.PointLatSecPrev = Design.PointLatSec;
        Design.PointLonSecPrev = Design.PointLonSec;
    }
    Clip();
    MapInputNow.StartLine = false;
    hasPrevious = true;
    PrevInBounds = PointInBounds;
    Design.PointLatSecPrev = Design.PointLatSec;
    Design.PointLonSecPrev = Design.PointLonSec;
    return true;
}

void MapPoint::PassOutside(std::int64_t count) {
    TestBounds();
    PointsRead += count;
    PrevInBounds = PointInBounds;
    Design.PointLatSecPrev = Design.PointLatSec;
    Design.PointLonSecPrev = Design.PointLonSec;
}

bool MapPoint::LetEventsRun() {
    Machine().window->Refresh();
    return RunEvents();
}

bool MapPoint::SkipPoints(std::int64_t count) {
    PointsRead += count;
    return RunEvents();
}

bool MapPoint::RunEvents() {
    Machine().pump->DoEvents();
    return Design.PlotStopReason != StopReason::Escape;
}

} // namespace quelmont
