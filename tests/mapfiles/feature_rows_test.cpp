#include "mapfiles/feature_rows.h"

#include "core/map_design.h"
#include "support/fresh_program.h"

#include <gtest/gtest.h>

#include <set>

namespace quelmont {
namespace {

class FeatureRowsTest : public FreshProgramTest {
protected:
    FeatureRowsTest() { Design.TwipsPerPixelY = 15.0F; }
};

TEST_F(FeatureRowsTest, TableFollowsTheLastThreeLetters) {
    for (const char* name : {"a.all", "b.CCI", "dir/c.Map"}) {
        EXPECT_EQ(FeatureRows(name).size(), 10U) << name;
    }
    for (const char* name : {"a.pkv", "b.PKD"}) {
        EXPECT_EQ(FeatureRows(name).size(), 36U) << name;
    }
    for (const char* name : {"a.grv", "b.GRF"}) {
        EXPECT_EQ(FeatureRows(name).size(), 72U) << name;
    }
    for (const char* name : {"a.pnt", "b.prn", "c.utm", "d.dat", "e.mp1", "f.mps", "g", "", "h.maps"}) {
        EXPECT_EQ(FeatureRows(name).size(), 1U) << name;
    }
}

TEST_F(FeatureRowsTest, NamesOfOneTableDiffer) {
    for (const char* name : {"a.map", "a.pkd", "a.grv"}) {
        std::set<std::string_view> names;
        for (const FeatureRow& row : FeatureRows(name)) {
            EXPECT_FALSE(row.name.empty());
            EXPECT_TRUE(names.insert(row.name).second) << row.name;
        }
    }
}

TEST_F(FeatureRowsTest, RowsStandInTheOrderOfTheirNumbers) {
    EXPECT_EQ(FeatureRows("a.map")[4].name, "Countries");
    EXPECT_EQ(FeatureRows("a.pkd")[8].name, "Coastlines, Islands, Lakes");
    EXPECT_EQ(FeatureRows("a.pkd")[34].name, "Australian States");
    EXPECT_EQ(FeatureRows("a.grv")[36].name, "Interstate highway");
    EXPECT_EQ(FeatureRows("a.grv")[71].name, "Alaska pipeline");
    EXPECT_EQ(FeatureRows("a.grv")[2].name, "River, perennial,        <30 km") << "blanks line up sizes";
    EXPECT_EQ(FeatureRows("a.dat")[0].name, "All features");
}

TEST_F(FeatureRowsTest, ColoursOfTheWorldMap) {
    const InputFileEntry entry = NewMapFileEntry("world.map");
    const auto color = [&](std::size_t feature) { return ColorBits(entry.Features[feature].Color); };
    EXPECT_EQ(color(1), Rgb(0, 128, 0));
    EXPECT_EQ(color(3), Rgb(0, 0, 255));
    EXPECT_EQ(color(5), Rgb(255, 0, 0));
    EXPECT_EQ(color(8), Rgb(255, 0, 255));
    EXPECT_EQ(color(10), Rgb(128, 0, 0));
}

TEST_F(FeatureRowsTest, ColoursOfTheLargerTablesChangeAtTheirBorders) {
    const InputFileEntry bank = NewMapFileEntry("a.pkd");
    EXPECT_EQ(ColorBits(bank.Features[8].Color), Rgb(255, 0, 0));
    EXPECT_EQ(ColorBits(bank.Features[9].Color), Rgb(0, 128, 0));
    EXPECT_EQ(ColorBits(bank.Features[20].Color), Rgb(0, 128, 0));
    EXPECT_EQ(ColorBits(bank.Features[21].Color), Rgb(0, 0, 255));
    EXPECT_EQ(ColorBits(bank.Features[31].Color), Rgb(0, 0, 255));
    EXPECT_EQ(ColorBits(bank.Features[32].Color), Rgb(255, 0, 255));
    const InputFileEntry graph = NewMapFileEntry("a.grf");
    const std::pair<std::size_t, ColorValue> borders[] = {
        {24, Rgb(0, 0, 255)}, {25, Rgb(0, 128, 0)},   {36, Rgb(0, 128, 0)},   {37, Rgb(1, 0, 0)},
        {47, Rgb(1, 0, 0)},   {48, Rgb(255, 0, 255)}, {52, Rgb(255, 0, 255)}, {53, Rgb(255, 0, 0)},
        {62, Rgb(255, 0, 0)}, {63, Rgb(128, 0, 0)},   {72, Rgb(128, 0, 0)},
    };
    for (const auto& [row, color] : borders) {
        EXPECT_EQ(ColorBits(graph.Features[row].Color), color) << row;
    }
}

TEST_F(FeatureRowsTest, NewEntryShowsEveryRowOfItsTableAndNoOther) {
    const InputFileEntry entry = NewMapFileEntry("folder/a.map");
    EXPECT_EQ(entry.MapFileName, "folder/a.map");
    EXPECT_EQ(entry.MapFileType, SymbolLine);
    EXPECT_FALSE(entry.Features[0].Shown);
    for (std::size_t feature = 1; feature <= 10; ++feature) {
        EXPECT_TRUE(entry.Features[feature].Shown);
        EXPECT_NE(entry.Features[feature].Color & SolidColorFlag, 0U);
    }
    for (std::size_t feature = 11; feature < entry.Features.size(); ++feature) {
        EXPECT_FALSE(entry.Features[feature].Shown);
    }
}

TEST_F(FeatureRowsTest, SizesOfANewEntryArePixels) {
    EXPECT_EQ(NewMapFileEntry("a.map").Features[1].LineWidth, 15);
    EXPECT_EQ(NewMapFileEntry("a.map").Features[1].SymbolSize, 45);
    EXPECT_EQ(NewMapFileEntry("a.map").Features[1].BorderWidth, 15);
    Design.TwipsPerPixelY = 7.5F; // two device pixels to one of the desktop
    EXPECT_EQ(NewMapFileEntry("a.map").Features[1].LineWidth, 8);
    EXPECT_EQ(NewMapFileEntry("a.map").Features[1].SymbolSize, 22); // 22.5, to the even neighbour
}

} // namespace
} // namespace quelmont
