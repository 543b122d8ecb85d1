#include "areas/file_areas.h"

#include "core/run_time_error.h"

#include <algorithm>
#include <optional>
#include <utility>

namespace quelmont {

namespace {

std::shared_ptr<const FileAreas> Read(const InputFileEntry& file, const LineDetail& detail) {
    FileAreas areas;
    if (!ReadAreaRings(file, detail, areas.lines)) {
        return nullptr;
    }
    areas.nested = Nest(areas.lines);
    return std::make_shared<const FileAreas>(std::move(areas));
}

std::optional<FileStamp> StampOf(const std::string& name) {
    OpenFile(InputFileNumber, name, OpenMode::Input);
    const std::optional<FileStamp> stamp = StampOfFile(InputFileNumber);
    CloseFile(InputFileNumber);
    return stamp;
}

KeptAreas::Key KeyOf(const InputFileEntry& file, const FileStamp& stamp, const LineDetail& detail) {
    KeptAreas::Key key{file.MapFileName, stamp, {}, detail};
    std::transform(file.Features.begin(), file.Features.end(), key.shown.begin(),
                   [](const FeatureStyle& feature) { return feature.Shown; });
    return key;
}

std::size_t BytesOf(const FileAreas& areas) {
    std::size_t bytes = areas.nested.capacity() * sizeof(NestedRing);
    for (const Ring& line : areas.lines) {
        bytes += sizeof(Ring) + line.places.capacity() * sizeof(RingPlace);
    }
    return bytes;
}

} // namespace

std::shared_ptr<const FileAreas> AreasOfFile(const InputFileEntry& file, const LineDetail& detail) {
    KeptAreas* const kept = KeptMapAreas();
    if (kept == nullptr || !MayHaveAreas(file)) {
        return Read(file, detail);
    }
    const std::optional<FileStamp> stamp = StampOf(file.MapFileName);
    if (!stamp) {
        return Read(file, detail);
    }
    KeptAreas::Key key = KeyOf(file, *stamp, detail);
    if (auto areas = kept->areas.Find(key)) {
        return areas;
    }
    auto areas = Read(file, detail);
    if (areas && StampOf(file.MapFileName) == stamp) {
        kept->areas.Keep(std::move(key), areas, BytesOf(*areas));
    }
    return areas;
}

KeptAreas*& KeptMapAreas() {
    static KeptAreas* areas = nullptr;
    return areas;
}

} // namespace quelmont
