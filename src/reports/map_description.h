#pragma once

#include <string>

namespace quelmont {

/// The title of the map in files that have one: that of the design's file without its ending, or "Outline
/// map" for a design that has none.
/// Reads   CnfFileName.
std::string MapTitleText();

/// A map in a sentence or two for people who cannot see it: its projection, what it shows, its map files.
/// Bounds are those of the dialogs' texts, "37\u00B0 47' N"; whole metres on UTM. Reads   ProjNum, ProjName,
/// GridText, LatCentral, LonMiddle, RangeSec, the bounds in metres, InputFiles.
std::string MapDescriptionText();

} // namespace quelmont
