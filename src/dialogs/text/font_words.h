#pragma once

#include "core/map_design.h"
#include "platform/form.h"

#include <cstdint>
#include <string>

namespace quelmont {

/// "Current Font is Arial 10 point ."
std::string CurrentFontSentence(const TextLook& look);

/// The look as the letters of a sample on a background colour, 0x00BBGGRR.
SampleLetters LettersOf(const TextLook& look, std::uint32_t ground);

/// "Font style is Bold Underline."; without bold and italic it is regular.
std::string FontStyleSentence(const TextLook& look);

} // namespace quelmont
