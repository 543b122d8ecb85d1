#pragma once

#include "core/map_design.h"
#include "view/map_errors.h"
#include "view/map_region.h"

#include <cstddef>
#include <cstdint>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace quelmont {

/// What a map is for.
enum class MapPurpose : std::uint8_t {
    Areas,      ///< sizes are compared
    Directions, ///< courses and the shortest ways
    Shapes,     ///< of coasts and countries
    Distances,  ///< from one place
    Look,       ///< at the whole
};
constexpr std::size_t MapPurposes = 5;

/// The projections that serve a purpose for a kind of region, by ProjNum, the best first.
/// Source: J. P. Snyder, Map Projections: A Working Manual, USGS Professional Paper 1395 (1987), pp. 33-35,
/// and An Album of Map Projections, Professional Paper 1453 (1989), pp. 5-8, less what is not among the
/// program's projections.
std::span<const std::int16_t> ProjectionsFor(MapPurpose purpose, RegionKind kind);

/// One sentence why a projection serves a purpose; empty for one that no region has for it.
std::string_view ReasonFor(MapPurpose purpose, std::int16_t projNum);

/// A projection that is proposed.
struct ProjectionCandidate {
    std::int16_t projNum = 0;
    DesignBounds bounds; ///< as ProposeBoundsFor
    std::string_view reason;
    MapErrors errors; ///< over the region
};

/// Those of ProjectionsFor that can show the region, with their bounds, in the same order. Changes nothing of
/// the design. RunTimeError as RegionOfDesign.
std::vector<ProjectionCandidate> CandidatesFor(MapPurpose purpose, const MapRegion& region);

/// "Largest errors: areas +300 %, angles 39°", UTF-8.
std::string ErrorsText(const MapErrors& errors);

/// The item "Hel&p Me Choose..." of the projection menu: its dialog, then what a click on the projection
/// chosen there does, with its bounds as the proposals of the dialogs. Where these are cancelled, the
/// projection is in force with the bounds that the design had.
void HelpMeChoose();

} // namespace quelmont
