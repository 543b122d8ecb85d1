// What cannot be done: a message, exit code 1, and the folder as it was.

#include "convert/convert_command.h"
#include "convert_fixture.h"
#include "support/hard_times.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>
#include <sstream>

#include <sys/stat.h>

namespace quelmont {
namespace {

using testing::AllOf;
using testing::ElementsAre;
using testing::EndsWith;
using testing::HasSubstr;
using testing::StartsWith;

class Refusals : public ConvertTest {
protected:
    Refusals() {
        Put("good.geojson", Collection(LineFeature(R"("n":"A")", "[0,0],[1,1]")));
        Put("good.map", Bytes("58 1B 3C 00 3C 00 00 00 78 00 78 00"));
    }
};

TEST_F(Refusals, OfASourceThatIsNotThere) {
    EXPECT_EQ(Refusal({"none.shp", "out.map"}), "none.shp: No such file or directory");
    EXPECT_EQ(Refusal({"none.map", "out.shp"}), "none.map: File not found");
    EXPECT_EQ(Refusal({"none/in.map", "out.shp"}), "none/in.map: Path not found");
}

TEST_F(Refusals, OfASourceThatNobodyKnows) {
    Put("in.shp", "no shapes");
    EXPECT_THAT(Refusal({"in.shp", "out.map"}), HasSubstr("in.shp"));
    Put("in.bin", std::string("\0\1\2\3", 4));
    EXPECT_EQ(Refusal({"in.bin", "out.map"}), "`in.bin' not recognized as a supported file format.");
    Put("in.empty", "");
    EXPECT_THAT(Refusal({"in.empty", "out.map"}), HasSubstr("in.empty"));
    Put("in.geojson", "{\"type\":\"FeatureCollection\",\"features\":[{\"type\"");
    EXPECT_THAT(Refusal({"in.geojson", "out.map"}), HasSubstr("in.geojson"));
}

TEST_F(Refusals, OfAFolder) {
    std::filesystem::create_directory(folder / "in.map");
    EXPECT_EQ(Refusal({"in.map", "out.shp"}), "in.map: Path/File access error");
    std::filesystem::create_directory(folder / "data");
    EXPECT_THAT(Refusal({"data", "out.map"}), HasSubstr("data"));
    EXPECT_EQ(Refusal({"good.geojson", "in.map", "--feature", "1"}), "in.map: Path/File access error");
    std::filesystem::create_directory(folder / "out.shp");
    EXPECT_EQ(Refusal({"good.map", "out.shp"}), "out.shp: Path/File access error");
}

TEST_F(Refusals, OfWhatMayNotBeRead) {
    chmod((folder / "good.map").c_str(), 0);
    chmod((folder / "good.geojson").c_str(), 0);
    chmod(folder.Path().c_str(), 0777);
    const WithoutPrivilege nobody;
    EXPECT_EQ(Refusal({"good.map", "out.shp"}), "good.map: Permission denied");
    EXPECT_THAT(Refusal({"good.geojson", "out.map"}), HasSubstr("good.geojson"));
}

TEST_F(Refusals, OfAFolderInWhichNothingMayBeWritten) {
    chmod((folder / "good.map").c_str(), 0644);
    chmod((folder / "good.geojson").c_str(), 0644);
    chmod(folder.Path().c_str(), 0555);
    const WithoutPrivilege nobody;
    EXPECT_EQ(Refusal({"good.geojson", "out.dat"}), "out.dat: Permission denied");
    EXPECT_EQ(Refusal({"good.map", "out.gpkg"}), "out.gpkg: Permission denied");
}

TEST_F(Refusals, OfAFolderThatIsNotThere) {
    EXPECT_EQ(Refusal({"good.geojson", "none/out.dat"}), "none/out.dat: Path not found");
    EXPECT_EQ(Refusal({"good.map", "none/out.shp"}), "none/out.shp: No such file or directory");
}

TEST_F(Refusals, OfADevice) {
    std::filesystem::create_symlink("/dev/full", folder / "full.dat");
    std::filesystem::create_symlink("/dev/full", folder / "full.gpkg");
    EXPECT_EQ(Refusal({"good.geojson", "full.dat"}), "full.dat: Path/File access error");
    EXPECT_EQ(Refusal({"good.map", "full.gpkg"}), "full.gpkg: Path/File access error");
}

TEST_F(Refusals, OfAFullDisk) {
    std::string points = "[0,0]";
    for (int i = 1; i < 5000; ++i) {
        points += ",[" + std::to_string(i % 90) + "," + std::to_string(i % 80) + "]";
    }
    Put("long.geojson", Collection(LineFeature("", points)));
    EXPECT_EQ(Run({"long.geojson", "long.mps"}).code, 0);
    Put("old.dat", "                  \r\n");
    Put("old.shp", "old");
    const FullDisk disk(16384);
    EXPECT_EQ(Refusal({"long.geojson", "out.mps"}), "out.mps: Disk full");
    EXPECT_EQ(Refusal({"long.geojson", "old.dat"}), "old.dat: Disk full");
    EXPECT_EQ(Get("old.dat"), "                  \r\n");
    for (const char* name : {"out.gpkg", "out.geojson", "old.shp"}) {
        EXPECT_NE(Refusal({"long.mps", name}), "") << name;
    }
    EXPECT_EQ(Get("old.shp"), "old");
}

TEST_F(Refusals, OfATargetThatIsItsSource) {
    EXPECT_EQ(Refusal({"good.map", "good.map"}), "good.map would replace what is read");
    std::filesystem::create_symlink("good.map", folder / "link.all");
    EXPECT_EQ(Refusal({"good.map", "link.all"}), "link.all would replace what is read");
    EXPECT_EQ(Refusal({"good.map", "./good.map", "--append"}), "./good.map would replace what is read");
    std::filesystem::create_symlink("good.geojson", folder / "link.dat");
    EXPECT_EQ(Refusal({"good.geojson", "link.dat"}), "link.dat would replace what is read");
    EXPECT_EQ(Get("good.map"), Bytes("58 1B 3C 00 3C 00 00 00 78 00 78 00"));
}

TEST_F(Refusals, OfPlacesOutsideTheEarth) {
    Put("in.geojson", Collection(LineFeature("", "[0,0],[10,95]")));
    EXPECT_EQ(Refusal({"in.geojson", "out.dat"}),
              "in.geojson: feature 0: a point lies outside the earth, at longitude 10, latitude 95");
    Put("in.geojson", Collection(PointFeature("", "[0,0]") + "," + PointFeature("", "[-400,1]")));
    EXPECT_EQ(Refusal({"in.geojson", "out.dat"}),
              "in.geojson: feature 1: a point lies outside the earth, at longitude -400, latitude 1");
    Put("in.map", Bytes("E8 03 18 15 00 00 00 00 19 15 00 00")); // 90 degrees and then a minute more
    EXPECT_EQ(Refusal({"in.map", "out.shp"}), "in.map: a point lies outside the earth, at longitude 0, "
                                              "latitude 90.016667, in what begins at byte 6");
}

TEST_F(Refusals, OfPlacesWithoutAPlaceOnTheEarth) {
    Put("in.geojson",
        R"({"type":"FeatureCollection","crs":{"type":"name","properties":{"name":"EPSG:32632"}},)"
        R"("features":[)" +
            LineFeature("", "[500000,0],[1e20,1e20]") + "]}");
    EXPECT_THAT(Refusal({"in.geojson", "out.dat"}),
                StartsWith("in.geojson: feature 0: a point lies outside the earth, at x 1"));
}

TEST_F(Refusals, OfLayersAndExpressionsThatAreNotThere) {
    EXPECT_EQ(Refusal({"good.geojson", "out.dat", "--layer", "roads"}),
              "good.geojson: there is no layer \"roads\" in it; there are \"good\"");
    EXPECT_EQ(Refusal({"good.map", "out.shp", "--layer", "roads"}),
              "good.map: there is no layer \"roads\" in it, as a map file has none");
    EXPECT_THAT(Refusal({"good.geojson", "out.dat", "--where", "pop > 1"}),
                StartsWith("good.geojson: --where: "));
    EXPECT_THAT(Refusal({"good.geojson", "out.dat", "--where", "n = "}),
                StartsWith("good.geojson: --where: "));
    EXPECT_THAT(Refusal({"good.map", "out.shp", "--where", "pop > 1"}), StartsWith("good.map: --where: "));
}

TEST_F(Refusals, LeaveAnEarlierFileAsItWas) {
    Put("out.dat", "earlier");
    Put("in.geojson", Collection(PointFeature("", "[0,0]") + "," + PointFeature("", "[0,99]")));
    EXPECT_NE(Refusal({"in.geojson", "out.dat"}), "");
    EXPECT_EQ(Get("out.dat"), "earlier");
    Put("out.geojson", "earlier");
    Put("in.map", Bytes("E8 03 00 00"));
    EXPECT_NE(Refusal({"in.map", "out.geojson"}), "");
    EXPECT_EQ(Get("out.geojson"), "earlier");
}

/// Map files that end too early or hold what cannot be.
struct Damaged {
    const char* title;
    const char* name;
    std::string contents;
    const char* message;
};

void PrintTo(const Damaged& file, std::ostream* stream) { *stream << file.title; }

class DamagedMapFile : public ConvertTest, public testing::WithParamInterface<Damaged> {};

TEST_P(DamagedMapFile, IsRefused) {
    const Damaged& file = GetParam();
    Put(file.name, file.contents);
    EXPECT_EQ(Refusal({file.name, "out.geojson", "--utm", "9"}),
              std::string(file.name) + ": " + file.message);
    EXPECT_EQ(Refusal({file.name, "out.mps", "--utm", "9"}), std::string(file.name) + ": " + file.message);
}

std::string TitleOf(const testing::TestParamInfo<Damaged>& file) { return file.param.title; }

INSTANTIATE_TEST_SUITE_P(
    Each, DamagedMapFile,
    testing::Values(
        Damaged{"MinuteGridInARecord", "in.map", Bytes("E8 03 00 00 00 00 00 00 01 00"),
                "Input past end of file, in what begins at byte 6"},
        Damaged{"MinuteGridInARankedCode", "in.all", Bytes("E8 03 00 00 00 00 E8 03"),
                "Input past end of file, in what begins at byte 6"},
        Damaged{"PackedInTheHeader", "in.pkv", Bytes("01 00 01 00 00"),
                "Input past end of file, in what begins at byte 0"},
        Damaged{"PackedInTheSteps", "in.pkd",
                Bytes("01 00 01 00 00 00 00 00 00 00 00 00 00 00 00 00 00 00 00 00 00 00 00 00"
                      "01 00 03 00 00 00 00 00 00 00 00 00 00 00 00 00 00 00 00 00 00 00 00 00 01 01 01"),
                "Input past end of file, in what begins at byte 24"},
        Damaged{"PackedPlace", "in.grv",
                Bytes("02 00 01 00 00 00 00 00 00 00 00 00 00 00 00 00 00 00 00 00 00 7F 00 00"),
                "a point lies outside the earth, at longitude 0, latitude 127, in what begins at byte 0"},
        Damaged{"FixedRecordInAPoint", "in.dat", "                  \r\n500000N01",
                "Input past end of file, in what begins at byte 20"},
        Damaged{"LineGraphInAHeader", "in.grf", "       0100000",
                "Input past end of file, in what begins at byte 0"},
        Damaged{"WorldFloatsInARecord", "in.mps", Bytes("00 00 C6 42 00 00 48 42 00 00"),
                "Input past end of file, in what begins at byte 0"},
        Damaged{"WorldFloatsWithoutALineFeed", "in.mps", Bytes("00 00 48 42 00 00 20 41"),
                "Input past end of file, in what begins at byte 0"},
        Damaged{"WorldTextPlace", "in.mp1", "1 2\r\n3 x1e999\r\n1e999 4\r\n",
                "Overflow, in what begins at byte 15"},
        Damaged{"AsciiMapInANumber", "in.prn", "1,2,3\r\n0,2",
                "Input past end of file, in what begins at byte 7"},
        Damaged{"AsciiMapLabelWithoutAnEnd", "in.prn", "1,2,3,\"A\r\n",
                "Invalid procedure call or argument, in what begins at byte 0"},
        Damaged{"AsciiMapNumberTooLarge", "in.prn", "1e10,2,3\r\n", "Overflow, in what begins at byte 0"},
        Damaged{"MetresInANumber", "in.utm", "1,500000", "Input past end of file, in what begins at byte 0"}),
    TitleOf);

TEST_F(Refusals, OfAnEmptyMapFileIsNone) {
    for (const char* ending : {".map", ".pkv", ".grv", ".grf", ".dat", ".mps", ".mp1", ".prn", ".utm"}) {
        const std::string name = std::string("in") + ending;
        Put(name, "");
        EXPECT_EQ(Run({name, "out.geojson", "--utm", "9"}).code, 0) << name;
        EXPECT_THAT(Features("out.geojson"), ElementsAre()) << name;
    }
}

} // namespace
} // namespace quelmont
