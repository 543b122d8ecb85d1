#pragma once

#include "convert/gdal_errors.h"
#include "convert/line_source.h"

#include <gdal_priv.h>
#include <ogrsf_frmts.h>

#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace quelmont {

/// How the coordinates of a layer become longitude and latitude on WGS84.
struct WayToWgs84 {
    std::unique_ptr<OGRCoordinateTransformation> transformation; ///< none when they are that already
    bool bends = false;                                          ///< straight lines become curves
};

/// A layer of anything that GDAL opens, in longitude and latitude on WGS84. Curves become chords,
/// polygons a closed line for each ring, points lines of one point; heights and measures are left out. Lines
/// of a projected system keep their shape by points that are put in between.
class VectorSource : public LineSource {
public:
    /// The layer may be left out when only one has features; an expression chooses among these.
    /// ConvertError when it cannot be opened, has no such layer or more than one to choose from, when
    /// the expression does not fit it, or no way leads from its reference system to WGS84.
    VectorSource(const std::string& name, const std::optional<std::string>& layer,
                 const std::optional<std::string>& where, GdalErrors& errors);

    OGRFeatureDefn& Columns() override { return *layer->GetLayerDefn(); }
    void Read(LineReceiver& receiver) override;
    double Share() const override;

    /// Whether its coordinates are taken for longitude and latitude because it names no reference system.
    bool HasNoReferenceSystem() const { return layer->GetSpatialRef() == nullptr; }
    /// The files that it consists of.
    std::vector<std::string> Files() const;

private:
    void ChooseLayer(const std::optional<std::string>& wanted);
    void FindWayToWgs84();
    void ReadFeature(OGRFeature& feature, LineReceiver& receiver);
    [[noreturn]] void Fail(const std::string& why) const;

    std::string name;
    GdalErrors& errors;
    GDALDatasetUniquePtr dataset;
    OGRLayer* layer = nullptr; ///< of the dataset
    WayToWgs84 way;
    GIntBig features = -1; ///< as far as it is known
    GIntBig read = 0;
};

} // namespace quelmont
