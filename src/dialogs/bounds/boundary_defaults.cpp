#include "dialogs/bounds/boundary_defaults.h"

#include "core/angle_text.h"
#include "core/degrees.h"
#include "core/map_design.h"
#include "dialogs/bounds/accept_bounds.h"
#include "dialogs/bounds/boundary_checks.h"
#include "dialogs/dialogs_state.h"
#include "graticule/calc_graticule.h"
#include "projection/lobe_row.h"
#include "projection/param_std_parallel.h"

#include <algorithm>
#include <cstddef>

namespace quelmont {

namespace {

bool WasAccepted() { return Design.ProjGridSet[static_cast<std::size_t>(Design.ProjNum)]; }

bool AcceptStoredParallels() {
    return AcceptStandardParallels(Design.StdParText[StdParTextNorth], Design.StdParText[StdParTextSouth]);
}

/// Where one parallel stands for two, they are each other's mirror image: those of a cone are not.
bool ParallelsAreOfThisKind() {
    return !HasOneStandardParallel() || LatitudeSeconds(Design.StdParText[StdParTextNorth]) ==
                                            -LatitudeSeconds(Design.StdParText[StdParTextSouth]);
}

} // namespace

void ProposeBounds() {
    if (WasAccepted() && WouldAccept(AcceptChain)) {
        return;
    }
    ConstantGrid();
    switch (Design.ProjNum) {
    case ProjMercator:
        Design.GridText[GridTextNorth] = "80    00    00    N";
        Design.GridText[GridTextSouth] = "80    00    00    S";
        Design.GridText[GridTextLatSpacing] = "020    00    00"; // 30 degrees do not divide the 160
        break;
    case ProjConformalConic:
        Design.GridText[GridTextSouth] = "60    00    00    S";
        break;
    case ProjInterruptedMollweide:
        Design.GridText[GridTextLatSpacing] = "010    00    00";
        Design.GridText[GridTextWest] = "020    00    00    E";
        Design.GridText[GridTextEast] = "020    00    00    E";
        Design.GridText[GridTextLonSpacing] = "010    00    00"; // 45 degrees do not divide the lobes
        break;
    case ProjGnomonic:
        Design.GridText[GridTextRange] = "060    00    00";
        break;
    case ProjStereographic:
    case ProjOrthographic:
        Design.GridText[GridTextRange] = "090    00    00";
        break;
    default:
        break;
    }
}

void ProposeStandardParallels() {
    if (!WasAccepted() || !ParallelsAreOfThisKind() || !WouldAccept(AcceptStoredParallels)) {
        ParamStdParallel();
    }
}

void ProposeLobes() {
    if (WasAccepted() && WouldAccept(AcceptLobes)) {
        return;
    }
    Design.LobeText = {"2",
                       "2",
                       Design.GridText[GridTextWest],
                       "100    00    00    E",
                       "100    00    00    W",
                       "000    00    00    W",
                       "140    00    00    E",
                       "070    00    00    W",
                       "000    00    00    W",
                       ""};
}

void OrderLobes() {
    constexpr std::size_t firstInterruption = 3;
    constexpr std::size_t perHemisphere = 3;
    Design.LobeLonText.fill({});
    std::size_t boundary = 0;
    for (const std::size_t hemisphere : {0U, 1U}) {
        const std::size_t first = firstInterruption + hemisphere * perHemisphere;
        Design.LobeLonText[boundary++] = Design.GridText[GridTextWest];
        for (std::int16_t k = 0; k < LobeInterruptions(hemisphere); ++k) {
            Design.LobeLonText[boundary++] = Design.LobeText[first + static_cast<std::size_t>(k)];
        }
        Design.LobeLonText[boundary++] = Design.GridText[GridTextEast];
    }
    std::transform(Design.LobeLonText.begin(), Design.LobeLonText.end(), DialogsNow.LobeLonSec.begin(),
                   [](const std::string& text) { return LongitudeSeconds(text); });
    std::transform(DialogsNow.LobeLonSec.begin(), DialogsNow.LobeLonSec.end(), Design.LobeLonDeg.begin(),
                   [](std::int32_t seconds) { return DegreesOf(seconds); });
}

void StoreStandardParallels(const std::string& north, const std::string& south) {
    Design.StdParText = {north, south};
    Design.StdParNorthText = north;
    Design.StdParSouthText = south;
    Design.StdParNorth = DegreesOf(LatitudeSeconds(north));
    Design.StdParSouth = DegreesOf(LatitudeSeconds(south));
}

void ForgetStandardParallels() {
    Design.StdParNorthText = "00    00    00    N";
    Design.StdParSouthText = "00    00    00    S";
}

} // namespace quelmont
