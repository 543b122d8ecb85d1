#pragma once

#include <string>

namespace quelmont {

/// The map of the design in words, for those who cannot see it: its projection and its bounds, "Robinson
/// projection, latitude 80° N to 80° S, longitude 180° W to 180° E". Minutes and seconds are given where they
/// are not 0; a disc has its center and its range, a UTM map its meters.
///
/// Reads   the texts and numbers of the bounds, which were accepted for the projection. Of bounds that no
/// words can tell, the projection alone is named.
std::string MapInWords();

} // namespace quelmont
