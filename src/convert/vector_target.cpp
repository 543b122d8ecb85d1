#include "convert/vector_target.h"

#include "convert/files_exchange.h"
#include "convert/line_source.h"
#include "core/file_names.h"
#include "core/run_time_error.h"
#include "core/text_encoding.h"

#include <cpl_string.h>
#include <ogr_geometry.h>
#include <ogr_spatialref.h>

#include <algorithm>
#include <array>
#include <filesystem>
#include <memory>
#include <string_view>
#include <system_error>
#include <utility>

namespace quelmont {

namespace {

namespace fs = std::filesystem;

std::string ReplacedName(const std::string& name) {
    try {
        return ReplacedFileName(name);
    } catch (const RunTimeError& error) {
        throw ConvertError(name + ": " + error.Description());
    }
}

/// The parts of an earlier Shapefile in the order in which they go: the indexes, without the first of which
/// no shapes are read, the shapes, and what stands beside them. What is put in their places ends with
/// the shapes. So a program that opens the Shapefile in between, or after the process was killed in between,
/// finds the earlier one, the later one or none, but no mixture. After such a kill it may find none: the
/// earlier parts lie in the temporary folder then. The .dbf alone can be read as a table at any time.
constexpr std::array<std::string_view, 11> ShapePartEndings = {".shx", ".qix", ".sbn", ".sbx", ".idm", ".ind",
                                                               ".shp", ".dbf", ".prj", ".cpg", ".qpj"};

OGRwkbGeometryType GeometryType(const LineMix& mix, bool oneGeometry) {
    if (mix.points && mix.lines && !oneGeometry) {
        return wkbUnknown;
    }
    return mix.points && !mix.lines ? wkbPoint : wkbLineString;
}

void AddColumn(OGRLayer& layer, const char* name, OGRFieldType type, int width) {
    OGRFieldDefn column(name, type);
    column.SetWidth(width);
    layer.CreateField(&column);
}

/// An empty text is stored as no value.
void SetText(OGRFeature& record, const char* column, const std::string& text) {
    const int index = record.GetFieldIndex(column);
    if (text.empty()) {
        record.SetFieldNull(index);
    } else {
        record.SetField(index, text.c_str());
    }
}

std::unique_ptr<OGRGeometry> GeometryOf(const MapLine& line, bool asPoint) {
    if (asPoint) {
        return std::make_unique<OGRPoint>(line.front().Lon, line.front().Lat);
    }
    auto curve = std::make_unique<OGRLineString>();
    const auto count = static_cast<int>(line.size());
    curve->setNumPoints(std::max(count, 2), FALSE);
    for (int i = 0; i < count; ++i) {
        const LonLat& point = line[static_cast<std::size_t>(i)];
        curve->setPoint(i, point.Lon, point.Lat);
    }
    if (count == 1) {
        curve->setPoint(1, line.front().Lon, line.front().Lat);
    }
    return curve;
}

} // namespace

VectorTarget::VectorTarget(const std::string& name_, const VectorFileKind& kind_, const LineMix& mix,
                           GdalErrors& errors_, ConvertTally& tally_)
    : name(name_), replaced(ReplacedName(name_)), kind(kind_), errors(errors_), tally(tally_),
      folder(replaced), pointsOnly(mix.points && !mix.lines), hasLabels(mix.labels) {
    GDALAllRegister();
    errors.Forget();
    std::error_code failure;
    fs::create_directory(folder.Name(), failure);
    if (failure) {
        throw ConvertError(name + ": " + failure.message());
    }
    GDALDriver* const driver = GetGDALDriverManager()->GetDriverByName(kind.driver);
    if (driver == nullptr) {
        throw ConvertError(name + ": GDAL has no driver for " + kind.driver);
    }
    const fs::path file = fs::path(folder.Name()) / fs::path(replaced).filename();
    dataset.reset(driver->Create(file.c_str(), 0, 0, 0, GDT_Unknown, nullptr));
    if (!dataset) {
        errors.Throw(name);
    }
    // Writes the features of a GeoPackage together; other formats have no transactions.
    if (dataset->TestCapability(ODsCTransactions) != 0) {
        dataset->StartTransaction();
    }
    CreateLayer(mix);
}

void VectorTarget::CreateLayer(const LineMix& mix) {
    OGRSpatialReference wgs84;
    wgs84.importFromEPSG(4326);
    wgs84.SetAxisMappingStrategy(OAMS_TRADITIONAL_GIS_ORDER);
    CPLStringList options;
    if (kind.oneGeometry) {
        options.SetNameValue("ENCODING", "UTF-8");
    }
    std::string title = fs::path(replaced).stem().string();
    if (!kind.oneGeometry) {
        title = ToUtf8(title); // a table's name; that of a Shapefile's layer is its file's
    }
    layer = dataset->CreateLayer(title.c_str(), &wgs84, GeometryType(mix, kind.oneGeometry), options.List());
    if (layer == nullptr) {
        errors.Throw(name);
    }
    constexpr int featureDigits = 4;
    constexpr int nameLetters = 32;
    AddColumn(*layer, FeatureColumn, OFTInteger, featureDigits);
    AddColumn(*layer, NameColumn, OFTString, nameLetters);
    if (hasLabels) {
        AddColumn(*layer, LabelColumn, OFTString, 0);
    }
    errors.ThrowIfFailed(name);
}

void VectorTarget::Write(const TargetFeature& feature, MapLine& line) {
    OGRFeature record(layer->GetLayerDefn());
    record.SetField(FeatureColumn, feature.Number);
    SetText(record, NameColumn, feature.Name);
    if (hasLabels) {
        SetText(record, LabelColumn, feature.Label);
    }
    const bool asPoint = line.size() == 1 && (pointsOnly || !kind.oneGeometry);
    record.SetGeometryDirectly(GeometryOf(line, asPoint).release());
    if (layer->CreateFeature(&record) != OGRERR_NONE || errors.Failed()) {
        errors.Throw(name);
    }
    tally.Count(feature.Number, feature.Name, 1, static_cast<std::int64_t>(line.size()));
}

std::string VectorTarget::PlaceOf(const std::string& title) const {
    // A Shapefile is written in small letters, whatever letters were asked for.
    const std::string wanted = fs::path(replaced).filename().string();
    return (fs::path(replaced).parent_path() / (Capitals(title) == Capitals(wanted) ? wanted : title))
        .string();
}

void VectorTarget::CheckPlaces() const {
    for (const fs::directory_entry& entry : fs::directory_iterator(folder.Name())) {
        const std::string place = PlaceOf(entry.path().filename().string());
        std::error_code ignored;
        if (fs::exists(place, ignored) && !fs::is_regular_file(place, ignored)) {
            throw ConvertError(place + ": " + RunTimeError(ErrorPathFileAccess).Description());
        }
    }
}

void VectorTarget::Finish() {
    if (dataset->TestCapability(ODsCTransactions) != 0 && dataset->CommitTransaction() != OGRERR_NONE) {
        errors.Throw(name);
    }
    // Closing writes what was buffered; a failure to do so is only in GDAL's error list.
    dataset.reset();
    errors.ThrowIfFailed(name);
    CheckPlaces();
    if (kind.oneGeometry) {
        ReplaceParts();
        return;
    }
    try {
        SyncFile(PathInFolder(fs::path(replaced).filename().string()));
        ReplaceFile(replaced, PathInFolder(fs::path(replaced).filename().string()));
        SyncFolderOf(replaced);
    } catch (const RunTimeError& error) {
        throw ConvertError(name + ": " + error.Description());
    }
}

std::string VectorTarget::PathInFolder(const std::string& title) const {
    return (fs::path(folder.Name()) / title).string();
}

std::vector<std::string> VectorTarget::EarlierParts() const {
    const std::string stem = fs::path(replaced).stem().string();
    std::vector<std::string> parts;
    fs::path place = fs::path(replaced).parent_path();
    if (place.empty()) {
        place = ".";
    }
    for (const std::string_view ending : ShapePartEndings) {
        for (const fs::directory_entry& entry : fs::directory_iterator(place)) {
            const fs::path& part = entry.path();
            if (part.stem() == stem && Capitals(part.extension().string()) == Capitals(ending) &&
                entry.is_regular_file()) {
                parts.push_back(part.string());
            }
        }
    }
    return parts;
}

void VectorTarget::ReplaceParts() {
    std::vector<std::string> titles;
    for (const fs::directory_entry& entry : fs::directory_iterator(folder.Name())) {
        titles.push_back(entry.path().filename().string());
    }
    std::stable_partition(titles.begin(), titles.end(),
                          [this](const std::string& each) { return PlaceOf(each) != replaced; });
    std::string at; // the file that an error message names
    try {
        FilesExchange exchange(PathInFolder("earlier"));
        for (const std::string& part : EarlierParts()) {
            at = part;
            exchange.TakeAway(part);
        }
        SyncFolderOf(replaced);
        for (const std::string& title : titles) {
            at = PlaceOf(title);
            exchange.Put(PathInFolder(title), at);
        }
        SyncFolderOf(replaced);
        exchange.Done();
    } catch (const RunTimeError& error) {
        throw ConvertError(at + ": " + error.Description());
    }
}

} // namespace quelmont
