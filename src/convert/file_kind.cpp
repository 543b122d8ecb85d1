#include "convert/file_kind.h"

#include "core/file_names.h"

#include <array>

namespace quelmont {

namespace {

// clang-format off
constexpr std::array VectorFileKinds = std::to_array<VectorFileKind>({
    {".gpkg",    "GPKG",           false},
    {".geojson", nullptr,          false},
    {".json",    nullptr,          false},
    {".shp",     "ESRI Shapefile", true},
});
// clang-format on

} // namespace

const VectorFileKind* VectorFileKindOf(std::string_view name) {
    const std::string capitals = Capitals(name);
    for (const VectorFileKind& kind : VectorFileKinds) {
        if (capitals.ends_with(Capitals(kind.ending))) {
            return &kind;
        }
    }
    return nullptr;
}

std::string VectorFileEndings() {
    std::string text;
    for (const VectorFileKind& kind : VectorFileKinds) {
        text += (text.empty() ? "" : ", ") + std::string(kind.ending);
    }
    return text;
}

} // namespace quelmont
