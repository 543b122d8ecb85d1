#include "mapfiles/packed_file.h"

#include "core/file_names.h"
#include "mapfiles/map_formats.h"

namespace quelmont {

PackedRanks PackedRanksOf(std::string_view fileName) {
    const MapFileForm form = MapFormatOf(fileName).form;
    if (form == MapFileForm::PackedLineGraph) {
        return PackedRanks::LineGraph;
    }
    const std::string title = Capitals(ParseFileName(fileName).title);
    if (form == MapFileForm::PackedPart && title.size() >= 3) {
        switch (title[2]) {
        case 'C':
            return PackedRanks::Coast;
        case 'R':
            return PackedRanks::River;
        case 'P':
            return PackedRanks::Political;
        default:
            break;
        }
    }
    return PackedRanks::Whole;
}

} // namespace quelmont
