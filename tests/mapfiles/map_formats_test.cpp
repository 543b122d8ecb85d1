#include "mapfiles/map_formats.h"

#include <gtest/gtest.h>

#include <set>

namespace quelmont {
namespace {

struct Expected {
    const char* name;
    MapFileForm form;
    std::size_t rows;
    int filter;
    bool labels;
    bool lookedUp;
    OpeningStyle opening;
};

// clang-format off
constexpr Expected Endings[] = {
    {"a.prn",    MapFileForm::AsciiDegrees,    1,  1, true,  false, OpeningStyle::FirstRow},
    {"a.utm",    MapFileForm::AsciiMetres,     1,  1, true,  false, OpeningStyle::FirstRow},
    {"a.all",    MapFileForm::MinuteGrid,      10, 2, false, true,  OpeningStyle::EachRow},
    {"a.pnt",    MapFileForm::MinuteGrid,      1,  2, false, true,  OpeningStyle::AllAsFirst},
    {"a.cci",    MapFileForm::MinuteGrid,      10, 2, false, true,  OpeningStyle::EachRow},
    {"a.grv",    MapFileForm::PackedLineGraph, 72, 3, false, true,  OpeningStyle::EachRow},
    {"a.grf",    MapFileForm::LineGraphText,   72, 3, false, false, OpeningStyle::EachRow},
    {"a.map",    MapFileForm::MinuteGrid,      10, 4, false, true,  OpeningStyle::EachRow},
    {"a.dat",    MapFileForm::FixedRecords,    1,  5, false, false, OpeningStyle::FirstRow},
    {"a.pkv",    MapFileForm::PackedWhole,     36, 6, false, true,  OpeningStyle::EachRow},
    {"a.pkd",    MapFileForm::PackedPart,      36, 6, false, true,  OpeningStyle::EachRow},
    {"a.mp1",    MapFileForm::WorldText,       1,  7, false, false, OpeningStyle::FirstRow},
    {"a.mps",    MapFileForm::WorldFloats,     1,  7, false, true,  OpeningStyle::FirstRow},
    {"a.txt",    MapFileForm::AsciiDegrees,    1,  4, false, false, OpeningStyle::FirstRow},
    {"a",        MapFileForm::AsciiDegrees,    1,  4, false, false, OpeningStyle::FirstRow},
    {"",         MapFileForm::AsciiDegrees,    1,  4, false, false, OpeningStyle::FirstRow},
    {"a.maps",   MapFileForm::AsciiDegrees,    1,  4, false, false, OpeningStyle::FirstRow},
    // The last three letters count, whatever stands before them.
    {"roadMAP",  MapFileForm::MinuteGrid,      10, 4, false, true,  OpeningStyle::EachRow},
    {"B.PkD",    MapFileForm::PackedPart,      36, 6, false, true,  OpeningStyle::EachRow},
};
// clang-format on

TEST(MapFormats, LastThreeLettersDecideEverything) {
    for (const Expected& expected : Endings) {
        const MapFormat& format = MapFormatOf(expected.name);
        EXPECT_EQ(format.form, expected.form) << expected.name;
        EXPECT_EQ(format.rows.size(), expected.rows) << expected.name;
        EXPECT_EQ(format.filter, expected.filter) << expected.name;
        EXPECT_EQ(format.labels, expected.labels) << expected.name;
        EXPECT_EQ(format.lookedUp, expected.lookedUp) << expected.name;
        EXPECT_EQ(format.opening, expected.opening) << expected.name;
    }
}

TEST(MapFormats, EachEndingStandsOnce) {
    std::set<std::string_view> letters;
    for (const MapFormat& format : MapFormats()) {
        EXPECT_TRUE(letters.insert(format.letters).second) << format.letters;
    }
    EXPECT_EQ(letters.size(), 14U) << "thirteen endings, and any other";
}

TEST(MapFormats, WholeEndingHasAPointBeforeItsLetters) {
    ASSERT_NE(MapFormatOfEnding("folder/World.MAP"), nullptr);
    EXPECT_EQ(MapFormatOfEnding("folder/World.MAP")->letters, "MAP");
    for (const char* const name : {"roadmap", "map", "", "a.txt", "a.maps", "a.prn/b", "txt"}) {
        EXPECT_EQ(MapFormatOfEnding(name), nullptr) << name;
    }
    EXPECT_EQ(MapFormatOfEnding(".pkv")->form, MapFileForm::PackedWhole);
}

TEST(MapFormats, EndingIsWrittenInSmallLetters) {
    EXPECT_EQ(EndingOf(MapFormatOf("A.MP1")), ".mp1");
    EXPECT_EQ(MapFileEndings(),
              ".prn, .utm, .all, .pnt, .cci, .grv, .grf, .map, .dat, .pkv, .pkd, .mp1, .mps");
}

TEST(MapFormats, FiltersOfTheFileDialog) {
    EXPECT_EQ(
        MapFileFilters(),
        "ASCII (.prn, .utm)|*.prn;*.utm|MWDB2 (.all, .pnt, .cci)|*.all;*.pnt;*.cci|USGS DLG (.grv, "
        ".grf)|*.grv;*.grf|QMNT (.map)|*.map|WDB1 (.dat)|*.dat|WDB2 (.pkv, .pkd)|*.pkv;*.pkd|World "
        "(.mp1, .mps)|*.mp1;*.mps|All digital map files|*.prn;*.utm;*.all;*.pnt;*.cci;*.grv;*.grf;*.map;"
        "*.dat;*.pkv;*.pkd;*.mp1;*.mps|All files|*");
}

} // namespace
} // namespace quelmont
