#include "reports/map_description.h"

#include "core/map_design.h"
#include "reports/report_fixture.h"

#include <gtest/gtest.h>

namespace quelmont {
namespace {

using MapDescription = ReportTest;

TEST_F(MapDescription, TitleIsThatOfTheDesignsFile) {
    EXPECT_EQ(MapTitleText(), "Outline map");
    Design.CnfFileName = "/home/ada/My islands.cnf";
    EXPECT_EQ(MapTitleText(), "My islands");
    Design.CnfFileName = "C:\\MAPS\\WORLD.CNF";
    EXPECT_EQ(MapTitleText(), "WORLD");
    Design.CnfFileName = "/tmp/.cnf";
    EXPECT_EQ(MapTitleText(), ".cnf");
}

TEST_F(MapDescription, BoundsAreReadOut) {
    Start(ProjRobinson);
    Design.InputFiles.clear();
    EXPECT_EQ(MapDescriptionText(),
              "Outline map on the Robinson projection, from 90° S to 90° N, 180° W to 180° E.");
    Design.GridText[GridTextSouth] = "00    00    00    N";
    Design.GridText[GridTextNorth] = "07    05    00    N";
    Design.GridText[GridTextWest] = "009    00    30    W";
    EXPECT_EQ(MapDescriptionText(),
              "Outline map on the Robinson projection, from 0° N to 7° 5' N, 9° 30\" W to 180° E.");
}

TEST_F(MapDescription, DiscIsItsRangeAndItsCentre) {
    Start(ProjStereographic, 60);
    Design.InputFiles.clear();
    Design.LatCentral = 52.5;
    Design.LonMiddle = -13.0;
    EXPECT_EQ(MapDescriptionText(),
              "Outline map on the Stereographic Azimuthal projection, 60° around 52° 30' N, 13° W.");
}

TEST_F(MapDescription, MapFilesAreNamed) {
    Start(ProjRobinson);
    Design.InputFiles.assign(2, {});
    Design.InputFiles[0].MapFileName = "/maps/a.map";
    Design.InputFiles[1].MapFileName = "/maps/b & c.prn";
    EXPECT_EQ(MapDescriptionText(), "Outline map on the Robinson projection, from 90° S to 90° N, 180° W to "
                                    "180° E. Map files: a.map, b & c.prn.");
}

} // namespace
} // namespace quelmont
