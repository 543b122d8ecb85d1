#pragma once

#include <string>
#include <string_view>

namespace quelmont {

/// The frame and the scale bar of the design as a line of the settings: a flag, a unit and perhaps a latitude
/// in seconds of arc, with blanks between ("-1 km 162000").
std::string FrameText();

/// Makes them what such a line tells; any other line leaves them as they are.
void TakeFrameText(std::string_view text);

} // namespace quelmont
