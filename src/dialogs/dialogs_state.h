#pragma once

#include "core/standard_colors.h"
#include "output/print/papers.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <string>

namespace quelmont {

/// What one dialog leaves for another.
struct DialogsState {
    // ---- Colour of a feature of a map file, from the colour picker to the styles of the file.
    ColorValue FeatureColor = 0;
    std::int16_t FeatureColorIndex = 0; ///< the picker's cell, 0 to 255
    /// Boundaries of the lobes, LobeLonText of the design in seconds. OrderLobes writes them, the test
    /// that follows reads them.
    std::array<std::int32_t, 10> LobeLonSec = {};
    /// The paper of a map saved as PDF, of Papers.
    std::size_t PdfPaper = IndexOfPaper(DefaultPaper);
    std::string ReportFileName; ///< of the report that was saved last
};

/// The state.
extern DialogsState DialogsNow;

/// Makes the state that of a program's start.
void ResetDialogs();

} // namespace quelmont
