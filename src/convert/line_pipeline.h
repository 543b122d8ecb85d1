#pragma once

#include "convert/convert_options.h"
#include "convert/convert_tally.h"
#include "convert/feature_choice.h"
#include "convert/file_kind.h"
#include "convert/line_source.h"
#include "convert/line_target.h"
#include "convert/progress.h"
#include "convert/vector_target.h"
#include "mapfiles/map_formats.h"

#include <string>

namespace quelmont {

/// The lines of a source on their way to a target: cut, thinned out, filled up as the options and the
/// target want them.
class LinePipeline : public LineReceiver {
public:
    /// choice is none for a target that has no features of its own. ConvertError for a column that the
    /// source does not have.
    LinePipeline(const ConvertOptions& options, LineSource& source, FeatureChoice* choice,
                 ConvertTally& tally, Progress& progress);

    void SetTarget(LineTarget& to);

    void BeginFeature(const OGRFeature& record) override;
    void TakeLine(MapLine& line) override;

private:
    void Write(MapLine& line, bool isPoint);
    bool TakeLabel(bool isPoint);

    const ConvertOptions& options;
    LineSource& source;
    FeatureChoice* choice;
    ConvertTally& tally;
    Progress& progress;
    const MapFormat* to;          ///< none for other targets than map files
    bool ofMapFile;               ///< the source has the columns of a map file
    int numberColumn, nameColumn; ///< of a map file
    int labelColumn;              ///< -1 without labels
    LineTarget* target = nullptr;
    TargetFeature feature;
    std::string label;         ///< of the feature
    bool lineLabelled = false; ///< the label stands at a line of the feature already
    std::string sourceRow;     ///< name of the row that the feature has in a map file
};

/// Looks which kinds of lines come and where they lie, and writes nothing.
class LineLook : public LineTarget {
public:
    void Write(const TargetFeature& feature, MapLine& line) override;
    void Finish() override {}

    bool AnySouth() const { return south < 0.0; }
    bool AnyNorth() const { return north > 0.0; }

    LineMix mix;

private:
    double south = 0.0, north = 0.0; ///< farthest latitudes beyond the equator, degrees
};

} // namespace quelmont
