// Own files of every format, out to modern ones and back: the same bytes.

#include "convert_fixture.h"
#include "mapfiles/feature_rows.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace quelmont {
namespace {

constexpr const char* Zone = "9,Clarke 1866,0";

class RoundTrip : public ConvertTest,
                  public testing::WithParamInterface<std::tuple<const char*, const char*>> {
protected:
    RoundTrip() {
        Put("in.geojson",
            Collection(
                LineFeature(R"("n":"line","r":1)", "[10,50],[10.0125,50.00138889],[9.98,50.02]") + "," +
                Feature(R"("n":"ring","r":2)", R"("type":"Polygon","coordinates":[[[-1,-1],[-0.97,-1],)"
                                               R"([-0.97,-0.98],[-1,-1]]])") +
                "," + LineFeature(R"("n":"seam","r":1)", "[179.99,-16.5],[-179.99,-16.52]") + "," +
                PointFeature(R"("n":"point","r":2)", "[-180,90]") + "," +
                PointFeature(R"("n":"Łódź","r":1)", "[19.455,51.7769]")));
    }
    /// What the format cannot hold is reported here, and not on the way back.
    void Make(const std::string& name) const {
        std::vector<std::string> arguments = {"in.geojson", name, "--label", "n", "--utm", Zone};
        if (FeatureRows(name).size() > 1) {
            arguments.insert(arguments.end(), {"--feature", "@r"});
        }
        ASSERT_EQ(Run(arguments).code, 0);
    }
};

TEST_P(RoundTrip, GivesTheSameBytes) {
    const auto [ending, modern] = GetParam();
    const std::string made = std::string("1st") + ending;
    const std::string back = std::string("2nd") + ending;
    const std::string between = std::string("between") + modern;
    Make(made);
    ASSERT_GT(Get(made).size(), 0U);
    Convert({made, between, "--utm", Zone});
    EXPECT_EQ(Run({between, back, "--utm", Zone, "--label",
                   std::string(ending) == ".prn" || std::string(ending) == ".utm" ? "label" : "name"})
                  .code,
              0);
    EXPECT_EQ(Get(back), Get(made));
}

std::string NameOf(const testing::TestParamInfo<std::tuple<const char*, const char*>>& info) {
    return std::string(std::get<0>(info.param)).substr(1) + "_" +
           std::string(std::get<1>(info.param)).substr(1);
}

INSTANTIATE_TEST_SUITE_P(Each, RoundTrip,
                         testing::Combine(testing::Values(".map", ".pnt", ".pkv", ".pkd", ".grv", ".grf",
                                                          ".dat", ".mps", ".mp1", ".prn", ".utm"),
                                          testing::Values(".geojson", ".gpkg", ".shp")),
                         NameOf);

using SameResolution = RoundTrip;

TEST_P(SameResolution, GoesFromOneFormatToAnother) {
    const auto [from, to] = GetParam();
    const std::string made = std::string("1st") + from;
    const std::string direct = std::string("direct") + to;
    const std::string turned = std::string("turned") + to;
    Make(made);
    Make(direct);
    ASSERT_EQ(Run({made, turned, "--feature", "@feature"}).code, 0);
    EXPECT_EQ(Get(turned), Get(direct));
}

INSTANTIATE_TEST_SUITE_P(Whole, SameResolution,
                         testing::Values(std::tuple(".pkv", ".grv"), std::tuple(".grv", ".pkv"),
                                         std::tuple(".map", ".all")),
                         NameOf);

} // namespace
} // namespace quelmont
