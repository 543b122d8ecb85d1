#pragma once

#include "core/map_design.h"

#include <string>

namespace quelmont {

/// "Current Font is Arial 10 point ."
std::string CurrentFontSentence(const TextLook& look);

/// "Font style is Bold Underline."; without bold and italic it is regular.
std::string FontStyleSentence(const TextLook& look);

} // namespace quelmont
