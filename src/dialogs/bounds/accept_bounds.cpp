#include "dialogs/bounds/accept_bounds.h"

#include "core/error_box.h"
#include "core/map_design.h"
#include "core/unseen_boxes.h"
#include "dialogs/bounds/boundary_checks.h"
#include "dialogs/bounds/boundary_defaults.h"
#include "dialogs/bounds/lobe_checks.h"
#include "graticule/calculate_bounds.h"
#include "graticule/lobes.h"
#include "projection/lobe_row.h"
#include "projection/param_select.h"
#include "projection/projection_table.h"
#include "projection/utm.h"

#include <algorithm>
#include <cstddef>
#include <initializer_list>

namespace quelmont {

namespace {

/// A field of a dialog and the index of its text.
struct FieldText {
    const char* control;
    std::size_t index;
};

template <typename Texts>
bool FieldsPass(const char* dialog, std::initializer_list<FieldText> fields, const Texts& texts) {
    return std::none_of(fields.begin(), fields.end(), [&](const FieldText& field) {
        return IsRefused(CheckBoundaryField(dialog, field.control, texts[field.index]));
    });
}

bool AcceptRectangle() {
    return FieldsPass("LatLonBounds",
                      {{"LatN", 0}, {"LatS", 1}, {"LatGr", 2}, {"LonW", 3}, {"LonE", 4}, {"LonGr", 5}},
                      Design.GridText) &&
           !IsRefused(AcceptLatLonBounds(Design.GridText[GridTextNorth], Design.GridText[GridTextSouth])) &&
           CalculateBounds();
}

bool AcceptCircle() {
    const bool perspective = Design.ProjNum == ProjVerticalPerspective;
    const bool passed = FieldsPass(perspective ? "LatLonBoundsVp" : "LatLonBoundsAz",
                                   {{"LatCentral", 6},
                                    {"LonCentral", 7},
                                    {"LatGr", 2},
                                    {"LonGr", 5},
                                    perspective ? FieldText{"VpDistanceKM", 9} : FieldText{"AzRangeDist", 8}},
                                   Design.GridText) &&
                        (perspective || !IsRefused(AcceptLatLonBoundsAz(Design.GridText[GridTextRange]))) &&
                        CalculateBounds();
    if (passed) {
        ForgetStandardParallels();
    }
    return passed;
}

bool AcceptUtm() {
    if (!FieldsPass("UtmParameters", {{"UtmLonCentral", 0}, {"UtmLatOrigin", 1}}, Design.UtmText)) {
        return false;
    }
    CalcUtmZone();
    return CalculateBounds();
}

/// What follows the bounds on some projections.
bool AcceptFollowUp() {
    if (HasStandardParallels()) {
        ProposeStandardParallels();
        return AcceptStandardParallels(Design.StdParText[StdParTextNorth],
                                       Design.StdParText[StdParTextSouth]);
    }
    if (Design.ProjNum == ProjInterruptedMollweide) {
        ProposeLobes();
        return AcceptLobes();
    }
    return true;
}

} // namespace

bool AcceptBounds() {
    return Design.ProjNum == ProjUtm     ? AcceptUtm()
           : IsAzimuthal(Design.ProjNum) ? AcceptCircle()
                                         : AcceptRectangle();
}

bool AcceptStandardParallels(const std::string& north, const std::string& south) {
    if (IsRefused(CheckBoundaryField("LatLonStdPar", "LatNorthStdPar", north)) ||
        IsRefused(CheckBoundaryField("LatLonStdPar", "LatSouthStdPar", south)) ||
        IsRefused(AcceptLatLonStdPar(north, south))) {
        return false;
    }
    StoreStandardParallels(north, south);
    return true;
}

bool AcceptLobes() {
    constexpr std::size_t leftBoundary = 2;
    constexpr std::size_t firstInterruption = 3;
    constexpr std::size_t perHemisphere = 3;
    Design.LobeText[leftBoundary] = Design.GridText[GridTextWest];
    for (const std::size_t hemisphere : {0U, 1U}) {
        for (std::int16_t k = 0; k < LobeInterruptions(hemisphere); ++k) {
            const std::size_t field = hemisphere * perHemisphere + static_cast<std::size_t>(k);
            if (IsRefused(CheckInterruption(field, Design.LobeText[firstInterruption + field]))) {
                return false;
            }
        }
    }
    OrderLobes();
    if (IsRefused(AcceptLatLonInterrupt())) {
        return false;
    }
    LonInterruptOffset();
    return true;
}

bool AcceptChain() { return AcceptBounds() && AcceptFollowUp(); }

void FinishAcceptance() {
    ParamSelect();
    Design.ProjGridSet[static_cast<std::size_t>(Design.ProjNum)] = true;
}

bool AcceptProjection() {
    const DesignBounds before = Design;
    bool accepted = false;
    Guarded("AcceptProjection", [&] { accepted = AcceptChain(); });
    if (accepted) {
        FinishAcceptance();
    } else {
        static_cast<DesignBounds&>(Design) = before;
    }
    return accepted;
}

bool WouldAccept(bool (*step)()) {
    const DesignBounds before = Design;
    const UnseenBoxes unseen;
    bool accepted = false;
    Guarded("WouldAccept", [&] { accepted = step(); });
    static_cast<DesignBounds&>(Design) = before;
    return accepted && !unseen.Any();
}

} // namespace quelmont
