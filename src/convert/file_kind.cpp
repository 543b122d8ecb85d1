#include "convert/file_kind.h"

#include "core/file_names.h"

#include <algorithm>
#include <array>
#include <span>

namespace quelmont {

namespace {

// clang-format off
constexpr std::array MapFileKinds = std::to_array<MapFileKind>({
    {".all", MapFileForm::MinuteGrid},
    {".cci", MapFileForm::MinuteGrid},
    {".map", MapFileForm::MinuteGrid},
    {".pnt", MapFileForm::MinuteGrid},
    {".pkv", MapFileForm::Packed},
    {".pkd", MapFileForm::Packed},
    {".grv", MapFileForm::Packed},
    {".grf", MapFileForm::LineGraphText},
    {".dat", MapFileForm::FixedRecords},
    {".mps", MapFileForm::WorldFloats},
    {".mp1", MapFileForm::WorldText},
    {".prn", MapFileForm::AsciiDegrees},
    {".utm", MapFileForm::AsciiMetres},
});

constexpr std::array VectorFileKinds = std::to_array<VectorFileKind>({
    {".gpkg",    "GPKG",           false},
    {".geojson", nullptr,          false},
    {".json",    nullptr,          false},
    {".shp",     "ESRI Shapefile", true},
});
// clang-format on

template <typename Kind>
const Kind* KindOf(std::string_view name, std::span<const Kind> kinds) {
    const std::string capitals = Capitals(name);
    for (const Kind& kind : kinds) {
        if (capitals.ends_with(Capitals(kind.ending))) {
            return &kind;
        }
    }
    return nullptr;
}

template <typename Kind>
std::string Endings(std::span<const Kind> kinds) {
    std::string text;
    for (const Kind& kind : kinds) {
        text += (text.empty() ? "" : ", ") + std::string(kind.ending);
    }
    return text;
}

} // namespace

const MapFileKind* MapFileKindOf(std::string_view name) { return KindOf<MapFileKind>(name, MapFileKinds); }

const VectorFileKind* VectorFileKindOf(std::string_view name) {
    return KindOf<VectorFileKind>(name, VectorFileKinds);
}

std::string MapFileEndings() { return Endings<MapFileKind>(MapFileKinds); }
std::string VectorFileEndings() { return Endings<VectorFileKind>(VectorFileKinds); }

} // namespace quelmont
