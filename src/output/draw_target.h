#pragma once

#include <cstddef>

namespace quelmont {

/// What each stage of a draw opens at its start: the surface in use and, when an export is armed,
/// its file.

/// Takes the window's back image as the surface in use.
/// Writes  Surface, DevicePixelX, DevicePixelY.
void SelectDevice();

/// Opens the file of the armed export under file number 2, to be written on: CGM and DXF files have
/// begun with their header, an ASCII file begins here. slot counts the names in AsciiFileName from 1.
///
/// Reads   OutputAscii, OutputCgm, OutputDxf, OutputWmf (the first that is true), the file names.
/// Writes  OutputFileName for ASCII, where each stage has a file of its own.
/// Returns whether an export is armed; a metafile is written whole at its end and opens nothing
/// here. RunTimeError as BeginExport, "Subscript out of range" for a slot without a name.
bool OpenExport(std::size_t slot);

/// Closes the file at the end of a stage; an ASCII file is whole after the last pass and takes its
/// place. RunTimeError as CloseExport and FinishExport.
void CloseStretch();

} // namespace quelmont
