#pragma once

#include "commandline/draw_options.h"

#include <optional>
#include <string>

namespace quelmont {

/// What the ending of the output asks for.
enum class OutputFormat { Png, Cgm, Dxf, Wmf, Svg, Bmp, Pdf, Ascii, Unknown };
OutputFormat OutputFormatOf(const std::string& name);

/// Arms the export of the output's format for the next draw; pictures and pages need none. Returns why it
/// cannot be: an output that is one of the map files, a colour that a DXF file cannot have, with the nearest
/// one that it can, text files that are the same file or that nothing would be written to.
std::string ArmExport(const std::string& output);

/// Files of a command line beside its output.
struct FilesBeside {
    std::vector<std::string> tables = {};           ///< of circles, and reports, that are written
    std::optional<std::string> savedDesign = {};    ///< the map design that is written
    std::optional<std::string> recalledDesign = {}; ///< the one that was read; it may be written again
};

/// Why these files cannot be written beside the output, empty for no reason: two of them are the same file,
/// one is a map file of the design, or a table is the recalled design. To be asked after ArmExport.
std::string FilesThatCollide(const std::string& output, const FilesBeside& beside);

/// The names of the text files that an ASCII export of the design writes: the grid's, then one for
/// each map file. A name that is taken gets "-2" behind it, or the next number that is free.
std::vector<std::string> AsciiOutputs(const std::string& output);

} // namespace quelmont
