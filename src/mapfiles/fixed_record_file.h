#pragma once

#include <array>
#include <cstddef>
#include <cstdint>

/// Fixed-record text files (.dat, .grf): a bare run of pieces of 20 characters, line ends included. A
/// letter at position 7, the hemisphere of the latitude, tells a point from a header.
///
/// Positions, counted from 1:
///   point       1-6 latitude DDMMSS, 7 N or S, 8-14 longitude DDDMMSS, 15 E or W
///   header      .grf: 8-9 minor code, 10-15 count of the points behind it, 19-20 major code, which
///               leaves no room for a line end; .dat: begins a line, whatever else is in it

namespace quelmont {

constexpr std::size_t FixedRecordSize = 20;
using FixedRecord = std::array<char, FixedRecordSize>;

/// Whether position 7 has a character below ":".
constexpr bool IsFixedRecordHeader(const FixedRecord& record) {
    return static_cast<unsigned char>(record[6]) < ':';
}

/// Seconds of arc.
struct FixedRecordPoint {
    std::int32_t Lat = 0, Lon = 0;
    bool operator==(const FixedRecordPoint&) const = default;
};

/// Numbers are what stands at the front of their positions, nothing is 0. RunTimeError "Overflow" when
/// an exponent makes one too large.
FixedRecordPoint DecodeFixedRecordPoint(const FixedRecord& record);

/// RunTimeError "Overflow" at a hundred degrees of latitude or a thousand of longitude.
FixedRecord EncodeFixedRecordPoint(const FixedRecordPoint& point);

/// The header of a .dat file.
FixedRecord EncodeFixedRecordBreak();

/// The header of a .grf file.
struct LineGraphHeader {
    std::int32_t Code = 0;  ///< 100 times the major code, plus the minor one
    std::int32_t Count = 0; ///< point records behind it
    bool operator==(const LineGraphHeader&) const = default;
};

/// As of points. Nothing is checked: a count may be negative.
LineGraphHeader DecodeLineGraphHeader(const FixedRecord& record);

/// RunTimeError "Overflow" when the code is not 0 to 9999 or the count not 0 to 999999.
FixedRecord EncodeLineGraphHeader(const LineGraphHeader& header);

} // namespace quelmont
