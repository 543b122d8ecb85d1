#include "designfile/cnf_read.h"

#include "core/angle_text.h"
#include "designfile/cnf_save.h"
#include "designfile/designs.h"
#include "mainwindow/map_draw.h"
#include "projection/projection_table.h"
#include "support/hard_times.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>

namespace quelmont {
namespace {

using testing::Contains;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::SizeIs;

using RecallingDesigns = DesignFiles;

TEST_F(RecallingDesigns, SavedDesignIsTheSameAgainOnEveryProjection) {
    for (const ProjectionEntry& projection : Projections) {
        StartAgain();
        AcceptProjection(projection.ProjNum);
        Design.CnfFileName = name;
        const std::string design = ComparableDesignText();
        const std::string picture = Drawn();
        const std::string file = Saved();
        StartAgain();
        EXPECT_TRUE(Recalled(file)) << projection.ProjName;
        EXPECT_THAT(Told(machine.boxes.Taken()), IsEmpty());
        EXPECT_EQ(Saved(), file) << projection.ProjName;
        EXPECT_EQ(ComparableDesignText(), design);
        EXPECT_EQ(Design.BoundsProjNum, projection.ProjNum);
        EXPECT_EQ(Drawn(), picture) << projection.ProjName;
        EXPECT_EQ(window.caption, "Quelmont: " + std::string(projection.ProjName) + " projection");
        EXPECT_EQ(Design.ProjNumPrev, projection.ProjNum);
    }
}

TEST_F(RecallingDesigns, ThousandRandomDesignsAreSavedToTheSameBytes) {
    std::mt19937 random(20);
    for (int i = 0; i < 1000; ++i) {
        StartAgain();
        ASSERT_NO_FATAL_FAILURE(MakeRandomDesign(random));
        machine.boxes.Taken();
        const std::string file = Saved();
        StartAgain();
        ASSERT_TRUE(Recalled(file)) << file;
        ASSERT_EQ(Saved(), file);
    }
}

/// What the grid's text export holds.
std::string AsciiExport(const std::string& file) {
    Design.InputFiles.clear();
    Design.MapFileCount = 0;
    Design.AsciiFileName = {file, file + "2"};
    Design.OutputAscii = true;
    MapDraw();
    return std::filesystem::exists(file) ? ReadWholeFile(file) : "";
}

TEST_F(RecallingDesigns, RandomDesignDrawsAndExportsTheSameAgain) {
    std::mt19937 random(7);
    for (int i = 0; i < 120; ++i) {
        StartAgain();
        ASSERT_NO_FATAL_FAILURE(MakeRandomDesign(random));
        machine.boxes.Taken();
        Design.InputFiles.clear();
        Design.MapFileCount = 0;
        Design.GcDefined = Design.ScDefined = false;
        const std::string file = Saved();
        const std::string picture = Drawn();
        const std::string exported = AsciiExport(folder / "before.txt");
        StartAgain();
        ASSERT_TRUE(Recalled(file));
        ASSERT_EQ(Drawn(), picture) << file;
        ASSERT_EQ(AsciiExport(folder / "after.txt"), exported);
        machine.boxes.Taken();
    }
}

TEST_F(RecallingDesigns, TwelveRoundsKeepTheSizeOfTheMap) {
    for (const double reduce : {0.1, 0.35, 0.7, 1.0 / 3.0, 0.97}) {
        StartAgain();
        Design.MapReduce = reduce;
        Recalled(Saved());
        const double first = Design.MapReduce;
        EXPECT_NEAR(first, reduce, 1e-15);
        for (int round = 0; round < 12; ++round) {
            EXPECT_TRUE(Recalled(Saved()));
            EXPECT_EQ(Design.MapReduce, first);
        }
    }
}

TEST_F(RecallingDesigns, FileTellsNothingThatIsDerived) {
    AcceptProjection(ProjVerticalPerspective);
    const DesignBounds before = Design;
    const std::string file = Saved();
    StartAgain();
    Recalled(file);
    EXPECT_EQ(Design.HorizonCos, before.HorizonCos);
    EXPECT_EQ(Design.VpDistanceKm, 35840.0);
    EXPECT_EQ(Design.CosRange, before.CosRange);
    EXPECT_EQ(Design.LatCentralRad, before.LatCentralRad);
    EXPECT_EQ(Design.CosLatCentral, before.CosLatCentral);
    EXPECT_EQ(Design.SinLatCentral, before.SinLatCentral);
    EXPECT_EQ(Design.LonWestText, "180 00 00 W");
    EXPECT_EQ(Design.LonEastText, before.LonEastText);
    EXPECT_EQ(Design.LatCentralSec, 40 * 3600);
    EXPECT_EQ(Design.LonCentralSec, 0);
}

TEST_F(RecallingDesigns, RecallNeedsNoCalculationOfWhatItRead) {
    // A grid that no dialog would accept, as 40 degrees divide no 180, but whose numbers fit each other.
    std::vector<std::string> lines = LinesOf(Saved());
    auto places = RecordPlaces(lines);
    lines[places[34]] = " 90     -90      40      4";
    lines[places[40]] = " 324000 -324000  144000 ";
    EXPECT_TRUE(Recalled(Joined(lines)));
    EXPECT_EQ(Design.LatGridSec, 144000);
    EXPECT_EQ(Design.LatGrid, 40.0);
}

TEST_F(RecallingDesigns, NameStaysTheOneThatWasOpened) {
    Design.CnfFileName = "/elsewhere/other.cnf";
    const std::string file = DesignFileText();
    EXPECT_TRUE(Recalled(file));
    EXPECT_EQ(Design.CnfFileName, name);
}

TEST_F(RecallingDesigns, TextsMayHaveCommasQuotesAndBlanksAtTheirEnds) {
    Design.TextItems.assign(1, TextOf("  Oslo, \"the\" town  "));
    Design.TextItems[0].TextFont = " Arial, old ";
    Design.AsciiFileName = {" a, b ", ""};
    Design.GridTypeText = " All, \"grid\" points ";
    Design.InputFiles[0].MapFileName = "/maps/north, south.map";
    const std::string file = Saved();
    StartAgain();
    EXPECT_TRUE(Recalled(file));
    EXPECT_EQ(Design.TextItems[0].TextString, "  Oslo, \"the\" town  ");
    EXPECT_EQ(Design.TextItems[0].TextFont, " Arial, old ");
    EXPECT_THAT(Design.AsciiFileName, ElementsAre(" a, b ", ""));
    EXPECT_EQ(Design.GridTypeText, " All, \"grid\" points ");
    EXPECT_EQ(Design.InputFiles[0].MapFileName, "/maps/north, south.map");
}

TEST_F(RecallingDesigns, AnyLineEndAndAByteOrderMarkAreRead) {
    const std::string file = Saved();
    for (const std::string end : {"\n", "\r", "\r\n"}) {
        std::string other = "\xEF\xBB\xBF";
        for (const std::string& line : LinesOf(file)) {
            other += line + end;
        }
        StartAgain();
        EXPECT_TRUE(Recalled(other));
        EXPECT_EQ(Saved(), file);
        other.resize(other.size() - end.size());
        EXPECT_TRUE(Recalled(other)) << "the last line needs no end";
    }
}

TEST_F(RecallingDesigns, BlanksBehindTheVersionAreDropped) {
    std::vector<std::string> lines = LinesOf(Saved());
    lines[0] += "   ";
    EXPECT_TRUE(Recalled(Joined(lines)));
    for (const char* version : {"9.99", "3.01"}) {
        lines[0] = std::string("Configuration file, version ") + version;
        EXPECT_TRUE(Recalled(Joined(lines))) << version;
    }
}

TEST_F(RecallingDesigns, FileThatIsNoUtf8IsWindows1252) {
    Design.TextItems.assign(1, TextOf("T?nsberg"));
    std::string file = Saved();
    file[file.find("T?nsberg") + 1] = '\xF8';
    EXPECT_TRUE(Recalled(file));
    EXPECT_EQ(Design.TextItems[0].TextString, "T\xC3\xB8nsberg");
}

TEST_F(RecallingDesigns, SpheroidOfAnotherNameIsKnown) {
    std::vector<std::string> lines = LinesOf(Saved());
    lines[RecordPlaces(lines)[46]] = "GRS80 1980";
    EXPECT_TRUE(Recalled(Joined(lines)));
    EXPECT_EQ(Design.SpheroidName, "WGS84 1984");
}

TEST_F(RecallingDesigns, CaptionComesBackAfterAFault) {
    EXPECT_FALSE(Recalled("Quelmont configuration file version 3.00\r\nMercator\r\n"));
    EXPECT_THAT(Told(machine.boxes.Taken()), ElementsAre("Error in CnfRead: Error: Input past end of file"));
    EXPECT_THAT(window.captions, Contains("Quelmont: reading configuration file"));
    EXPECT_EQ(window.caption, "Quelmont: Equirectangular projection");
    EXPECT_EQ(Design.ProjName, "Mercator") << "what was read before the fault stays";
    EXPECT_EQ(Design.ProjNum, ProjEquirectangular);
}

TEST_F(RecallingDesigns, WhatWasReadBeforeAFaultStays) {
    AcceptProjection(ProjMercator);
    Design.BackColor = SolidColor(Rgb(1, 2, 3));
    Design.InputFiles.assign(2, Design.InputFiles[0]);
    Design.InputFiles[0].MapFileName = "/maps/one.map";
    std::vector<std::string> lines = LinesOf(Saved());
    const auto places = RecordPlaces(lines);
    lines[places.at(21) + 4].insert(0, "x");
    StartAgain();
    EXPECT_FALSE(Recalled(Joined(lines)));
    EXPECT_THAT(Told(machine.boxes.Taken()), ElementsAre("Error in CnfRead: Error: Type mismatch"));
    EXPECT_EQ(Design.ProjNum, ProjMercator);
    EXPECT_EQ(Design.BackColor, SolidColor(Rgb(1, 2, 3)));
    ASSERT_THAT(Design.InputFiles, SizeIs(2));
    EXPECT_EQ(Design.MapFileCount, 2);
    EXPECT_EQ(Design.InputFiles[0].MapFileName, "/maps/one.map");
    EXPECT_EQ(Design.BoundsProjNum, 0) << "the bounds are still those of another projection";
}

TEST_F(RecallingDesigns, BoundsAreStoredTogetherOrNotAtAll) {
    AcceptProjection(ProjMercator);
    std::vector<std::string> lines = LinesOf(Saved());
    auto places = RecordPlaces(lines);
    const std::vector<std::pair<int, std::string>> faults = {
        {34, " 80     -80      20      9"}, {34, " 80     -80      21      8"},
        {34, "-80      80      20      8"}, {35, " 360      0      0      8"},
        {35, " 350      0      45      8"}, {38, " 180     -170"},
        {40, " 288000 -288000  0 "},        {41, " 1296000  1  162000 "},
        {44, " 1      1      2     -2"},    {44, " 1E308     -1E308      2     -2"},
        {44, " 3      1      2      3"},    {45, " 0      0      0"},
    };
    for (const auto& [number, line] : faults) {
        StartAgain();
        std::vector<std::string> faulty = lines;
        faulty[places[number]] = line;
        EXPECT_FALSE(Recalled(Joined(faulty))) << number << line;
        machine.boxes.Taken();
        EXPECT_EQ(Design.LatNorth, 90.0) << number << line;
        EXPECT_EQ(Design.LatNorthText, "90 00 00 N");
        EXPECT_NEAR(Design.MapYMax, 1.570796326794897, 1e-12) << "a quarter of a circle";
        EXPECT_EQ(Design.BoundsProjNum, 0);
    }
}

TEST_F(RecallingDesigns, PerspectiveNeedsAViewPointAboveTheSurface) {
    AcceptProjection(ProjVerticalPerspective);
    std::vector<std::string> lines = LinesOf(Saved());
    lines[RecordPlaces(lines)[43]] = " 300000      1";
    EXPECT_FALSE(Recalled(Joined(lines)));
    EXPECT_THAT(Told(machine.boxes.Taken()),
                ElementsAre("Error in CnfRead: Error: Invalid procedure call or argument"));
}

TEST_F(RecallingDesigns, CountsBeyondTheLinesLeftAreRefusedBeforeAnythingIsSized) {
    std::vector<std::string> lines = LinesOf(Saved());
    auto places = RecordPlaces(lines);
    std::vector<std::string> manyFiles = lines;
    manyFiles[places[20]] = " 1  32767 ";
    EXPECT_FALSE(Recalled(Joined(manyFiles)));
    EXPECT_THAT(Design.InputFiles, SizeIs(1));
    std::vector<std::string> texts = lines;
    texts[places[53]] = " 100           2147483647 ";
    EXPECT_FALSE(Recalled(Joined(texts)));
    EXPECT_THAT(Told(machine.boxes.Taken()), ElementsAre("Error in CnfRead: Error: Input past end of file",
                                                         "Error in CnfRead: Error: Input past end of file"));
}

TEST_F(RecallingDesigns, FileAboveSixtyFourMegabytesIsRefused) {
    std::filesystem::resize_file((WriteWholeFile(name, ""), name), LargestDesignFile + 1);
    Design.CnfFileName = name;
    EXPECT_FALSE(CnfRead());
    EXPECT_THAT(
        Told(machine.boxes.Taken()),
        ElementsAre("Error in CnfRead: Error: The file has more than 64 MB, which no map design has."));
    EXPECT_EQ(Design.ProjName, "Equirectangular");
}

TEST_F(RecallingDesigns, MissingFileFolderAndForbiddenFileAreReported) {
    Design.CnfFileName = folder / "missing.cnf";
    EXPECT_FALSE(CnfRead());
    std::filesystem::create_directory(folder / "folder.cnf");
    Design.CnfFileName = folder / "folder.cnf";
    EXPECT_FALSE(CnfRead());
    WriteWholeFile(name, "");
    std::filesystem::permissions(folder.Path(), std::filesystem::perms::all);
    std::filesystem::permissions(name, std::filesystem::perms::none);
    Design.CnfFileName = name;
    {
        const WithoutPrivilege nobody;
        EXPECT_FALSE(CnfRead());
    }
    std::filesystem::permissions(name, std::filesystem::perms::owner_all);
    EXPECT_FALSE(CnfRead());
    EXPECT_THAT(Told(machine.boxes.Taken()), ElementsAre("Error in CnfRead: Error: File not found",
                                                         "Error in CnfRead: Error: Path/File access error",
                                                         "Error in CnfRead: Error: Permission denied",
                                                         "Error in CnfRead: Error: Input past end of file"));
}

TEST_F(RecallingDesigns, CirclesThatAreShownAreComputed) {
    Design.GcDefined = true;
    const std::string route = Saved();
    Design.GcDefined = false;
    Design.ScDefined = true;
    const std::string rings = Saved();
    StartAgain();
    EXPECT_TRUE(Recalled(route));
    EXPECT_THAT(Design.GcTable.Rows, SizeIs(176));
    EXPECT_THAT(Design.ScTable.Points, IsEmpty());
    EXPECT_TRUE(Recalled(rings));
    EXPECT_THAT(Design.GcTable.Rows, IsEmpty());
    EXPECT_THAT(Design.ScTable.ScRingEnd, ElementsAre(361, 722, 1083));
}

TEST_F(RecallingDesigns, ListsOfLabelsAreEmptied) {
    const std::string file = Saved();
    Design.MapLabels.resize(3);
    EXPECT_TRUE(Recalled(file));
    EXPECT_THAT(Design.MapLabels, IsEmpty());
}

TEST_F(RecallingDesigns, AreaOfAFileIsReportedWithoutRecallingIt) {
    AcceptProjection(ProjMercator);
    const std::string file = Saved();
    StartAgain();
    const auto area = AreaOfDesignFile(name);
    ASSERT_TRUE(area.has_value());
    EXPECT_EQ(area->width, 800);
    EXPECT_EQ(area->height, 600);
    EXPECT_EQ(Design.ProjNum, ProjEquirectangular);
    EXPECT_FALSE(AreaOfDesignFile(folder / "missing.cnf").has_value());
    EXPECT_THAT(machine.boxes.asked, IsEmpty());
}

} // namespace
} // namespace quelmont
