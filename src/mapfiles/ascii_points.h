#pragma once

#include "mapfiles/ascii_map_file.h"
#include "mapfiles/byte_reader.h"
#include "mapfiles/text_reader.h"

namespace quelmont {

/// Walks the points of the ASCII map file that is open under file number 1.
///
///     for (AsciiPoints points(bytes); points.Find();)
///         const AsciiMapPoint point = points.Take();
class AsciiPoints {
public:
    explicit AsciiPoints(ByteReader& bytes_) : bytes(bytes_) { SkipByteOrderMark(bytes); }

    /// Steps over blank lines to the next point; false at the end of the file. RunTimeError when the file
    /// cannot be read.
    bool Find() { return FindText(bytes); }

    /// Takes the point that was found. Its label stays valid until more is asked for. RunTimeError as
    /// TakeAsciiMapPoint.
    AsciiMapPoint Take() { return TakeText(bytes, TakeAsciiMapPoint); }

private:
    ByteReader& bytes;
};

} // namespace quelmont
