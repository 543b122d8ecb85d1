#include "convert/convert_options.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace quelmont {
namespace {

using testing::HasSubstr;
using testing::StartsWith;

ConvertOptions Read(std::vector<std::string> arguments) {
    return std::get<ConvertOptions>(ReadConvertOptions(arguments));
}

std::string Answer(std::vector<std::string> arguments) {
    return std::get<ConvertAnswer>(ReadConvertOptions(arguments)).text;
}

std::string WrongUsage(std::vector<std::string> arguments) {
    try {
        ReadConvertOptions(arguments);
    } catch (const WrongConvertUsage& wrong) {
        return wrong.what();
    }
    return "";
}

TEST(ConvertOptions, AreAllTaken) {
    const ConvertOptions options =
        Read({"in.gpkg", "out.pkv", "--layer", "roads", "--where", "a > 1", "--feature", "@kind", "--label",
              "n", "--bounds", "-10,35,30.5,60", "--simplify", "2.5", "--utm", "-93,WGS84 1984", "--append",
              "--stats"});
    EXPECT_EQ(options.input, "in.gpkg");
    EXPECT_EQ(options.output, "out.pkv");
    EXPECT_EQ(options.layer, "roads");
    EXPECT_EQ(options.where, "a > 1");
    EXPECT_EQ(options.feature, "@kind");
    EXPECT_EQ(options.label, "n");
    ASSERT_TRUE(options.bounds);
    EXPECT_EQ(options.bounds->West, -10.0);
    EXPECT_EQ(options.bounds->South, 35.0);
    EXPECT_EQ(options.bounds->East, 30.5);
    EXPECT_EQ(options.bounds->North, 60.0);
    EXPECT_EQ(options.simplify, 2.5);
    ASSERT_TRUE(options.utm);
    EXPECT_EQ(options.utm->CentralLon, -93.0);
    EXPECT_EQ(options.utm->Spheroid, "WGS84 1984");
    EXPECT_TRUE(options.append);
    EXPECT_TRUE(options.stats);
}

TEST(ConvertOptions, MayBeLeftOut) {
    const ConvertOptions options = Read({"in.shp", "out.dat"});
    EXPECT_FALSE(options.layer || options.where || options.feature || options.label || options.bounds);
    EXPECT_FALSE(options.simplify || options.utm || options.append || options.stats);
}

TEST(ConvertOptions, AnglesMayHaveLetters) {
    const LonLatBounds bounds = *Read({"a.shp", "a.map", "--bounds", "10w,35.5S,30E,60n"}).bounds;
    EXPECT_EQ(bounds.West, -10.0);
    EXPECT_EQ(bounds.South, -35.5);
    EXPECT_EQ(bounds.East, 30.0);
    EXPECT_EQ(bounds.North, 60.0);
    EXPECT_EQ(Read({"a.shp", "a.utm", "--utm", "93W"}).utm->CentralLon, -93.0);
}

TEST(ConvertOptions, SpheroidIsThatOfTheProgramUnlessNamed) {
    EXPECT_EQ(Read({"a.shp", "a.utm", "--utm", "9"}).utm->Spheroid, "Clarke 1866");
    EXPECT_EQ(Read({"a.shp", "a.utm", "--utm", "9,airy 1830"}).utm->Spheroid, "Airy 1830");
    EXPECT_FALSE(Read({"a.shp", "a.utm", "--utm", "9,airy 1830"}).utm->Northing);
    EXPECT_THAT(WrongUsage({"a.shp", "a.utm", "--utm", "9,Moon"}),
                StartsWith("--utm: \"Moon\" is no spheroid; there are Airy 1830, "));
}

TEST(ConvertOptions, FalseNorthingStandsBehindTheSpheroid) {
    const UtmZoneChoice zone = *Read({"a.shp", "a.utm", "--utm", "135E,Clarke 1880,1e7"}).utm;
    EXPECT_EQ(zone.CentralLon, 135.0);
    EXPECT_EQ(zone.Spheroid, "Clarke 1880");
    EXPECT_EQ(zone.Northing, 10000000.0);
    EXPECT_EQ(Read({"a.shp", "a.utm", "--utm", "9,Clarke 1866,0"}).utm->Northing, 0.0);
    for (const char* northing : {"", "-1", "10000001", "x", "nan", "1,2"}) {
        EXPECT_NE(WrongUsage({"a.shp", "a.utm", "--utm", std::string("9,Clarke 1866,") + northing}), "")
            << northing;
    }
    EXPECT_EQ(WrongUsage({"a.shp", "a.utm", "--utm", "9,Clarke 1866,2e7"}),
              "--utm: \"2e7\" is no false northing of 0 to 10000000 metres");
}

TEST(ConvertOptions, EndingsAreReadInAnyCase) {
    EXPECT_EQ(Read({"in.SHP", "Out.Map"}).output, "Out.Map");
    EXPECT_EQ(Read({"IN.PKD", "out.GeoJSON"}).output, "out.GeoJSON");
}

TEST(ConvertOptions, OneOfTheFilesMustBeAMapFile) {
    EXPECT_THAT(WrongUsage({"a.shp", "a.gpkg"}), StartsWith("Neither INPUT nor OUTPUT is a map file"));
    EXPECT_THAT(WrongUsage({"a.map", "a.kml"}),
                StartsWith("OUTPUT: \"a.kml\" is no name with one of the endings "));
    EXPECT_THAT(WrongUsage({"a.map", "a"}), StartsWith("OUTPUT: "));
    EXPECT_THAT(WrongUsage({"a.map", "amap"}), StartsWith("OUTPUT: "));
}

TEST(ConvertOptions, MetresNeedTheirZone) {
    EXPECT_THAT(WrongUsage({"a.shp", "a.utm"}), HasSubstr("--utm"));
    EXPECT_THAT(WrongUsage({"a.utm", "a.shp"}), HasSubstr("--utm"));
}

TEST(ConvertOptions, ThatMeanNothingForDataAreRefused) {
    EXPECT_THAT(WrongUsage({"a.map", "a.shp", "--append"}), StartsWith("--append: "));
    EXPECT_THAT(WrongUsage({"a.map", "a.shp", "--feature", "1"}), StartsWith("--feature: "));
}

TEST(ConvertOptions, WrongValuesAreReported) {
    for (const char* bounds : {"", "1,2,3", "1,2,3,4,5", "1,2,1,4", "1,4,3,2", "1,2,3,91", "181,2,3,4",
                               "a,2,3,4", "1,2,3,4x", "-1W,2,3,4", "nan,2,3,4", "1, 2,3,4", "1e3,2,3,4"}) {
        EXPECT_THAT(WrongUsage({"a.shp", "a.map", "--bounds", bounds}),
                    HasSubstr("is no west, south, east and north in degrees"))
            << bounds;
    }
    for (const char* seconds : {"0", "-1", "x", "1s", "inf", ""}) {
        EXPECT_NE(WrongUsage({"a.shp", "a.map", "--simplify", seconds}), "") << seconds;
    }
    for (const char* zone : {"", "north", "181", "9,", "9,Clarke"}) {
        EXPECT_NE(WrongUsage({"a.shp", "a.utm", "--utm", zone}), "") << zone;
    }
}

TEST(ConvertOptions, NeedTwoFilesAndNoMore) {
    EXPECT_NE(WrongUsage({}), "");
    EXPECT_NE(WrongUsage({"a.shp"}), "");
    EXPECT_NE(WrongUsage({"a.shp", "a.map", "b.map"}), "");
    EXPECT_NE(WrongUsage({"a.shp", "a.map", "--nonsense"}), "");
}

TEST(ConvertHelp, NamesEveryOption) {
    const std::string help = Answer({"--help"});
    for (const char* option : {"--layer", "--where", "--bounds", "--feature", "--label", "--simplify",
                               "--utm", "--append", "--stats", "--help", "--version"}) {
        EXPECT_THAT(help, HasSubstr(std::string(" ") + option)) << option;
    }
    for (const char* ending : {".all", ".cci", ".map", ".pnt", ".pkv", ".pkd", ".grv", ".grf", ".dat", ".mps",
                               ".mp1", ".prn", ".utm", ".gpkg", ".geojson", ".json", ".shp"}) {
        EXPECT_THAT(help, HasSubstr(ending)) << ending;
    }
    EXPECT_EQ(Answer({"-h"}), help);
    EXPECT_EQ(Answer({"--version"}), "quelmont-convert 3.00\n");
}

} // namespace
} // namespace quelmont
