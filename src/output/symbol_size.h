#pragma once

#include <cstdint>

namespace quelmont {

/// Takes the symbol sizes of one feature of a map file for the renderers.
///
/// Feature is a row of the file's styles, FileIndex counts the files from 1.
/// Reads   CurrentSymbolType, LogicalWidth, ClientWidth, LineWidthsScaled, TwipsPerPixelY.
/// Writes  SymbolRadius (twips; the outline of an open shape stays inside the nominal size, never
///         below 0), SymbolRadiusFile (logical units; always 2 for dots), BorderWidthFile; not while a map is
///         printed.
/// RunTimeError "Subscript out of range", "Division by zero", "Overflow".
void SetSymbolSize(std::int16_t Feature, std::int32_t FileIndex);

} // namespace quelmont
