#include <gtest/gtest.h>

#include <QImage>

#include <cctype>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <ostream>
#include <sstream>
#include <string>
#include <vector>

/// The sample maps of docs/look, with smooth lines, and of tests/look/plain, with plain ones, each looked at
/// by a person before it was put there, against what the program draws now. A map that fails leaves both
/// pictures and their difference in the build folder.

namespace {

struct SampleMap {
    std::string name;
    std::string options; ///< of quelmont-draw, as a shell reads them
    bool smooth = true;

    std::string Picture() const {
        return std::string(smooth ? QUELMONT_LOOK : QUELMONT_PLAIN) + "/" + name + ".png";
    }
};

void PrintTo(const SampleMap& map, std::ostream* out) { *out << map.name << (map.smooth ? "" : ", plain"); }

std::vector<SampleMap> SampleMaps() {
    std::vector<SampleMap> maps;
    std::ifstream list(std::string(QUELMONT_LOOK) + "/maps.txt");
    for (std::string line; std::getline(list, line);) {
        if (line.empty() || line.front() == '#') {
            continue;
        }
        SampleMap map;
        std::istringstream words(line);
        words >> map.name;
        std::getline(words, map.options);
        for (const bool smooth : {true, false}) {
            map.smooth = smooth;
            maps.push_back(map);
        }
    }
    return maps;
}

/// The options with the size of the picture, where they tell none, and the paths of the maps.
std::string WholeOptions(std::string options) {
    const std::filesystem::path folder = std::filesystem::path(QUELMONT_DRAW).parent_path();
    const auto put = [&](const std::string& word, const std::filesystem::path& place) {
        const std::size_t at = options.find(word);
        if (at != std::string::npos) {
            options.replace(at, word.size(), place.string());
        }
    };
    put("DEFAULT", folder / "Qmnt4.map");
    put("DETAIL", folder / "detail.pkv");
    put("data/", std::filesystem::path(QUELMONT_LOOK) / "../../data/");
    return options.find("--window") == std::string::npos ? "--window 640x462 " + options : options;
}

/// The two pictures' pixels that are not the same, red in a picture of their own.
QImage Difference(const QImage& expected, const QImage& drawn, int& count) {
    QImage difference(expected.size(), QImage::Format_RGB32);
    difference.fill(Qt::white);
    count = 0;
    for (int y = 0; y < expected.height(); ++y) {
        for (int x = 0; x < expected.width(); ++x) {
            if (expected.pixel(x, y) != drawn.pixel(x, y)) {
                difference.setPixel(x, y, qRgb(255, 0, 0));
                ++count;
            }
        }
    }
    return difference;
}

std::string NameOf(const testing::TestParamInfo<SampleMap>& map) {
    std::string name = map.param.name + (map.param.smooth ? "" : "_plain");
    for (char& c : name) {
        c = std::isalnum(static_cast<unsigned char>(c)) != 0 ? c : '_';
    }
    return name;
}

class SampleMapPicture : public testing::TestWithParam<SampleMap> {};

} // namespace

TEST(SampleMapList, HoldsEveryProjectionAndMore) {
    // Seventeen projections; maps of wide lines, of symbols and across the 180th meridian; six maps of
    // each of the two map files; three of towns with their names; three sheets of texts; two of routes; six
    // with labels of the grid, two with a frame; four of distortion; a filled one. Each with smooth lines and
    // with plain ones.
    EXPECT_EQ(SampleMaps().size(), 2 * 53U);
}

TEST_P(SampleMapPicture, LooksAsItDidWhenAPersonAcceptedIt) {
    const SampleMap& map = GetParam();
    const std::filesystem::path folder(QUELMONT_DIFFERENCES);
    std::filesystem::create_directories(folder);
    const std::string output = (folder / ((map.smooth ? "" : "plain-") + map.name + ".png")).string();
    const std::string command = std::string("\"") + QUELMONT_DRAW + (map.smooth ? "\" --smooth " : "\" ") +
                                WholeOptions(map.options) + " \"" + output + "\"";
    ASSERT_EQ(std::system(command.c_str()), 0) << command;

    const QImage expected(QString::fromStdString(map.Picture()));
    const QImage drawn(QString::fromStdString(output));
    ASSERT_FALSE(expected.isNull());
    ASSERT_EQ(drawn.size(), expected.size());
    int count = 0;
    const QImage difference = Difference(expected, drawn, count);
    // Another library of mathematical functions may move a point across the middle between two
    // pixels here and there.
    const int mostPixels = drawn.width() * drawn.height() / 2000;
    EXPECT_LE(count, mostPixels);
    if (count > mostPixels) {
        difference.save(QString::fromStdString(
            (folder / ((map.smooth ? "" : "plain-") + map.name + "-difference.png")).string()));
    }
}

INSTANTIATE_TEST_SUITE_P(Docs, SampleMapPicture, testing::ValuesIn(SampleMaps()), NameOf);
