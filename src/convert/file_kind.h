#pragma once

#include "mapfiles/map_formats.h"

#include <string>
#include <string_view>

/// The kind of a file that map files are converted to, by the ending of its name in any case.

namespace quelmont {

/// Whether a format, which may be null, is that of files in metres.
constexpr bool IsMetres(const MapFormat* format) {
    return format != nullptr && format->form == MapFileForm::AsciiMetres;
}

/// Whether points of a format stand seconds apart.
constexpr bool IsPacked(const MapFormat& format) {
    return format.form == MapFileForm::PackedWhole || format.form == MapFileForm::PackedPart ||
           format.form == MapFileForm::PackedLineGraph;
}

/// A format that map files are turned into.
struct VectorFileKind {
    std::string_view ending;
    const char* driver; ///< that GDAL has for it; null for GeoJSON, which the program writes itself
    bool oneGeometry;   ///< holds either lines or points
};

/// Null for a name with none of these endings.
const VectorFileKind* VectorFileKindOf(std::string_view name);

/// The endings with commas between them.
std::string VectorFileEndings();

} // namespace quelmont
