#pragma once

#include <string>
#include <string_view>

/// The choice of grid labels as lines of the settings. What means nothing leaves the choice as it is.

namespace quelmont {

/// "none", "frame" or "lines".
std::string GridLabelPlaceText();
void TakeGridLabelPlace(std::string_view text);

/// "degrees", "letters" or "signs".
std::string GridLabelStyleText();
void TakeGridLabelStyle(std::string_view text);

/// Points, colour, bold, italic, underline and strikeout as numbers, and the font's name:
/// "10,0,0,0,0,0,Arial".
std::string GridLabelFontText();
void TakeGridLabelFont(std::string_view text);

} // namespace quelmont
