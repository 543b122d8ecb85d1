#pragma once

#include "convert/convert_tally.h"
#include "convert/file_kind.h"
#include "convert/gdal_errors.h"
#include "convert/line_target.h"
#include "core/replaced_file.h"

#include <gdal_priv.h>
#include <ogrsf_frmts.h>

#include <string>
#include <vector>

namespace quelmont {

/// What is among the lines of a source.
struct LineMix {
    bool points = false; ///< lines of a single point
    bool lines = false;
    bool labels = false;
};

/// A GeoPackage or Shapefile with one layer, named as the file, in longitude and latitude on
/// WGS84: lines, points, and the columns feature, name, and label if there are labels. Where a format
/// holds either lines or points, a point among lines becomes a line of no length.
///
/// It is written in a folder of its own beside the target, as it may be more than one file.
class VectorTarget : public LineTarget {
public:
    /// ConvertError when it cannot be written.
    VectorTarget(const std::string& name, const VectorFileKind& kind, const LineMix& mix, GdalErrors& errors,
                 ConvertTally& tally);

    void Write(const TargetFeature& feature, MapLine& line) override;
    void Finish() override;

private:
    void CreateLayer(const LineMix& mix);
    void CheckPlaces() const;
    /// Of a Shapefile: each of its files takes its place.
    void ReplaceParts();
    /// The files of an earlier Shapefile, in the order in which they have to go. Letters of any case.
    std::vector<std::string> EarlierParts() const;
    std::string PathInFolder(const std::string& title) const;
    /// Where a file of the folder goes.
    std::string PlaceOf(const std::string& title) const;

    std::string name;
    std::string replaced; ///< the file itself, links followed
    const VectorFileKind& kind;
    GdalErrors& errors;
    ConvertTally& tally;
    TemporaryFile folder;
    GDALDatasetUniquePtr dataset;
    OGRLayer* layer = nullptr; ///< of the dataset
    bool pointsOnly = false;
    bool hasLabels = false;
};

} // namespace quelmont
