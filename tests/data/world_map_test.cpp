#include "data/map_bytes.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <limits>
#include <map>
#include <ostream>
#include <string>
#include <utility>
#include <vector>

/// What the world map alone promises: whole rivers, and the provinces of a country all or none.

namespace quelmont {
namespace {

constexpr int Rivers = 7;
constexpr int OtherProvinces = 10;

std::vector<const MapBytesLine*> LinesOf(const MapBytes& map, const std::vector<int>& ranks) {
    std::vector<const MapBytesLine*> lines;
    for (const MapBytesLine& line : map.Lines) {
        if (std::find(ranks.begin(), ranks.end(), line.Rank) != ranks.end()) {
            lines.push_back(&line);
        }
    }
    return lines;
}

/// Places that are joined by lines; joining two that are joined already closes a ring.
class JoinedPlaces {
public:
    bool Join(MapPlace one, MapPlace other) {
        const MapPlace first = Root(one);
        const MapPlace second = Root(other);
        above[first] = second;
        return first != second;
    }

private:
    MapPlace Root(MapPlace place) {
        for (auto found = above.find(place); found != above.end() && found->second != place;
             found = above.find(place)) {
            place = found->second;
        }
        return place;
    }

    std::map<MapPlace, MapPlace> above;
};

/// A part of a country that touches no other, in whole degrees, with its rank in the world map and the
/// rank of its provinces in the map for regions.
struct Part {
    const char* country;
    int west, south, east, north;
    int rank, detailRank;
};

void PrintTo(const Part& part, std::ostream* out) { *out << part.country; }

/// The places of the map for regions that lie on borders of provinces in a part of a country, minutes.
std::vector<std::pair<double, double>> ProvinceBorders(const Part& part) {
    constexpr double secondsPerMinute = 60.0;
    std::vector<std::pair<double, double>> places;
    for (const MapBytesLine* line : LinesOf(DetailMapBytes(), {part.detailRank})) {
        for (const MapPlace place : line->Places) {
            const double lon = place.Lon / secondsPerMinute;
            const double lat = place.Lat / secondsPerMinute;
            if (lon >= part.west * 60 && lon <= part.east * 60 && lat >= part.south * 60 &&
                lat <= part.north * 60) {
                places.emplace_back(lon, lat);
            }
        }
    }
    return places;
}

class CountryWithProvinces : public testing::TestWithParam<Part> {};
class CountryWithoutProvinces : public testing::TestWithParam<Part> {};

std::string NameOf(const testing::TestParamInfo<Part>& part) {
    std::string name = part.param.country;
    name.erase(std::remove(name.begin(), name.end(), ' '), name.end());
    return name;
}

struct River {
    const char* name;
    double headLon, headLat, mouthLon, mouthLat; ///< degrees, to about two
};

void PrintTo(const River& river, std::ostream* out) { *out << river.name; }

class GreatRiver : public testing::TestWithParam<River> {};

} // namespace

TEST(WorldMap, HasNoRiversThatTogetherCloseARing) {
    JoinedPlaces joined;
    for (const MapBytesLine* river : LinesOf(WorldMapBytes(), {Rivers})) {
        for (std::size_t i = 1; i < river->Places.size(); ++i) {
            EXPECT_TRUE(joined.Join(river->Places[i - 1], river->Places[i]))
                << river->Places[i].Lon << " " << river->Places[i].Lat;
        }
    }
}

TEST(WorldMap, LetsEveryRiverEndAtAShoreOrInAnotherRiver) {
    constexpr double nearby = 5.0; // minutes of arc; the source draws some mouths a little inland
    const MapBytes& map = WorldMapBytes();
    const std::vector<const MapBytesLine*> shores = LinesOf(map, {1, 5, 6});
    const std::vector<const MapBytesLine*> rivers = LinesOf(map, {Rivers});
    ASSERT_FALSE(rivers.empty());
    for (const MapBytesLine* river : rivers) {
        const MapPlace mouth = river->Places.back();
        const bool joins = std::any_of(rivers.begin(), rivers.end(), [&](const MapBytesLine* other) {
            return other != river &&
                   std::find(other->Places.begin(), other->Places.end(), mouth) != other->Places.end();
        });
        const auto isNear = [&](const MapBytesLine* shore) {
            return MinutesFromLine(map, *shore, mouth.Lon, mouth.Lat) <= nearby;
        };
        EXPECT_TRUE(joins || std::any_of(shores.begin(), shores.end(), isNear))
            << mouth.Lon << " " << mouth.Lat;
    }
}

TEST_P(GreatRiver, IsOneLineFromItsHeadToItsMouth) {
    const River& told = GetParam();
    const auto isNear = [](MapPlace place, double lon, double lat) {
        return std::hypot(place.Lon / 60.0 - lon, place.Lat / 60.0 - lat) <= 2.0;
    };
    int found = 0;
    for (const MapBytesLine* river : LinesOf(WorldMapBytes(), {Rivers})) {
        found += isNear(river->Places.front(), told.headLon, told.headLat) &&
                         isNear(river->Places.back(), told.mouthLon, told.mouthLat)
                     ? 1
                     : 0;
    }
    EXPECT_EQ(found, 1);
}

// From an atlas. The Nile's head is the Ruvubu's, the Missouri's is in the Rocky Mountains.
INSTANTIATE_TEST_SUITE_P(
    Atlas, GreatRiver,
    testing::Values(River{"Nile", 29.6, -3.0, 30.4, 31.4},
                    River{"Missouri and Mississippi", -111, 44.7, -89.2, 29.2},
                    River{"Danube", 8.2, 48.1, 29.7, 45.2}, River{"Volga", 32.5, 57.2, 48.5, 46.0},
                    River{"Lena", 107.5, 54.0, 127.0, 72.5}, River{"Yangtze", 91.1, 33.4, 120.5, 32.0},
                    River{"Huang He", 96.0, 35.0, 119.2, 37.8}, River{"Niger", -10.8, 9.1, 6.5, 4.5},
                    River{"Elbe", 15.5, 50.8, 9.8, 53.5}, River{"Rhine", 8.7, 46.6, 5.0, 52.0}),
    [](const testing::TestParamInfo<River>& river) {
        std::string name = river.param.name;
        name.erase(std::remove(name.begin(), name.end(), ' '), name.end());
        return name;
    });

TEST_P(CountryWithProvinces, HasAllOfThem) {
    constexpr double thinned = 1.25; // minutes of arc: half a minute by thinning, the rest by rounding
    const Part& part = GetParam();
    const MapBytes& map = WorldMapBytes();
    const std::vector<const MapBytesLine*> lines = LinesOf(map, {part.rank});
    const auto borders = ProvinceBorders(part);
    ASSERT_GT(borders.size(), 100U);
    for (const auto& [lon, lat] : borders) {
        double least = std::numeric_limits<double>::infinity();
        for (const MapBytesLine* line : lines) {
            least = std::min(least, MinutesFromLine(map, *line, lon, lat));
        }
        ASSERT_LE(least, thinned) << lon / 60.0 << " " << lat / 60.0;
    }
}

INSTANTIATE_TEST_SUITE_P(Atlas, CountryWithProvinces,
                         testing::Values(Part{"Brazil", -56, -18, -42, -6, OtherProvinces, 41},
                                         Part{"Canada", -125, 50, -95, 60, 3, 38},
                                         Part{"United States", -114, 33, -83, 45, 4, 37},
                                         Part{"Australia", 115, -34, 146, -15, 8, 40},
                                         Part{"Mexico", -104, 18, -98, 24, 9, 41}),
                         NameOf);

TEST_P(CountryWithoutProvinces, HasNoneOfThem) {
    const Part& part = GetParam();
    EXPECT_GT(ProvinceBorders(part).size(), 100U) << "nothing to leave out";
    for (const MapBytesLine* line : LinesOf(WorldMapBytes(), {part.rank})) {
        for (const MapPlace place : line->Places) {
            ASSERT_FALSE(place.Lon >= part.west * 60 && place.Lon <= part.east * 60 &&
                         place.Lat >= part.south * 60 && place.Lat <= part.north * 60);
        }
    }
}

// Everything but the surroundings of Brazil, and the countries there that are not Brazil.
INSTANTIATE_TEST_SUITE_P(Atlas, CountryWithoutProvinces,
                         testing::Values(Part{"Africa Europe and Asia", -30, -60, 180, 85, OtherProvinces,
                                              41},
                                         Part{"Central America", -180, 7, -50, 85, OtherProvinces, 41},
                                         Part{"Argentina", -69, -60, -59, -23, OtherProvinces, 41},
                                         Part{"Bolivia", -67, -20, -63, -14, OtherProvinces, 41},
                                         Part{"Peru and Ecuador", -90, -14, -74, 0, OtherProvinces, 41}),
                         NameOf);

TEST(WorldMap, HasNoLakeTooSmallToBeSeen) {
    // 2000 square kilometres, less what thinning takes away.
    constexpr double leastArea = 1900.0;
    constexpr double kmPerMinute = 1.853;
    for (const MapBytesLine* lake : LinesOf(WorldMapBytes(), {6})) {
        double twice = 0.0;
        for (std::size_t i = 1; i < lake->Places.size(); ++i) {
            const MapPlace from = lake->Places[i - 1];
            const MapPlace to = lake->Places[i];
            const double cosine = std::cos((from.Lat + to.Lat) / 120.0 * 3.14159265358979 / 180.0);
            twice += (to.Lon - from.Lon) * cosine * (from.Lat + to.Lat - 2.0 * lake->Places.front().Lat);
        }
        EXPECT_GE(std::abs(twice) / 2.0 * kmPerMinute * kmPerMinute, leastArea)
            << lake->Places.front().Lon << " " << lake->Places.front().Lat;
    }
}

} // namespace quelmont
