#pragma once

#include <cstdint>
#include <string>
#include <string_view>

/// The files of an export. Each is written beside its target under a temporary name, under file
/// number 2, in one or several stretches, and takes its target's place when it is whole. Until then an
/// earlier file of that name stays, and whatever ends the draw early removes the temporary one.

namespace quelmont {

/// Creates the temporary file of a target, anew, and opens it. RunTimeError as OpenFile, and
/// "Path/File access error" for a target that is no plain file, and for a map file of the design: a map
/// is not worth what it was made of.
void BeginExport(const std::string& target);

/// Whether the file of a target was begun in this draw.
bool ExportBegun(const std::string& target);

/// Opens a file that was begun, to be written on. RunTimeError as OpenFile, "File not found" when it
/// was not begun.
void ResumeExport(const std::string& target);

/// Writes behind what the open file holds. What follows a failed write is passed over in silence: the
/// file is lost, and was told to be. RunTimeError "Disk full", "Device I/O error".
void WriteExport(std::string_view bytes);

/// Bytes of the open file so far.
std::int64_t ExportLength();

/// Writes over bytes that were written before, position from 0.
void PatchExport(std::int64_t position, std::string_view bytes);

/// Writes what was collected and closes the file; none that is open is no error. RunTimeError as
/// WriteExport.
void CloseExport();

/// Puts a closed file in its target's place, or removes it when a write has failed. RunTimeError
/// "Permission denied", "Path/File access error"; the temporary file is gone then too.
void FinishExport(const std::string& target);

/// Closes and removes whatever was begun and is not finished.
void DropExports();

} // namespace quelmont
