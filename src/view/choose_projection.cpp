#include "view/choose_projection.h"

#include "core/number_text.h"
#include "core/unseen_boxes.h"
#include "mainwindow/projection_menu.h"
#include "platform/machine.h"
#include "projection/projection_table.h"
#include "view/bounds_proposal.h"
#include "view/choose_projection_form.h"
#include "view/design_put_back.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <optional>
#include <utility>

namespace quelmont {

namespace {

constexpr std::size_t MostOfRow = 5;

struct RankedRow {
    MapPurpose purpose;
    RegionKind kind;
    std::array<std::int16_t, MostOfRow> projections; ///< 0 where there are fewer
};

using P = MapPurpose;
using K = RegionKind;

// Short names for the table alone.
constexpr std::int16_t Merc = ProjMercator, Equi = ProjEquirectangular, CylE = ProjCylindricalEqualArea,
                       Hamm = ProjHammer, Moll = ProjMollweide, Intr = ProjInterruptedMollweide,
                       Robi = ProjRobinson, EqCo = ProjEquidistantConic, Conf = ProjConformalConic,
                       Albe = ProjAlbers, Gnom = ProjGnomonic, Ster = ProjStereographic,
                       Orth = ProjOrthographic, Pers = ProjVerticalPerspective,
                       AzEq = ProjAzimuthalEquidistant, AzAr = ProjAzimuthalEqualArea, Utm = ProjUtm;

// clang-format off
constexpr std::array Ranking = std::to_array<RankedRow>({
    {P::Areas,      K::World,      {Moll, Hamm, Intr, CylE, AzAr}},
    {P::Areas,      K::Hemisphere, {AzAr, Hamm, Moll}},
    {P::Areas,      K::Pole,       {AzAr, Albe}},
    {P::Areas,      K::Equator,    {CylE, AzAr, Hamm}},
    {P::Areas,      K::Wide,       {Albe, AzAr, CylE}},
    {P::Areas,      K::Compact,    {AzAr, Albe, CylE}},
    {P::Areas,      K::Zone,       {AzAr, Albe, Utm}},

    {P::Directions, K::World,      {Merc, AzEq}},
    {P::Directions, K::Hemisphere, {Merc, AzEq, Gnom, Ster}},
    {P::Directions, K::Pole,       {Gnom, Ster, AzEq}},
    {P::Directions, K::Equator,    {Merc, Gnom, AzEq}},
    {P::Directions, K::Wide,       {Merc, Gnom, Conf, AzEq}},
    {P::Directions, K::Compact,    {Gnom, Merc, Ster, AzEq}},
    {P::Directions, K::Zone,       {Utm, Merc, Gnom}},

    {P::Shapes,     K::World,      {Merc, Conf, Robi}},
    {P::Shapes,     K::Hemisphere, {Ster, Merc}},
    {P::Shapes,     K::Pole,       {Ster, Conf}},
    {P::Shapes,     K::Equator,    {Merc, Ster}},
    {P::Shapes,     K::Wide,       {Conf, Ster, Merc}},
    {P::Shapes,     K::Compact,    {Ster, Conf, Merc}},
    {P::Shapes,     K::Zone,       {Utm, Ster, Conf}},

    {P::Distances,  K::World,      {AzEq, Equi}},
    {P::Distances,  K::Hemisphere, {AzEq, Equi}},
    {P::Distances,  K::Pole,       {AzEq, EqCo}},
    {P::Distances,  K::Equator,    {AzEq, Equi}},
    {P::Distances,  K::Wide,       {AzEq, EqCo, Equi}},
    {P::Distances,  K::Compact,    {AzEq, EqCo, Equi}},
    {P::Distances,  K::Zone,       {AzEq, Utm, EqCo}},

    {P::Look,       K::World,      {Robi, Moll, Hamm, Orth, Pers}},
    {P::Look,       K::Hemisphere, {Orth, Pers, AzAr, AzEq}},
    {P::Look,       K::Pole,       {AzEq, Orth, Pers}},
    {P::Look,       K::Equator,    {Robi, Equi, AzEq, Pers}},
    {P::Look,       K::Wide,       {EqCo, AzEq, Pers}},
    {P::Look,       K::Compact,    {AzEq, EqCo, Pers}},
    {P::Look,       K::Zone,       {Utm, AzEq, Equi}},
});

struct Reason {
    MapPurpose purpose;
    std::int16_t projNum;
    std::string_view text;
};

constexpr std::array Reasons = std::to_array<Reason>({
    {P::Areas,      Moll, "Areas are true everywhere, and the parallels are straight."},
    {P::Areas,      Hamm, "Areas are true everywhere, and the edges are less sheared than on other ovals."},
    {P::Areas,      Intr, "Areas are true everywhere, and cuts through the oceans keep the continents in shape."},
    {P::Areas,      CylE, "Areas are true everywhere, and shapes are best along the parallel of true scale."},
    {P::Areas,      AzAr, "Areas are true everywhere, and shapes are best about the center."},
    {P::Areas,      Albe, "Areas are true everywhere, and shapes are good all along the standard parallels."},
    {P::Areas,      Utm,  "In a zone as narrow as this, areas are true to some tenths of a percent."},

    {P::Directions, Merc, "A course by compass is a straight line."},
    {P::Directions, Gnom, "The shortest way between any two places is a straight line."},
    {P::Directions, AzEq, "Directions from the center are true for every place."},
    {P::Directions, Ster, "Angles are true at every place, and directions from the center for every place."},
    {P::Directions, Conf, "Angles are true at every place, and the shortest way is nearly a straight line."},
    {P::Directions, Utm,  "Angles are true at every place, and the shortest way is nearly a straight line."},

    {P::Shapes,     Merc, "Small shapes are true, and their scale hardly changes along the equator."},
    {P::Shapes,     Conf, "Small shapes are true, and their scale hardly changes along the standard parallels."},
    {P::Shapes,     Ster, "Small shapes are true, circles stay circles, and their scale changes least about the center."},
    {P::Shapes,     Robi, "Shapes are not quite true, but no part of the world is stretched beyond measure."},
    {P::Shapes,     Utm,  "Small shapes are true, and their scale hardly changes within the zone."},

    {P::Distances,  AzEq, "Distances from the center are true for every place, and so are directions."},
    {P::Distances,  Equi, "Distances are true along every meridian and the parallel of true scale."},
    {P::Distances,  EqCo, "Distances are true along every meridian and both standard parallels."},
    {P::Distances,  Utm,  "In a zone as narrow as this, distances are true to about a thousandth."},

    {P::Look,       Robi, "Neither areas nor shapes are quite true, so that both look right."},
    {P::Look,       Moll, "The world as an oval with true areas and straight parallels."},
    {P::Look,       Hamm, "The world as an oval with true areas, bent a little as a globe is."},
    {P::Look,       Orth, "The globe as it looks from far away."},
    {P::Look,       Pers, "The globe as it looks from a spacecraft."},
    {P::Look,       AzAr, "A view of the globe with true areas as far as its edge."},
    {P::Look,       AzEq, "Between true areas and true shapes, with even distances from the center."},
    {P::Look,       EqCo, "Between true areas and true shapes, for what reaches from west to east."},
    {P::Look,       Equi, "Parallels and meridians make an even net that is easily read."},
    {P::Look,       Utm,  "In a zone as narrow as this, everything looks right."},
});
// clang-format on

constexpr std::size_t RegionKinds = 7;
static_assert(Ranking.size() == MapPurposes * RegionKinds);

/// A percentage with as many figures as mean something.
std::string PercentText(double share) {
    const double percent = std::fabs(share) * 100.0;
    const std::string_view picture = percent >= 10.0 ? "0" : percent >= 1.0 ? "0.0" : "0.00";
    const std::string figures = FormatNumber(percent, picture);
    const bool none = figures == "0.00";
    return none ? "0 %" : (share < 0.0 ? "\u2212" : "+") + figures + " %";
}

std::string AngleErrorText(double degrees) {
    const std::string figures = FormatNumber(degrees, degrees >= 10.0  ? "0"
                                                      : degrees >= 1.0 ? "0.0"
                                                                       : "0.00");
    return (figures == "0.00" ? "0" : figures) + "\u00B0";
}

/// The texts of a proposal in the place of the design's, as long as they stand in its dialogs.
class StandingProposal {
public:
    explicit StandingProposal(const ProjectionCandidate& candidate) {
        Design.GridText = candidate.bounds.GridText;
        Design.StdParText = candidate.bounds.StdParText;
        Design.LobeText = candidate.bounds.LobeText;
        Design.UtmText = candidate.bounds.UtmText;
        Design.SpheroidName = candidate.bounds.SpheroidName;
        Design.ProjGridSet.at(static_cast<std::size_t>(candidate.projNum)) = true;
        Design.BoundsChanged = false;
    }
    ~StandingProposal() {
        if (!Design.BoundsChanged) {
            static_cast<DesignBounds&>(Design) = std::move(bounds);
            Design.ProjGridSet = gridSet;
        }
    }
    StandingProposal(const StandingProposal&) = delete;
    StandingProposal& operator=(const StandingProposal&) = delete;

private:
    DesignBounds bounds = Design;
    decltype(Design.ProjGridSet) gridSet = Design.ProjGridSet;
};

} // namespace

std::span<const std::int16_t> ProjectionsFor(MapPurpose purpose, RegionKind kind) {
    const auto* const row = std::find_if(Ranking.begin(), Ranking.end(), [&](const RankedRow& ranked) {
        return ranked.purpose == purpose && ranked.kind == kind;
    });
    if (row == Ranking.end()) {
        return {};
    }
    const auto* const end = std::find(row->projections.begin(), row->projections.end(), std::int16_t{0});
    return {row->projections.begin(), end};
}

std::string_view ReasonFor(MapPurpose purpose, std::int16_t projNum) {
    const auto* const found = std::find_if(Reasons.begin(), Reasons.end(), [&](const Reason& reason) {
        return reason.purpose == purpose && reason.projNum == projNum;
    });
    return found == Reasons.end() ? std::string_view{} : found->text;
}

std::vector<ProjectionCandidate> CandidatesFor(MapPurpose purpose, const MapRegion& region) {
    std::vector<ProjectionCandidate> candidates;
    for (const std::int16_t projNum : ProjectionsFor(purpose, KindOf(region))) {
        if (const std::optional<DesignBounds> bounds = ProposeBoundsFor(projNum, region)) {
            const DesignPutBack putBack;
            const UnseenBoxes unseen;
            TakeProposal(projNum, *bounds);
            candidates.push_back({projNum, *bounds, ReasonFor(purpose, projNum), LargestErrors(region)});
        }
    }
    return candidates;
}

std::string ErrorsText(const MapErrors& errors) {
    return "Largest errors: areas " + PercentText(errors.area) + ", angles " + AngleErrorText(errors.angle);
}

void HelpMeChoose() {
    ChooseProjectionForm dialog;
    Machine().forms->Show(dialog);
    const bool cancelled = std::exchange(Design.DialogCancelled, false);
    const ProjectionCandidate* const chosen = cancelled ? nullptr : dialog.Chosen();
    if (chosen == nullptr) {
        return;
    }
    const ProjectionEntry& projection = PropertiesOf(chosen->projNum);
    const StandingProposal proposal(*chosen);
    if (projection.mollweideIndex >= 0) {
        mnuProjMollweide_Click(projection.mollweideIndex);
    } else {
        mnuProj_Click(projection.menuIndex);
    }
}

} // namespace quelmont
