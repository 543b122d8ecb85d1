#pragma once

#include "surround/label_layout.h"
#include "surround/scale_bar.h"
#include "surround/shade_key_plot.h"

#include <optional>
#include <vector>

namespace quelmont {

/// What the things about the map keep between calls.
struct SurroundState {
    std::optional<ScaleBar> bar;        ///< of the draw or print in hand, or of the last one
    std::optional<ScaleBar> drawnBar;   ///< of the last draw on the window
    std::optional<PlannedKey> key;      ///< of the draw or print in hand, or of the last one
    std::optional<PlannedKey> drawnKey; ///< of the last draw on the window
    std::vector<GridLabel> drawnLabels; ///< of the last draw on the window
};

/// The state.
extern SurroundState SurroundNow;

/// Makes the state that of a program's start.
void ResetSurround();

} // namespace quelmont
