#include "mapfiles/map_formats.h"

#include "core/file_names.h"

#include <algorithm>
#include <array>
#include <cstddef>

namespace quelmont {

namespace {

/// Names of the filters, which count from 1.
constexpr std::array FilterNames = {"ASCII", "MWDB2", "USGS DLG", "QMNT", "WDB1", "WDB2", "World"};
constexpr int Ascii = 1;
constexpr int MinuteGrids = 2;
constexpr int LineGraphs = 3;
constexpr int OwnWorld = 4;
constexpr int DataBank1 = 5;
constexpr int DataBank2 = 6;
constexpr int Worlds = 7;
static_assert(FilterOfAllMapFiles == FilterNames.size() + 1);

// clang-format off
constexpr std::array Formats = std::to_array<MapFormat>({
    // letters form                          rows                         filter       labels looked up opening
    {"PRN", MapFileForm::AsciiDegrees,    feature_rows::WholeFile,     Ascii,       true,  false, OpeningStyle::FirstRow  },
    {"UTM", MapFileForm::AsciiMetres,     feature_rows::WholeFile,     Ascii,       true,  false, OpeningStyle::FirstRow  },
    {"ALL", MapFileForm::MinuteGrid,      feature_rows::MinuteGrid,    MinuteGrids, false, true,  OpeningStyle::EachRow   },
    {"PNT", MapFileForm::MinuteGrid,      feature_rows::WholeFile,     MinuteGrids, false, true,  OpeningStyle::AllAsFirst},
    {"CCI", MapFileForm::MinuteGrid,      feature_rows::MinuteGrid,    MinuteGrids, false, true,  OpeningStyle::EachRow   },
    {"GRV", MapFileForm::PackedLineGraph, feature_rows::LineGraph,     LineGraphs,  false, true,  OpeningStyle::EachRow   },
    {"GRF", MapFileForm::LineGraphText,   feature_rows::LineGraph,     LineGraphs,  false, false, OpeningStyle::EachRow   },
    {"MAP", MapFileForm::MinuteGrid,      feature_rows::MinuteGrid,    OwnWorld,    false, true,  OpeningStyle::EachRow   },
    {"DAT", MapFileForm::FixedRecords,    feature_rows::WholeFile,     DataBank1,   false, false, OpeningStyle::FirstRow  },
    {"PKV", MapFileForm::PackedWhole,     feature_rows::WorldDataBank, DataBank2,   false, true,  OpeningStyle::EachRow   },
    {"PKD", MapFileForm::PackedPart,      feature_rows::WorldDataBank, DataBank2,   false, true,  OpeningStyle::EachRow   },
    {"MP1", MapFileForm::WorldText,       feature_rows::WholeFile,     Worlds,      false, false, OpeningStyle::FirstRow  },
    {"MPS", MapFileForm::WorldFloats,     feature_rows::WholeFile,     Worlds,      false, true,  OpeningStyle::FirstRow  },
    {"",    MapFileForm::AsciiDegrees,    feature_rows::WholeFile,     OwnWorld,    false, false, OpeningStyle::FirstRow  },
});
// clang-format on
static_assert(Formats.back().letters.empty(), "the last row takes every other name");
static_assert(std::is_sorted(Formats.begin(), Formats.end() - 1,
                             [](const MapFormat& a, const MapFormat& b) { return a.filter < b.filter; }),
              "in the order of the filters");

/// The formats of one filter in words.
template <typename Word>
std::string Join(int filter, std::string_view between, Word&& word) {
    std::string text;
    for (const MapFormat& format : Formats) {
        if (format.filter == filter && !format.letters.empty()) {
            text += (text.empty() ? "" : std::string(between)) + word(format);
        }
    }
    return text;
}

std::string PatternsOf(int filter) {
    return Join(filter, ";", [](const MapFormat& format) { return "*" + EndingOf(format); });
}

} // namespace

std::span<const MapFormat> MapFormats() { return Formats; }

const MapFormat& MapFormatOf(std::string_view fileName) {
    const std::string letters = LastThreeLetters(fileName);
    return *std::find_if(Formats.begin(), Formats.end() - 1,
                         [&](const MapFormat& format) { return format.letters == letters; });
}

const MapFormat* MapFormatOfEnding(std::string_view fileName) {
    const MapFormat& format = MapFormatOf(fileName);
    const std::size_t size = format.letters.size() + 1;
    const bool ends = size > 1 && fileName.size() >= size && fileName[fileName.size() - size] == '.';
    return ends ? &format : nullptr;
}

bool MayHaveLabels(std::string_view fileName) {
    const MapFileForm form = MapFormatOf(fileName).form;
    return form == MapFileForm::AsciiDegrees || form == MapFileForm::AsciiMetres;
}

std::string EndingOf(const MapFormat& format) {
    std::string ending = ".";
    for (const char letter : format.letters) {
        ending += letter >= 'A' && letter <= 'Z' ? static_cast<char>(letter - 'A' + 'a') : letter;
    }
    return ending;
}

std::string MapFileEndings() {
    std::string text;
    for (const MapFormat& format : MapFormats().first(Formats.size() - 1)) {
        text += (text.empty() ? "" : ", ") + EndingOf(format);
    }
    return text;
}

std::string MapFileFilters() {
    std::string text;
    std::string all;
    int filter = 0;
    for (const char* const name : FilterNames) {
        ++filter;
        text += (text.empty() ? "" : "|") + std::string(name) + " (" + Join(filter, ", ", EndingOf) + ")|" +
                PatternsOf(filter);
        all += (all.empty() ? "" : ";") + PatternsOf(filter);
    }
    return text + "|All digital map files|" + all + "|All files|*";
}

} // namespace quelmont
