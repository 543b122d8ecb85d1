#pragma once

#include <string>
#include <string_view>

/// What a file is, by the ending of its name in any case.

namespace quelmont {

/// How the program's own map files are written.
enum class MapFileForm {
    MinuteGrid,    ///< .all .cci .map .pnt
    Packed,        ///< .pkv .pkd .grv
    FixedRecords,  ///< .dat
    LineGraphText, ///< .grf
    WorldText,     ///< .mp1
    WorldFloats,   ///< .mps
    AsciiDegrees,  ///< .prn
    AsciiMetres,   ///< .utm
};

constexpr bool HasLabels(MapFileForm form) {
    return form == MapFileForm::AsciiDegrees || form == MapFileForm::AsciiMetres;
}

struct MapFileKind {
    std::string_view ending;
    MapFileForm form;
};

/// The kind of one of the program's own map files; null for any other name.
const MapFileKind* MapFileKindOf(std::string_view name);

/// A format that map files are turned into.
struct VectorFileKind {
    std::string_view ending;
    const char* driver; ///< that GDAL has for it; null for GeoJSON, which the program writes itself
    bool oneGeometry;   ///< holds either lines or points
};

/// Null for a name with none of these endings.
const VectorFileKind* VectorFileKindOf(std::string_view name);

/// "Three endings, commas between them": of the own map files, and of those that they are turned into.
std::string MapFileEndings();
std::string VectorFileEndings();

} // namespace quelmont
