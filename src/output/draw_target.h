#pragma once

#include <cstddef>

namespace quelmont {

/// What each stage of a draw opens at its start: the surface in use and, when an export is armed,
/// its file.

/// Takes the window's back image as the surface in use.
/// Writes  Surface, DevicePixelX, DevicePixelY.
void SelectDevice();

/// Opens the file of the armed export under file number 2: CGM to be written at any place, DXF to
/// be written on, ASCII as a new text file. slot counts the names in AsciiFileName from 1.
///
/// Reads   OutputAscii, OutputCgm, OutputDxf, OutputWmf (the first that is true), the file names.
/// Writes  OutputFileName for ASCII, where each stage has a file of its own.
/// Returns whether an export is armed; a metafile is written whole at its end and opens nothing
/// here. RunTimeError as OpenFile, "Subscript out of range" for a slot without a name.
bool OpenExport(std::size_t slot);

} // namespace quelmont
