#pragma once

#include "commandline/draw_options.h"

#include <string>

namespace quelmont {

/// What the ending of the output asks for.
enum class OutputFormat { Png, Cgm, Dxf, Wmf, Bmp, Ascii, Unknown };
OutputFormat OutputFormatOf(const std::string& name);

/// Arms the export of the output's format for the next draw; the pictures need none. Returns why it
/// cannot be: an output that is one of the map files, a colour that a DXF file cannot have, with the nearest
/// one that it can, text files that are the same file or that nothing would be written to.
std::string ArmExport(const std::string& output);

/// Why the tables of circles (GcFileName, ScFileName, empty for none) cannot be written beside the output,
/// empty for none: two of them are the same file, or one is a map file of the design. To be asked after
/// ArmExport.
std::string TablesThatCollide(const std::string& output);

/// The names of the text files that an ASCII export of the design writes: the grid's, then one for
/// each map file. A name that is taken gets "-2" behind it, or the next number that is free.
std::vector<std::string> AsciiOutputs(const std::string& output);

} // namespace quelmont
