#pragma once

#include "platform/masked_text.h"

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

/// What a person means by characters typed into a field of fixed columns (masked_text.h), from its
/// first column on.
///
/// An angle is typed as
///
///     [sign or letter] degrees [separator minutes [separator seconds]] [letter]
///
/// where a separator is any run of blanks and of the marks of degrees, minutes, seconds and hours,
/// and may be left out behind a group that is typed full. One point (or comma) begins a decimal
/// fraction of the group before it, rounded to the nearest second, ties to even; two or more are
/// separators. A sign stands for a letter: "-" for S or W, "+" for N or E. A letter, a sign or a
/// fraction tells a whole angle: groups that were not typed are 00. Without one they stay as they
/// were. Any letter is taken; whether it is a hemisphere is asked when the field is checked.
///
/// A whole number is one group: blanks, commas and apostrophes between its digits are passed over,
/// one point begins a fraction that is rounded to the nearest whole, ties to even; two or more points are
/// passed over. A number with decimals has its own point, for which any separator may stand.

namespace quelmont {

/// The key that a character stands for in a field: a digit, a capital letter, ' ' for a separator,
/// '.', '-' or '+'; 0 when the field knows no such character.
char KeyOf(const MaskedText& field, char32_t character);

/// A field while it is typed into.
struct TypedView {
    std::string text;          ///< as long as the mask
    std::size_t cursor = 0;    ///< before the column that is typed next
    bool unmistakable = false; ///< it can be read in one way only: digits without separators fill their
                               ///< groups, thousands have three digits
    bool hasDigits = false;    ///< a digit was typed
};

/// What a field that held base shows after keys. Digits of the group typed last lie over its first
/// columns until it is ended: by the next key, or, when left is set, now. It is then set to the
/// right. Empty when the keys make no angle or number of these columns.
std::optional<TypedView> TypeOver(const MaskedText& base, std::string_view keys, bool left);

} // namespace quelmont
