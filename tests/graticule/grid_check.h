#pragma once

#include "graticule/grid_fixture.h"

namespace quelmont {

/// Expects of every vertex of a plotted grid that it lies where PROJ has it, on its parallel or meridian,
/// inside the map; of the lines that they cover what they should and nothing else; and of the chords that
/// none leaves its curve. Returns by how much the worst chord does, as a part of the width of the map.
double CheckGrid(const LineRecorder& recorder);

} // namespace quelmont
