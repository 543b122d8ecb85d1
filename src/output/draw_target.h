#pragma once

#include <cstddef>

namespace quelmont {

/// What each stage of a draw opens at its start: the surface in use and, when an export is armed,
/// its file.

/// Takes the window's back image as the surface in use, or the page of the job that is open while a map is
/// printed.
/// Its lines are smooth from now on, or plain, as SmoothLines says. RunTimeError as DrawSurface::Smooth.
/// Writes  Surface, DevicePixelX, DevicePixelY, DotPixels.
void SelectDevice();

/// Opens the file of the armed writer under file number 2, to be written on: CGM and DXF files have
/// begun with their header, an ASCII file begins here, and a metafile opens nothing before its end. slot
/// counts the names in AsciiFileName from 1. CloseExport closes it at the end of the stage.
///
/// Writes  OutputFileName for ASCII, where each stage has a file of its own.
/// Returns whether an export is armed. RunTimeError as BeginExport, "Subscript out of range" for a slot
/// without a name.
bool OpenExport(std::size_t slot);

} // namespace quelmont
