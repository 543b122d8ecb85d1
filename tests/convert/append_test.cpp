#include "convert_fixture.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace quelmont {
namespace {

using testing::ElementsAre;

class Appending : public ConvertTest {
protected:
    Appending() {
        Put("one.geojson", Collection(LineFeature("", "[0,0],[0.01,0.01]")));
        Put("two.geojson", Collection(PointFeature(R"("n":"two")", "[2,2]")));
    }

    /// A file with both sources must be the same whether they come together or one after another.
    void ExpectGoesOn(const std::string& ending) const {
        Put("both.geojson",
            Collection(LineFeature("", "[0,0],[0.01,0.01]") + "," + PointFeature("", "[2,2]")));
        const std::vector<std::string> more = {"--feature", "1", "--utm", "9"};
        const auto convert = [&](std::vector<std::string> arguments) {
            arguments.insert(arguments.end(), more.begin(), more.end());
            Convert(arguments);
        };
        convert({"both.geojson", "both" + ending});
        convert({"one.geojson", "out" + ending, "--append"});
        convert({"two.geojson", "out" + ending, "--append"});
        EXPECT_EQ(Get("out" + ending), Get("both" + ending)) << ending;
    }
};

TEST_F(Appending, GoesOnBehindWhatIsThereInEveryFormat) {
    for (const char* ending : {".all", ".cci", ".map", ".pnt", ".pkv", ".pkd", ".grv", ".grf", ".dat", ".mps",
                               ".mp1", ".prn", ".utm"}) {
        ExpectGoesOn(ending);
    }
}

TEST_F(Appending, MayChooseAnotherFeature) {
    Convert({"one.geojson", "out.map", "--feature", "Rivers"});
    Convert({"two.geojson", "out.map", "--feature", "Lakes", "--append"});
    Convert({"out.map", "out.geojson"});
    EXPECT_THAT(Features("out.geojson"),
                ElementsAre("4|Rivers|LINESTRING (0 0,0.016666667 0.016666667)", "3|Lakes|POINT (2 2)"));
}

TEST_F(Appending, LastLineOfATextMayLackItsEnd) {
    Put("out.prn", "1,5,5");
    Convert({"two.geojson", "out.prn", "--append", "--label", "n"});
    EXPECT_EQ(Get("out.prn"), "1,5,5\r\n1,2.000000,2.000000,\"two\"\r\n");
    Put("out.mp1", "5 5");
    Convert({"two.geojson", "out.mp1", "--append"});
    EXPECT_EQ(Get("out.mp1"), "5 5\r\n\r\n2.000000 2.000000\r\n");
}

TEST_F(Appending, LastFixedRecordIsFilledUp) {
    Put("out.dat", "                  \r\n050000N0050000E");
    Convert({"two.geojson", "out.dat", "--append"});
    EXPECT_EQ(Get("out.dat"), "                  \r\n050000N0050000E     "
                              "                  \r\n020000N0020000E   \r\n");
}

TEST_F(Appending, WhatEndsAFileForItsReaderGoes) {
    Put("out.map", Bytes("E8 03 00 00 00 00 00 00"));
    Convert({"two.geojson", "out.map", "--append", "--feature", "1"});
    EXPECT_EQ(Pairs(Get("out.map")), "E8 03 00 00 00 00 E8 03 78 00 78 00");
    Put("out.dat", "                  \r\n050000N0050000E   \r\n\r\n");
    Convert({"two.geojson", "out.dat", "--append"});
    EXPECT_EQ(Get("out.dat"), "                  \r\n050000N0050000E   \r\n"
                              "                  \r\n020000N0020000E   \r\n");
    Put("out.prn", "1,5,5\r\n\r\n\x1A");
    Convert({"two.geojson", "out.prn", "--append"});
    EXPECT_EQ(Get("out.prn"), "1,5,5\r\n1,2.000000,2.000000\r\n");
}

TEST_F(Appending, DamagedFileIsLeftAlone) {
    Put("out.pkv", Bytes("01 00"));
    EXPECT_EQ(Refusal({"two.geojson", "out.pkv", "--append", "--feature", "1"}),
              "out.pkv: Input past end of file, in what begins at byte 0");
    EXPECT_EQ(Get("out.pkv"), Bytes("01 00"));
}

TEST_F(Appending, FailureLeavesWhatWasThere) {
    Put("out.dat", "                  \r\n050000N0050000E   \r\n");
    Put("bad.geojson", Collection(PointFeature("", "[1,1]") + "," + PointFeature("", "[1,91]")));
    const std::string before = Get("out.dat");
    EXPECT_NE(Refusal({"bad.geojson", "out.dat", "--append"}), "");
    EXPECT_EQ(Get("out.dat"), before);
}

} // namespace
} // namespace quelmont
