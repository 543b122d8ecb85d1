#pragma once

#include "convert/line_encoder.h"

#include <memory>

namespace quelmont {

/// The encoder of GeoJSON (RFC 7946): a collection of lines and points with the properties feature, name,
/// and label if there are labels. Coordinates have all the digits that tell them from their neighbours.
/// GDAL's own writer does not notice a full disk.
std::unique_ptr<LineEncoder> NewGeoJsonEncoder(bool hasLabels, ConvertTally& tally);

} // namespace quelmont
