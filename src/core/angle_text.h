#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace quelmont {

/// The fixed-column texts of angles, columns from 1, groups separated by four blanks:
///   latitude   "37    47    00    N"   degrees 1-2, minutes 7-8, seconds 13-14, letter 19
///   longitude  "122    26    00    W"  degrees 1-3, minutes 8-9, seconds 14-15, letter 20
///   arc        "030    00    00"       degrees 1-3, minutes 8-9, seconds 14-15

/// Writes an angle of Value degrees as fixed-column text with Gap blanks between the groups.
/// Kind is "LAT", "LON" or "ARC". Seconds are rounded; 60 of them carry. A value of exactly 0 has
/// the letter "N" or "E". A failure (a Gap below 0, degrees beyond int32) shows "Error in DegMinSec"
/// and leaves Text as it was.
void DegMinSec(double Value, std::string& Text, std::string_view Kind, std::int16_t Gap);

/// Seconds of arc of a text; a group without digits counts as 0. "S" in column 19 or "W" in column
/// 20, exactly so, makes the result negative. RunTimeError "Overflow" beyond int32.
std::int32_t LatitudeSeconds(std::string_view text);
std::int32_t LongitudeSeconds(std::string_view text);
std::int32_t ArcSeconds(std::string_view text);

/// Columns first to last of a text, counted from 1; less where the text is shorter.
std::string_view Columns(std::string_view text, std::size_t first, std::size_t last);

/// The groups of a fixed-column text with single blanks between, and the last character after them
/// for latitudes and longitudes: "37 47 00 N".
std::string CompactLatitude(std::string_view text);
std::string CompactLongitude(std::string_view text);
std::string CompactArc(std::string_view text);

} // namespace quelmont
