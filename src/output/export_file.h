#pragma once

#include "core/error_box.h"

#include <cstdint>
#include <string>
#include <string_view>
#include <utility>

/// The files of an export. Each is written beside its target under a temporary name, under file
/// number 2, in one or several stretches. At the end of the draw they take their targets' places
/// together. Until then an earlier file of that name stays, and whatever ends the draw early removes the
/// temporary ones.

namespace quelmont {

/// Creates the temporary file of a target, anew, and opens it. RunTimeError as OpenFile, and
/// "Path/File access error" for a target that is no plain file, and for a map file of the design: an
/// export never replaces the data that it shows.
void BeginExport(const std::string& target);

/// Whether the file of a target was begun in this draw.
bool ExportBegun(const std::string& target);

/// Opens a file that was begun, to be written on. RunTimeError as OpenFile, "File not found" when it
/// was not begun.
void ResumeExport(const std::string& target);

/// Writes behind what the open file holds. What follows a failed write is passed over in silence: the
/// file is lost, and was reported to be. RunTimeError "Disk full", "Device I/O error".
void WriteExport(std::string_view bytes);

/// Bytes of the open file so far.
std::int64_t ExportLength();

/// Writes over bytes that were written before, position from 0.
void PatchExport(std::int64_t position, std::string_view bytes);

/// Writes what was collected and closes the file; none that is open is no error. RunTimeError as
/// WriteExport.
void CloseExport();

/// An element could not be written, and its message box was shown: all files that were begun are discarded.
void LoseExport();

/// Runs a routine of a writer that has an error handler, as Guarded does. What it failed to write costs
/// the whole export.
template <typename Body>
bool GuardedWriting(std::string_view routine, Body&& body) {
    const bool done = Guarded(routine, std::forward<Body>(body));
    if (!done) {
        LoseExport();
    }
    return done;
}

/// Message box of a failed operation of the surface that records an export: what it drew is lost.
inline void ReportLossUnless(bool recorded, std::string_view text) {
    if (!recorded) {
        ShowApiErrorBox(text);
        LoseExport();
    }
}

/// Puts the closed files in their targets' places, all or none. They are removed instead when a write has
/// failed, which was reported, or an element was lost, which the message box "Map Not Saved" reports.
/// RunTimeError as MoveTogether; the temporary files are gone then too.
void FinishExports();

/// Closes and removes whatever was begun and is not finished.
void DropExports();

} // namespace quelmont
