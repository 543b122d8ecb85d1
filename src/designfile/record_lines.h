#pragma once

#include "designfile/design_records.h"
#include "designfile/line_text.h"

#include <cstddef>
#include <string>

namespace quelmont {

/// Appends the lines of a record, each ended by carriage return and line feed. RunTimeError "Invalid
/// procedure call or argument" for a text that fits no line, "Overflow" for a number beyond its type.
void WriteRecord(std::string& lines, const Record& record, DesignFile& file, std::size_t index);

/// Takes the lines of a record and stores its values, all of them or, after a failure, none.
///
/// RunTimeError "Input past end of file" for missing lines and values, "Type mismatch" for what is no number,
/// "Overflow" for a number beyond its type, "Invalid procedure call or argument" for a value that the program
/// cannot work with.
void ReadRecord(LineReader& lines, const Record& record, DesignFile& file, std::size_t index);

} // namespace quelmont
