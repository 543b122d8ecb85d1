#pragma once

#include "commandline/text_options.h"
#include "core/map_extras.h"

#include <optional>
#include <string>

namespace quelmont {

/// The frame and the scale bar, as far as the command line tells of them.
struct FrameOptions {
    bool frame = false;
    /// Without a value nothing was said of a bar; one without a unit is none.
    std::optional<ScaleBarUnit> unit;
    std::optional<double> latitude; ///< degrees
};

/// Adds --frame and --scale-bar.
void AddFrameOptions(CLI::App& app, const std::string& group, const AddOption& add, FrameOptions& frame);

/// Makes them those of the design. Writes  Frame.
void TakeFrame(const FrameOptions& frame);

/// Why a bar that was asked for is not drawn; empty when it is, or none was asked for. To be called when the
/// bounds have been accepted.
std::string BarLeftOut(const FrameOptions& frame);

/// Why a map that has a scale was drawn without the bar that was asked for; empty when it has the bar.
std::string BarWithoutRoom(const FrameOptions& frame);

} // namespace quelmont
