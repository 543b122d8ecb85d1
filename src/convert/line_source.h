#pragma once

#include "convert/map_line.h"
#include "convert/source_losses.h"

#include <ogr_feature.h>

namespace quelmont {

/// Takes what a source has: a feature, and the lines that belong to it.
class LineReceiver {
public:
    LineReceiver() = default;
    virtual ~LineReceiver() = default;
    LineReceiver(const LineReceiver&) = delete;
    LineReceiver& operator=(const LineReceiver&) = delete;

    /// The columns of the feature whose lines follow; its geometry is of no concern.
    virtual void BeginFeature(const OGRFeature& feature) = 0;
    /// The line may be taken apart. Degrees on WGS84.
    virtual void TakeLine(MapLine& line) = 0;
};

/// A file that is read.
class LineSource {
public:
    LineSource() = default;
    virtual ~LineSource() = default;
    LineSource(const LineSource&) = delete;
    LineSource& operator=(const LineSource&) = delete;

    /// Its columns; no geometries.
    virtual OGRFeatureDefn& Columns() = 0;
    /// All its features in their order; may be called again. ConvertError when it cannot be read to its end.
    virtual void Read(LineReceiver& receiver) = 0;
    /// How much of it has been read, 0 to 1; below 0 when that is not known.
    virtual double Share() const = 0;
    /// Of the last reading.
    SourceLosses losses;
};

/// The columns of a map file, as they are written too.
constexpr const char* FeatureColumn = "feature";
constexpr const char* NameColumn = "name";
constexpr const char* LabelColumn = "label";

} // namespace quelmont
