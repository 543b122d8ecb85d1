#include "convert/json_meter.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <string>

namespace quelmont {
namespace {

/// The most that has to be held at any time.
std::size_t MostHeld(const std::string& text) {
    JsonMeter meter;
    std::size_t most = 0;
    for (const char c : text) {
        meter.Take(std::string_view(&c, 1));
        most = std::max(most, meter.Held());
    }
    return most;
}

const std::string Thousand(1000, '1');

TEST(JsonMeter, CountsTheWholeOfWhatIsNoCollection) {
    EXPECT_EQ(MostHeld(""), 0U);
    EXPECT_EQ(MostHeld("[[1,2],[3]]"), 11U);
    EXPECT_EQ(MostHeld(R"({"type":"LineString","coordinates":[[)" + Thousand + "]]}"), 36U + 1000U + 4U);
}

TEST(JsonMeter, CountsTheLongestFeatureOfACollection) {
    const std::string feature = R"({"geometry":{"coordinates":[[1,2],[3,4]]}})";
    const std::string head = R"({"type":"FeatureCollection","features":[)";
    std::string many = head;
    for (int i = 0; i < 1000; ++i) {
        many += (i == 0 ? "" : ",") + feature;
    }
    EXPECT_LT(MostHeld(many + "]}"), 60U);
    EXPECT_GE(MostHeld(head + feature + "," + R"({"id":)" + Thousand + "}]}"), 1000U);
    EXPECT_LT(MostHeld(head + feature + "," + R"({"id":)" + Thousand + "}]}"), 1020U);
}

TEST(JsonMeter, CountsWhatStandsBesideTheFeatures) {
    EXPECT_GE(MostHeld(R"({"features":[],"bbox":[)" + Thousand + "]}"), 1000U);
    EXPECT_GE(MostHeld(R"({"crs":")" + Thousand + R"(","features":[1]})"), 1000U);
}

TEST(JsonMeter, FeaturesElsewhereAreNone) {
    std::string nested = R"({"properties":{"features":[)";
    for (int i = 0; i < 200; ++i) {
        nested += "[1],";
    }
    EXPECT_GE(MostHeld(nested), 800U);
    std::string named = R"({"features of it":[)";
    for (int i = 0; i < 200; ++i) {
        named += "[1],";
    }
    EXPECT_GE(MostHeld(named), 800U);
}

TEST(JsonMeter, BracketsAndQuotesInTextsMeanNothing) {
    std::string text = R"({"features":[{"name":"]}]}\"]\\"})";
    text += R"(,{"name":"]}]}\"]\\"})";
    const std::size_t begun = MostHeld(text);
    for (int i = 0; i < 200; ++i) {
        text += R"(,{"name":"]}]}\"]\\"})";
    }
    EXPECT_EQ(MostHeld(text), begun);
}

TEST(JsonMeter, ClosingBracketsTooManyAreHarmless) {
    EXPECT_EQ(MostHeld("]]]}}}"), 6U);
    EXPECT_GE(MostHeld(R"(]]{"features":[1]])" + Thousand), 1000U);
}

} // namespace
} // namespace quelmont
