#pragma once

#include <string>
#include <string_view>

namespace quelmont {

/// "Fill Land and Water...".
void ChooseFills(int index);

/// The colours of land, lakes and sea as a line of the settings: six digits or "none" each, commas between.
std::string FillText();

/// Takes them from such a line; one that is none leaves them as they are.
void TakeFill(std::string_view text);

} // namespace quelmont
