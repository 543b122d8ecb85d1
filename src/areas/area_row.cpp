#include "areas/area_row.h"

namespace quelmont {

namespace {

AreaRow OfMinuteGrid(std::int16_t feature) {
    switch (feature) {
    case 1: // Coastlines
    case 2: // Islands
        return AreaRow::Land;
    case 3: // Lakes
        return AreaRow::Lake;
    default:
        return AreaRow::None;
    }
}

AreaRow OfDataBank(std::int16_t feature) {
    if (feature >= 9 && feature <= 12) { // coastlines, islands and lakes by their size
        return AreaRow::Shore;
    }
    return feature == 13 || feature == 14 ? AreaRow::Lake : AreaRow::None; // intermittent lakes
}

AreaRow OfLineGraph(std::int16_t feature) {
    if (feature == 25) { // the coastline and the Great Lakes
        return AreaRow::Shore;
    }
    return feature >= 26 && feature <= 31 ? AreaRow::Inland : AreaRow::None; // lakes and islands
}

} // namespace

AreaRow AreaRowOf(const MapFormat& format, std::int16_t feature) {
    switch (format.form) {
    case MapFileForm::MinuteGrid:
        return OfMinuteGrid(feature);
    case MapFileForm::PackedWhole:
    case MapFileForm::PackedPart:
        return OfDataBank(feature);
    case MapFileForm::PackedLineGraph:
    case MapFileForm::LineGraphText:
        return OfLineGraph(feature);
    case MapFileForm::FixedRecords:
    case MapFileForm::WorldText:
    case MapFileForm::WorldFloats:
    case MapFileForm::AsciiDegrees:
    case MapFileForm::AsciiMetres:
        break;
    }
    return AreaRow::Shore;
}

} // namespace quelmont
