#pragma once

#include <cstddef>
#include <string>

namespace quelmont {

/// The most bytes of one feature of a GeoJSON file, and of one line of other text, that are handed to
/// GDAL. It keeps them in memory as a whole, at some 24 bytes for each.
constexpr std::size_t MaxTextFeature = std::size_t{64} * 1024 * 1024;

/// Refuses a file of text that has more in one piece before GDAL reads it: of a GeoJSON feature collection
/// a single feature counts, of any other JSON text the whole, and else a line. Files that are no text,
/// and names of what is no file, are passed over. ConvertError.
void RefuseHugeText(const std::string& name);

} // namespace quelmont
