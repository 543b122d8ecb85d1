#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace quelmont {

/// Whether a mask (see MaskedText) is that of an angle: the groups of a number have no blanks between them.
constexpr bool IsAngleMask(std::string_view mask) { return mask.find(' ') != std::string_view::npos; }

/// A text of fixed columns that a person types over. In its mask "%" is the place of a digit, "?" the
/// place of a letter, and every other character stands as it is: "%%%    %%    %%    ?" is a
/// longitude, "%,%%%,%%%" a number of seven digits. A digit's place is never empty: what is erased
/// becomes 0. Columns count from 0 here; a cursor stands before the column of its number.
class MaskedText {
public:
    explicit MaskedText(std::string_view mask);

    const std::string& Mask() const { return mask; }
    /// The whole text, as long as the mask.
    const std::string& Text() const { return text; }
    /// The digits alone.
    std::string BareDigits() const;

    /// Sets the text. One that has the mask's own columns is taken as it stands, and what lies
    /// beyond the mask is dropped. An angle may also come in groups of its own lengths, a number with
    /// other separators or none, aligned at its decimal point or its end. Missing digits are 0, a
    /// missing letter is a blank.
    void SetText(std::string_view newText);

    /// The first place at or after a column; the length of the text when there is none.
    std::size_t PlaceFrom(std::size_t column) const;
    /// The last place before a column; 0 when there is none.
    std::size_t PlaceBefore(std::size_t column) const;

    /// Types a character over the place at or after the cursor and moves the cursor behind it, over
    /// what stands between the places. A letter goes to the letter's place and becomes a capital. A
    /// blank, a point or a comma behind a digit moves to the next group. False when the character has no
    /// place.
    bool Type(std::size_t& cursor, char character);

    /// Erases the digits from column first up to column last, which stays.
    void Erase(std::size_t first, std::size_t last);

    bool IsAngle() const { return IsAngleMask(mask); }

private:
    bool IsPlace(std::size_t column) const { return mask[column] == '%' || mask[column] == '?'; }
    bool HasColumnsOf(std::string_view newText) const;
    void TakeDigits(std::string_view digits, std::size_t first, std::size_t last, bool alignLeft);
    bool TakeGroups(std::string_view newText);

    std::string mask;
    std::string text;
};

} // namespace quelmont
