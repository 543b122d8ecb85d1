#pragma once

#include "core/run_time_error.h"
#include "mapfiles/byte_reader.h"
#include "mapfiles/fixed_record_file.h"

#include <cstdint>

namespace quelmont {

/// Walks the fixed records of the file that is open under file number 1, headers and points.
///
///     for (FixedRecords records(bytes); records.Next();) ...
class FixedRecords {
public:
    explicit FixedRecords(ByteReader& bytes_) : bytes(bytes_) {}

    /// Goes to the next 20 characters. A short last record is filled with blanks; false at the end of the
    /// file, for which line ends alone stand too. RunTimeError when the file cannot be read.
    bool Next();

    /// Whether it is a header; else it is a point.
    bool IsHeader() const { return IsFixedRecordHeader(record); }
    /// As DecodeFixedRecordPoint.
    FixedRecordPoint Point() const { return DecodeFixedRecordPoint(record); }
    /// Of a .grf file, as DecodeLineGraphHeader.
    LineGraphHeader Header() const { return DecodeLineGraphHeader(record); }
    /// Whether the file holds all of the record that means something. A point has 15 characters, of which
    /// blanks and line ends mean nothing.
    bool IsWhole() const;

    /// Steps over records. RunTimeError "Invalid procedure call or argument" for a negative count: those
    /// before would be read again and again.
    void StepOver(std::int32_t count) { bytes.Skip(static_cast<std::int64_t>(FixedRecordSize) * count); }

private:
    ByteReader& bytes;
    FixedRecord record = {};
    std::size_t size = 0; ///< of the record in the file
};

} // namespace quelmont
