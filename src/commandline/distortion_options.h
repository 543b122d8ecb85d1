#pragma once

#include "commandline/text_options.h"
#include "core/map_extras.h"

#include <optional>

namespace quelmont {

/// The distortion that is shown, as far as the command line tells of it.
struct DistortionOptions {
    std::optional<DistortionKind> kind;
    std::optional<double> radius, spacing; ///< of circles, degrees
};

/// Adds --distortion, --distortion-radius and --distortion-spacing.
void AddDistortionOptions(const AddOption& add, DistortionOptions& distortion);

/// Makes it that of the design. Writes  Distortion.
void TakeDistortion(const DistortionOptions& distortion);

} // namespace quelmont
