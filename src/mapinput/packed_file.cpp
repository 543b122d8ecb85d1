#include "mapinput/packed_file.h"

#include "core/file_names.h"

namespace quelmont {

PackedRanks PackedRanksOf(std::string_view fileName) {
    const std::string letters = LastThreeLetters(fileName);
    if (letters == "GRV") {
        return PackedRanks::LineGraph;
    }
    const std::string title = Capitals(ParseFileName(fileName).title);
    if (letters == "PKD" && title.size() >= 3) {
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
