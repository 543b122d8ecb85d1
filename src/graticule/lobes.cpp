#include "graticule/lobes.h"

#include "core/angle_text.h"
#include "core/error_box.h"
#include "core/map_design.h"
#include "core/run_time_error.h"
#include "graticule/graticule_fields.h"
#include "projection/lobe_row.h"
#include "projection/project_select.h"

#include <algorithm>

namespace quelmont {

namespace {

constexpr std::int32_t Equator = 0;

/// Each lobe lies between the boundary before its number and the one at it.
void PlaceLobes(const LobeRow& row) {
    const double west = Design.LobeLonDeg[row.first - 1];
    double before = west;
    for (std::size_t lobe = row.first; lobe <= row.last; ++lobe) {
        double boundary = Design.LobeLonDeg[lobe];
        while (boundary <= before) {
            boundary += 360.0;
        }
        Design.ProjLat = 0.0;
        Design.ProjLon = (boundary + before) / 2.0 - west;
        ProjectSelect();
        Design.LobeCentral[lobe] = Design.ProjX;
        before = boundary;
    }
}

} // namespace

void CalcGraticuleInterrupt(std::int16_t lobe) {
    Guarded("CalcGraticuleInterrupt", [&] {
        if (lobe < 1 || static_cast<std::size_t>(lobe) >= Design.LobeLonText.size()) {
            throw RunTimeError(ErrorSubscript);
        }
        const auto index = static_cast<std::size_t>(lobe);
        const bool northern = index <= LobesOf(0).last;
        const auto within = [northern](std::int32_t latitude) {
            return northern ? std::max(latitude, Equator) : std::min(latitude, Equator);
        };
        Design.LatNorthSec = within(LatitudeSeconds(Design.GridText[GridTextNorth]));
        Design.LatSouthSec = within(LatitudeSeconds(Design.GridText[GridTextSouth]));
        Design.LatGridSec = ArcSeconds(Design.GridText[GridTextLatSpacing]);
        Design.LonWestSec = LongitudeSeconds(Design.LobeLonText[index - 1]);
        Design.LonEastSec = LongitudeSeconds(Design.LobeLonText[index]);
        Design.LonGridSec = ArcSeconds(Design.GridText[GridTextLonSpacing]);
        SpanLongitudes();
        CountDivisions();
        Design.LatGridCount = std::max(Design.LatGridCount, 1);
        DegreesFromSeconds();
        CompactTexts(Design.LobeLonText[index - 1], Design.LobeLonText[index]);
        CentreOfRectangle();
        CentralTerms();
    });
}

std::vector<std::int16_t> LobesWithHeight() {
    std::vector<std::int16_t> lobes;
    for (const LobeRow& row : {LobesOf(0), LobesOf(1)}) {
        for (std::size_t number = row.first; number <= row.last; ++number) {
            const auto lobe = static_cast<std::int16_t>(number);
            CalcGraticuleInterrupt(lobe);
            if (Design.LatNorthSec > Design.LatSouthSec) {
                lobes.push_back(lobe);
            }
        }
    }
    return lobes;
}

void LonInterruptOffset() {
    Guarded("LonInterruptOffset", [] {
        Design.LobeCentral = {};
        Design.LobeOffsetX = 0.0;
        PlaceLobes(LobesOf(0));
        PlaceLobes(LobesOf(1));
    });
}

} // namespace quelmont
