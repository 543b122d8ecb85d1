#include "core/angle_text.h"
#include "core/error_box.h"
#include "core/map_design.h"
#include "core/number_text.h"
#include "core/rounding.h"
#include "graticule/calc_graticule.h"
#include "graticule/graticule_fields.h"
#include "projection/project_select.h"

#include <cstdlib>

namespace quelmont {

namespace {

/// Seconds of a latitude without its letter: the hemisphere is the lobe's.
std::int32_t LatitudeSize(std::string_view text) { return std::abs(LatitudeSeconds(text)); }

/// The lobes of one hemisphere stand in a row of boundaries that begins at first: boundaries first
/// to first + interruptions + 1, lobes first + 1 to first + interruptions + 1.
void PlaceLobes(std::size_t first, std::size_t interruptions) {
    std::array<double, 5> boundary = {};
    for (std::size_t k = 0; k <= interruptions + 1; ++k) {
        boundary[k] = Design.LobeLonDeg[first + k];
        while (k > 0 && boundary[k] <= boundary[k - 1]) {
            boundary[k] += 360.0;
        }
    }
    for (std::size_t j = 1; j <= interruptions + 1; ++j) {
        Design.ProjLat = 0.0;
        Design.ProjLon = (boundary[j] + boundary[j - 1]) / 2.0 - boundary[0];
        ProjectSelect();
        Design.LobeCentral[first + j] = Design.ProjX;
    }
}

} // namespace

std::int16_t LobeInterruptions(std::size_t hemisphere) {
    const std::int16_t count = RoundToInt16(ValueOf(Design.LobeText[hemisphere]));
    if (count < 0 || count > 3) {
        throw RunTimeError(ErrorSubscript);
    }
    return count;
}

void CalcGraticuleInterrupt(std::int16_t lobe) {
    Guarded("CalcGraticuleInterrupt", [&] {
        if (lobe < 1 || static_cast<std::size_t>(lobe) >= Design.LobeLonText.size()) {
            throw RunTimeError(ErrorSubscript);
        }
        const auto index = static_cast<std::size_t>(lobe);
        if (lobe <= LobeInterruptions(0) + 1) {
            Design.LatNorthSec = LatitudeSize(Design.GridText[0]);
            Design.LatSouthSec = 0;
        } else {
            Design.LatNorthSec = 0;
            Design.LatSouthSec = -LatitudeSize(Design.GridText[1]);
        }
        Design.LatGridSec = ArcSeconds(Design.GridText[2]);
        Design.LonWestSec = LongitudeSeconds(Design.LobeLonText[index - 1]);
        Design.LonEastSec = LongitudeSeconds(Design.LobeLonText[index]);
        Design.LonGridSec = ArcSeconds(Design.GridText[5]);
        SpanLongitudes();
        CountDivisions();
        DegreesFromSeconds();
        CompactTexts(Design.LobeLonText[index - 1], Design.LobeLonText[index]);
        CentreOfRectangle();
        CentralTerms();
    });
}

void LonInterruptOffset() {
    Guarded("LonInterruptOffset", [] {
        Design.LobeCentral = {};
        Design.LobeOffsetX = 0.0;
        const auto north = static_cast<std::size_t>(LobeInterruptions(0));
        const auto south = static_cast<std::size_t>(LobeInterruptions(1));
        PlaceLobes(0, north);
        PlaceLobes(north + 2, south);
    });
}

} // namespace quelmont
