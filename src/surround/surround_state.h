#pragma once

#include "surround/label_layout.h"

#include <vector>

namespace quelmont {

/// What the things about the map keep between calls.
struct SurroundState {
    std::vector<GridLabel> drawnLabels; ///< of the last draw on the window
};

/// The state.
extern SurroundState SurroundNow;

/// Makes the state that of a program's start.
void ResetSurround();

} // namespace quelmont
