#pragma once

#include "mapfiles/feature_rows.h"

#include <span>
#include <string>
#include <string_view>

/// What the ending of a map file's name decides, in one table.

namespace quelmont {

/// How the bytes of a map file are laid out, and what its ranks and codes mean.
enum class MapFileForm {
    MinuteGrid,
    PackedWhole,     ///< ranks of the whole world data bank
    PackedPart,      ///< ranks of a part of it, which the third letter of the title names
    PackedLineGraph, ///< bytes of a digital line graph
    FixedRecords,
    LineGraphText, ///< fixed records with the codes of a digital line graph
    WorldText,
    WorldFloats,
    AsciiDegrees,
    AsciiMetres, ///< of a zone of the UTM grid
};

/// In which styles the points of a file are drawn.
enum class OpeningStyle {
    FirstRow,   ///< all in that of feature 1; a file whose feature 1 is not shown is not opened
    EachRow,    ///< in that of their feature
    AllAsFirst, ///< whatever their rank, in that of feature 1, and shown if it is
};

struct MapFormat {
    std::string_view letters; ///< the last three of a name, in capitals; empty: of any other name
    MapFileForm form;
    std::span<const FeatureRow> rows;
    int filter;    ///< line of the file dialog's filters, from 1
    bool labels;   ///< points may have labels, for which a font can be chosen
    bool lookedUp; ///< whatever keeps the name from being found is "File not found"
    OpeningStyle opening;
};

/// Every format, in the order of the file dialog's filters; the last is that of any other name.
std::span<const MapFormat> MapFormats();

/// The format of a file by the last three letters of its name, in any case.
const MapFormat& MapFormatOf(std::string_view fileName);

/// The same for a name that has to end in "." and the letters of a format; null for any other.
const MapFormat* MapFormatOfEnding(std::string_view fileName);

/// Whether the points of a file may have labels: those of text files in degrees and in metres.
bool MayHaveLabels(std::string_view fileName);

/// "." and the letters in small ones; "." alone for the format of any other name.
std::string EndingOf(const MapFormat& format);

/// The endings of all formats: ".prn, .utm, .all".
std::string MapFileEndings();

/// The filters of the file dialog that asks for map files: for each the family's name with its
/// endings, "|", and the patterns with ";" between them; "|" between filters. Behind them stand one of all
/// map files and one of all files.
std::string MapFileFilters();
constexpr int FilterOfAllMapFiles = 8; ///< from 1

} // namespace quelmont
