#include "areas/fill_areas.h"

#include "areas/caps.h"
#include "areas/filled_map.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <array>
#include <cstdlib>
#include <string>
#include <utility>
#include <vector>

namespace quelmont {
namespace {

using Arguments = std::vector<std::string>;

std::string Degrees(int degrees) { return std::to_string(degrees); }

/// A map of much of the world about a meridian, the bounds whole degrees that divide its grid.
Arguments AboutMeridian(int projNum, int meridian) {
    const auto within = [](int lon) { return lon > 180 ? lon - 360 : lon < -180 ? lon + 360 : lon; };
    Arguments arguments = {"--projection", Degrees(projNum)};
    const auto add = [&](const Arguments& more) {
        arguments.insert(arguments.end(), more.begin(), more.end());
    };
    if (projNum >= 26 && projNum <= 31) {
        add({"--central-lon", Degrees(within(meridian)), "--central-lat", Degrees(meridian * 11 % 91)});
        if (projNum == 30 || projNum == 31) {
            add({"--range", "180"});
        }
        return arguments;
    }
    if (projNum == 17) {
        add({"--utm-central-lon", Degrees(within(meridian)), "--utm-false-easting", "4000000", "--utm-west",
             "0", "--utm-east", "8000000", "--utm-lon-grid", "1000000", "--utm-south", "0", "--utm-north",
             "6000000", "--utm-lat-grid", "1000000"});
        return arguments;
    }
    const bool whole =
        projNum == 12 || projNum == 16 || projNum == 41 || projNum == 42 || projNum == 40 || projNum == 2;
    const std::string west = Degrees(within(meridian - 180));
    add({"--west", west, "--east", west, "--lon-grid", "30"});
    add({"--north", whole ? "90" : "80", "--south",
         whole          ? "-90"
         : projNum == 1 ? "-80"
                        : "-60",
         "--lat-grid", "10"});
    if (projNum == 42) {
        add({"--lobes-north", Degrees(within(meridian - 60)) + "," + Degrees(within(meridian + 60)),
             "--lobes-south", Degrees(within(meridian - 90)) + "," + Degrees(within(meridian))});
    }
    return arguments;
}

constexpr std::array AllProjections = {1, 2, 40, 12, 41, 42, 16, 6, 7, 8, 17, 26, 27, 28, 29, 30, 31};

class FillOfCaps : public FilledMap {
protected:
    FillOfCaps() { WriteMap("caps.prn", WorldOfCaps()); }

    void CheckMeridian(int projNum, int meridian, int step) {
        SCOPED_TRACE("projection " + std::to_string(projNum) + ", meridian " + std::to_string(meridian));
        ASSERT_TRUE(Take(AboutMeridian(projNum, meridian)));
        ASSERT_TRUE(Fill());
        EXPECT_GT(CompareWithCaps(step), 1000);
    }
};

class FillOfCapsOn : public FillOfCaps, public testing::WithParamInterface<int> {};

TEST_P(FillOfCapsOn, PixelsAreLandLakeOrSeaAsTheirPlacesAre) {
    for (const int meridian : {0, 100, 173, -60}) {
        CheckMeridian(GetParam(), meridian, 5);
    }
}

INSTANTIATE_TEST_SUITE_P(Every, FillOfCapsOn, testing::ValuesIn(AllProjections));

TEST_F(FillOfCaps, HoldsForEverySeventhCentralMeridian) {
    // All projections take minutes; three are enough to see a seam that is wrong.
    const bool all = std::getenv("QUELMONT_ALL_MERIDIANS") != nullptr;
    std::vector<int> projections = {12, 8, 30};
    if (all) {
        projections.assign(AllProjections.begin(), AllProjections.end());
    }
    for (const int projNum : projections) {
        for (int meridian = -180; meridian < 180; meridian += 7) {
            CheckMeridian(projNum, meridian, 16);
        }
    }
}

TEST_F(FillOfCaps, SharesOfTheGlobeAreTrueOnEqualAreaMaps) {
    for (const int projNum : {12, 41, 42, 40, 31}) {
        for (const int meridian : {0, 45, 160}) {
            SCOPED_TRACE("projection " + std::to_string(projNum) + ", meridian " + std::to_string(meridian));
            ASSERT_TRUE(Take(AboutMeridian(projNum, meridian)));
            ASSERT_TRUE(Fill());
            EXPECT_NEAR(ShareOf(LandColor), LandShare(), 0.002);
            EXPECT_NEAR(ShareOf(LakeColor), caps::Lake.Share() - caps::Island.Share(), 0.0005);
        }
    }
}

TEST_F(FillOfCaps, SharesOfTheMapAreTrueOnAnEqualAreaCone) {
    // From 60 south to 80 north: what is cut off of the cap about the South Pole and the map's own share of
    // the globe are known from the heights on a cylinder.
    WriteMap("caps.prn", CapLine(caps::Africa) + CapLine(caps::Greenland) + CapLine({-89.999, 0.0, 40.0}));
    ASSERT_TRUE(Take({"--projection", "8", "--west", "-130", "--east", "-130", "--lon-grid", "30", "--north",
                      "80", "--south", "-60", "--lat-grid", "10"}));
    ASSERT_TRUE(Fill());
    const double map = (0.98480775301 + 0.86602540378) / 2.0;   // sines of 80 and 60 degrees
    const double polar = (0.86602540378 - 0.76604444312) / 2.0; // between 60 and 50 south
    EXPECT_NEAR(ShareOf(LandColor), (caps::Africa.Share() + caps::Greenland.Share() + polar) / map, 0.002);
}

TEST_F(FillOfCaps, RegionsAreCutAtTheirBounds) {
    const std::vector<Arguments> regions = {
        {"--projection", "1", "--north", "20", "--south", "0", "--lat-grid", "5", "--west", "170", "--east",
         "-170", "--lon-grid", "5"},
        {"--projection", "16", "--north", "30", "--south", "-60", "--lat-grid", "10", "--west", "-170",
         "--east", "30", "--lon-grid", "10"},
        {"--projection", "6", "--north", "80", "--south", "20", "--lat-grid", "10", "--west", "-120",
         "--east", "30", "--lon-grid", "10"},
        {"--projection", "7", "--north", "-10", "--south", "-80", "--lat-grid", "10", "--west", "20",
         "--east", "-20", "--lon-grid", "10"},
        {"--projection", "27", "--central-lat", "-90", "--central-lon", "0", "--range", "60"},
        {"--projection", "30", "--central-lat", "90", "--central-lon", "20", "--range", "180"},
        {"--projection", "31", "--central-lat", "12", "--central-lon", "-178", "--range", "7"},
        {"--projection", "28", "--central-lat", "-20", "--central-lon", "40", "--range", "90"},
        {"--projection", "26", "--central-lat", "-75", "--central-lon", "100", "--range", "60"},
        {"--projection", "29", "--central-lat", "-60", "--central-lon", "100", "--height-km", "9000"},
    };
    for (const Arguments& region : regions) {
        SCOPED_TRACE(testing::PrintToString(region));
        ASSERT_TRUE(Take(region));
        ASSERT_TRUE(Fill());
        EXPECT_GT(CompareWithCaps(4), 1000);
    }
}

TEST_F(FillOfCaps, AMapWhollyInsideAnAreaIsFilledWhole) {
    ASSERT_TRUE(Take({"--projection", "2", "--north", "5", "--south", "-5", "--lat-grid", "1", "--west", "-5",
                      "--east", "5", "--lon-grid", "1"}));
    ASSERT_TRUE(Fill());
    EXPECT_EQ(ShareOf(LandColor), 1.0);
    ASSERT_TRUE(Take({"--projection", "28", "--central-lat", "0", "--central-lon", "0", "--range", "10"}));
    ASSERT_TRUE(Fill());
    EXPECT_EQ(ShareOf(LandColor), 1.0);
}

TEST_F(FillOfCaps, WhatHasNoColorIsSparedInEverythingAboutIt) {
    ASSERT_TRUE(Take(AboutMeridian(12, 170)));
    ASSERT_TRUE(Fill());
    const int land = Count(LandColor);
    const int lakes = Count(LakeColor);
    const int sea = Count(SeaColor);
    ASSERT_TRUE(Fill({{}, LakeColor, SeaColor}));
    EXPECT_EQ(Count(LandColor), 0);
    EXPECT_NEAR(Count(LakeColor), lakes, lakes / 100.0);
    EXPECT_NEAR(Count(SeaColor), sea, sea / 1000.0);
    ASSERT_TRUE(Fill({LandColor, {}, SeaColor}));
    EXPECT_NEAR(Count(LandColor), land, land / 1000.0);
    EXPECT_EQ(Count(LakeColor), 0);
    EXPECT_NEAR(Count(SeaColor), sea, sea / 1000.0);
    ASSERT_TRUE(Fill({LandColor, LakeColor, {}}));
    EXPECT_NEAR(Count(LandColor), land, land / 1000.0);
    EXPECT_EQ(Count(SeaColor), 0);
    ASSERT_TRUE(Fill({{}, {}, SeaColor}));
    EXPECT_NEAR(Count(SeaColor), sea, sea / 1000.0);
    ASSERT_TRUE(Fill({{}, {}, {}}));
    EXPECT_EQ(Count(Paper), Width * Height);
}

TEST_F(FillOfCaps, LinesThatMeetEndToEndAreJoined) {
    // Quarters in any order and direction; the last ends where the first begins.
    using namespace caps;
    WriteMap("quarters.prn", CapLine(Pacific, 90, 180) + CapLine(Antarctica, 100, 360) + CapLine(Africa) +
                                 CapLine(Pacific, 360, 270) + CapLine(Pacific, 270, 180) +
                                 CapLine(Greenland) + CapLine(Antarctica, 100, 0) + CapLine(Lake, 0, 200) +
                                 CapLine(Island) + CapLine(Lake, 360, 200) + CapLine(Pacific, 0, 90));
    for (const int projNum : {2, 31}) {
        ASSERT_TRUE(Take(AboutMeridian(projNum, 100)));
        ASSERT_TRUE(Fill());
        EXPECT_GT(CompareWithCaps(8), 10000);
    }
}

TEST_F(FillOfCaps, LinesThatEndNowhereBoundNothing) {
    WriteMap("open.prn", CapLine(caps::Pacific, 0, 300) + CapLine(caps::Africa, 0, 359));
    ASSERT_TRUE(Take(AboutMeridian(2, 0)));
    ASSERT_TRUE(Fill());
    EXPECT_EQ(Count(LandColor), 0);
    EXPECT_EQ(ShareOf(SeaColor), 1.0);
}

TEST_F(FillOfCaps, ALineThatIsThereTwiceIsOneLine) {
    WriteMap("twice.prn", WorldOfCaps() + CapLine(caps::Africa) + CapLine(caps::Pacific));
    ASSERT_TRUE(Take(AboutMeridian(41, 0)));
    ASSERT_TRUE(Fill());
    EXPECT_GT(CompareWithCaps(8), 10000);
}

TEST_F(FillOfCaps, NoLineOfAFileThatIsHiddenOrDrawnBySymbolsIsFilled) {
    ASSERT_TRUE(Take(AboutMeridian(2, 0)));
    Design.InputFiles[0].Features[1].Shown = false;
    ASSERT_TRUE(Fill());
    EXPECT_EQ(Count(LandColor), 0);
    Design.InputFiles[0].Features[1].Shown = true;
    Design.InputFiles[0].MapFileType = SymbolFilledCircle;
    ASSERT_TRUE(Fill());
    EXPECT_EQ(Count(LandColor), 0);
}

TEST_F(FillOfCaps, BoundsAndLobesAreAsBefore) {
    ASSERT_TRUE(Take(AboutMeridian(42, 20)));
    Design.LobeOffsetX = 0.25;
    const MapDesign before = Design;
    ASSERT_TRUE(Fill());
    EXPECT_EQ(Design.LobeOffsetX, 0.25);
    EXPECT_EQ(Design.LonWestSec, before.LonWestSec);
    EXPECT_EQ(Design.LatSouthSec, before.LatSouthSec);
    EXPECT_EQ(Design.GridText, before.GridText);
    EXPECT_EQ(Design.CosLatCentral, before.CosLatCentral);
}

TEST_F(FillOfCaps, EscapeLeavesAtOnce) {
    std::string text;
    for (int i = 0; i < 60; ++i) { // more places than are read in one turn
        text += WorldOfCaps();
    }
    WriteMap("many.prn", text);
    ASSERT_TRUE(Take(AboutMeridian(2, 0)));
    escapeAt = 1;
    ASSERT_TRUE(Fill());
    EXPECT_EQ(Count(Paper), Width * Height);
}

TEST_F(FilledMap, HostileLinesNeitherFailNorHang) {
    constexpr int turns = QUELMONT_SANITIZED ? 4000 : 20000;
    std::string zigzag = "-1 0 0\n";
    for (int i = 0; i < turns; ++i) {
        zigzag += "0 " + std::to_string(i % 2 == 0 ? 80 : -80) + " " + std::to_string(i % 360 - 180) + "\n";
    }
    zigzag += "0 0 0\n";
    std::string round = "-1 10 0\n"; // seven times round the axis
    for (int lon = 10; lon < 2520; lon += 10) {
        round += "0 10 " + std::to_string((lon + 180) % 360 - 180) + "\n";
    }
    round += "0 10 0\n";
    const std::vector<std::string> files = {
        "",
        "-1 10 20\n",
        "-1 10 20\n0 10 20\n0 10 20\n0 10 20\n",
        "-1 10 20\n0 30 40\n0 10 20\n",
        "-1 0 0\n0 10 10\n0 0 10\n0 10 0\n0 0 0\n", // crosses itself
        "-1 89 0\n0 95 10\n0 89 20\n0 89 0\n",      // beyond the pole
        "-1 90 0\n0 90 120\n0 90 -120\n0 90 0\n",   // at the pole and nowhere else
        "-1 90 0\n0 -90 0\n0 -90 90\n0 90 90\n0 90 0\n",
        "-1 0 -180\n0 0 0\n0 0 180\n0 0 -180\n",
        "-1 0 500000\n0 5 500010\n0 5 500000\n0 0 500000\n",
        "-1 0 0\n0 1e300 1\n0 1 1\n0 0 0\n",
        "-1 nan inf\n0 nan 3\n0 4 nan\n0 nan inf\n",
        zigzag,
        round,
    };
    for (const std::string& file : files) {
        WriteMap("hostile.prn", file);
        for (const int projNum : AllProjections) {
            SCOPED_TRACE("projection " + std::to_string(projNum) + " of " + file.substr(0, 60));
            ASSERT_TRUE(Take(AboutMeridian(projNum, 10)));
            EXPECT_TRUE(Fill());
            // The outline is filled whatever becomes of the lines.
            EXPECT_GT(Count(SeaColor) + Count(LandColor) + Count(LakeColor), 100000);
        }
    }
}

TEST_F(FilledMap, AFileThatIsNotThereLeavesTheSea) {
    mapName = folder / "missing.prn";
    ASSERT_TRUE(Take(AboutMeridian(2, 0)));
    ASSERT_TRUE(Fill());
    EXPECT_EQ(ShareOf(SeaColor), 1.0);
}

TEST_F(FilledMap, TheWorldMapHasAsMuchLandAsTheEarth) {
    // Land is 148.9 of the earth's 510.1 million square kilometres. The large lakes are no land here, and
    // Antarctica is without its ice shelves (1.5 million).
    mapName = QUELMONT_DATA "/Qmnt4.map";
    for (const int projNum : {12, 41, 42, 40, 31}) {
        SCOPED_TRACE("projection " + std::to_string(projNum));
        ASSERT_TRUE(Take(AboutMeridian(projNum, 10)));
        ASSERT_TRUE(Fill());
        EXPECT_NEAR(ShareOf(LandColor), 0.288, 0.004);
        // The Caspian Sea has 371 thousand square kilometres, the Great Lakes 245, Victoria 68, the six next
        // 177; lakes of 2000 and more have some 1.2 million.
        EXPECT_NEAR(ShareOf(LakeColor), 0.0024, 0.0003);
    }
}

} // namespace
} // namespace quelmont
