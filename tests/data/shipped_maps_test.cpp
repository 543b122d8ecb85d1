#include "data/map_bytes.h"
#include "support/temporary_folder.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <cstdlib>
#include <map>
#include <ostream>
#include <set>
#include <string>

/// What both map files under data/ promise.

namespace quelmont {
namespace {

using testing::HasSubstr;
using testing::IsEmpty;

struct ShippedMap {
    const char* name;
    const MapBytes& (*read)();
    std::set<int> shores, rivers;    ///< ranks
    std::map<int, const char*> rows; ///< their names in data/README.md
    std::size_t mostBytes;
};

void PrintTo(const ShippedMap& map, std::ostream* out) { *out << map.name; }

const std::map<int, const char*> WorldRows = {{1, "Coastlines"}, {2, "Countries"},
                                              {3, "Canada"},     {4, "United States"},
                                              {5, "Islands"},    {6, "Lakes"},
                                              {7, "Rivers"},     {8, "Australia"},
                                              {9, "Mexico"},     {10, "Other Provinces/States"}};

// A rank of a packed file and its row differ by the gaps in the numbering of ranks.
const std::map<int, const char*> DetailRows = {{1, "International Boundaries"},
                                               {2, "Indefinite or in dispute"},
                                               {3, "Separation line, land"},
                                               {8, "No defined boundary"},
                                               {9, "Coastlines, Islands, Lakes"},
                                               {10, "Islands and lakes, large"},
                                               {11, "Islands and lakes, medium"},
                                               {12, "Islands and lakes, small"},
                                               {25, "Rivers, large"},
                                               {26, "Rivers, medium"},
                                               {27, "Rivers, small"},
                                               {37, "U.S. States"},
                                               {38, "Canadian Provinces"},
                                               {40, "Australian States"},
                                               {41, "Scotland and Wales"}};

class ShippedMaps : public testing::TestWithParam<ShippedMap> {
protected:
    const ShippedMap& Told() const { return GetParam(); }
    const MapBytes& Map() const { return GetParam().read(); }
};

} // namespace

TEST_P(ShippedMaps, EndWithTheirLastLine) {
    EXPECT_TRUE(Map().EndsWithLine);
    EXPECT_LT(Map().Size, Told().mostBytes);
}

TEST_P(ShippedMaps, HoldEveryRowThatTheirFolderTellsWithAsManyLinesAndPoints) {
    std::map<int, std::pair<std::size_t, std::size_t>> counts;
    for (const MapBytesLine& line : Map().Lines) {
        ++counts[line.Rank].first;
        counts[line.Rank].second += line.Places.size();
    }
    const std::string readme = ReadWholeFile(std::string(QUELMONT_DATA) + "/README.md");
    for (const auto& [rank, name] : Told().rows) {
        const auto& [lines, points] = counts[rank];
        EXPECT_GT(lines, 0U) << name;
        EXPECT_THAT(readme, HasSubstr("| " + std::string(name) + " | " + std::to_string(lines) + " | " +
                                      std::to_string(points) + " |"));
    }
    EXPECT_EQ(counts.size(), Told().rows.size()) << "a rank that no row has";
    EXPECT_THAT(readme, HasSubstr("All, " + std::to_string(Map().Size) + " bytes"));
}

TEST_P(ShippedMaps, HaveShoresThatAreRingsOrGoOnWhereAnotherBegins) {
    // Every ring ends where it begins; of a ring in pieces the ends are the beginnings.
    std::map<MapPlace, int> open;
    for (const MapBytesLine& line : Map().Lines) {
        if (Told().shores.count(line.Rank) != 0) {
            ++open[OnGlobe(Map(), line.Places.front())];
            --open[OnGlobe(Map(), line.Places.back())];
        }
    }
    for (const auto& [place, count] : open) {
        EXPECT_EQ(count, 0) << place.Lon << " " << place.Lat;
    }
}

TEST_P(ShippedMaps, LetAntarcticaGoOnceRoundThePole) {
    // A ring that does not hold the pole comes back to its longitude.
    int turn = 0;
    for (const MapBytesLine& line : Map().Lines) {
        const bool isSouth = std::all_of(line.Places.begin(), line.Places.end(), [&](MapPlace place) {
            return place.Lat < -60 * Map().UnitsPerDegree;
        });
        if (isSouth && Told().shores.count(line.Rank) != 0) {
            turn += line.Places.back().Lon - line.Places.front().Lon;
        }
    }
    EXPECT_EQ(std::abs(turn), 360 * Map().UnitsPerDegree);
}

TEST_P(ShippedMaps, DrawNoShoreAlongThe180thMeridianOrAtAPole) {
    const auto onSeam = [&](MapPlace place) { return std::abs(place.Lon) == 180 * Map().UnitsPerDegree; };
    for (const MapBytesLine& line : Map().Lines) {
        if (Told().shores.count(line.Rank) == 0) {
            continue;
        }
        for (std::size_t i = 1; i < line.Places.size(); ++i) {
            ASSERT_FALSE(onSeam(line.Places[i - 1]) && onSeam(line.Places[i])) << line.Places[i].Lat;
            ASSERT_LT(std::abs(line.Places[i].Lat), 90 * Map().UnitsPerDegree);
        }
    }
}

TEST_P(ShippedMaps, HaveNoRiverThatPassesAPlaceTwice) {
    for (const MapBytesLine& line : Map().Lines) {
        if (Told().rivers.count(line.Rank) != 0) {
            const std::set<MapPlace> places(line.Places.begin(), line.Places.end());
            EXPECT_EQ(places.size(), line.Places.size())
                << line.Places.front().Lon << " " << line.Places.front().Lat;
        }
    }
}

TEST_P(ShippedMaps, HaveNoLineOfOnePointNoRepeatedPointAndNoGapAboveADegree) {
    double longest = 0.0;
    int widest = 0;
    for (const MapBytesLine& line : Map().Lines) {
        ASSERT_GE(line.Places.size(), 2U);
        for (std::size_t i = 1; i < line.Places.size(); ++i) {
            const MapPlace from = line.Places[i - 1];
            const MapPlace to = line.Places[i];
            ASSERT_NE(from, to);
            ASSERT_LE(std::abs(to.Lon), 180 * Map().UnitsPerDegree);
            longest = std::max(longest, MinutesOfArc(Map(), from, to));
            widest = std::max(widest, std::abs(to.Lon - from.Lon));
        }
    }
    EXPECT_LE(longest, 60.0001); // minutes of arc
    EXPECT_LE(widest, 5 * Map().UnitsPerDegree);
}

TEST_P(ShippedMaps, AreReadToTheirEndByTheProgram) {
    std::size_t points = 0;
    for (const MapBytesLine& line : Map().Lines) {
        points += line.Places.size();
    }
    const TemporaryFolder folder;
    const std::string command = "cd '" + folder.Path() + "' && '" + QUELMONT_DRAW + "' --map '" +
                                QUELMONT_DATA + "/" + Told().name + "' --stats picture.png >out 2>err";
    ASSERT_EQ(std::system(command.c_str()), 0) << ReadWholeFile(folder / "err");
    EXPECT_THAT(ReadWholeFile(folder / "out"), HasSubstr("\"points_read\":" + std::to_string(points) + ","));
    EXPECT_THAT(ReadWholeFile(folder / "err"), IsEmpty());
}

INSTANTIATE_TEST_SUITE_P(
    Data, ShippedMaps,
    testing::Values(ShippedMap{"Qmnt4.map", WorldMapBytes, {1, 5, 6}, {7}, WorldRows, 3'000'000},
                    ShippedMap{
                        "detail.pkv", DetailMapBytes, {9, 10, 11, 12}, {25, 26, 27}, DetailRows, 12'000'000}),
    [](const testing::TestParamInfo<ShippedMap>& map) { return map.index == 0 ? "WorldMap" : "DetailMap"; });

TEST(DetailMap, TellsTheBoundingBoxOfEachSegment) {
    // A map of a region passes over a segment whose box lies outside.
    for (const MapBytesLine& line : DetailMapBytes().Lines) {
        MapPlace low = line.Places.front();
        MapPlace high = low;
        for (const MapPlace place : line.Places) {
            low = {std::min(low.Lon, place.Lon), std::min(low.Lat, place.Lat)};
            high = {std::max(high.Lon, place.Lon), std::max(high.Lat, place.Lat)};
        }
        ASSERT_EQ(line.BoxSouthWest, low);
        ASSERT_EQ(line.BoxNorthEast, high);
    }
}

} // namespace quelmont
