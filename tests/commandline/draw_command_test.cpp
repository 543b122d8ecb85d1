#include "commandline/draw_command.h"

#include "draw_command_fixture.h"
#include "projection/projection_table.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <QImage>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

#include <filesystem>
#include <set>
#include <sstream>

namespace quelmont {
namespace {

using testing::HasSubstr;
using testing::StartsWith;

class DrawCommandOf : public DrawCommandTest {
protected:
    QImage Picture(const char* name) const {
        return QImage(QString::fromStdString(folder / name)).convertToFormat(QImage::Format_RGB32);
    }

    /// Pixels of a colour, 0xRRGGBB.
    static int Count(const QImage& image, QRgb color) {
        int count = 0;
        for (int y = 0; y < image.height(); ++y) {
            for (int x = 0; x < image.width(); ++x) {
                count += image.pixel(x, y) == (0xFF000000 | color) ? 1 : 0;
            }
        }
        return count;
    }

    const std::string picture = folder / "a.png";
};

TEST_F(DrawCommandOf, NothingButAnOutputDrawsTheWorld) {
    const Outcome outcome = Run({picture});
    EXPECT_EQ(outcome.code, ExitDone);
    EXPECT_EQ(outcome.output, "");
    EXPECT_EQ(outcome.errors, "");
    const QImage image = Picture("a.png");
    EXPECT_EQ(image.size(), QSize(1280, 924));
    EXPECT_GT(Count(image, 0x000000), 5000); // the grid: nine meridians alone are 900 pixels each
    EXPECT_GT(Count(image, 0x008000), 5000); // coasts
    EXPECT_GT(Count(image, 0xFF0000), 1000); // borders
}

/// Pixels of neither the background nor a colour that is drawn with.
int Shades(const QImage& image) {
    const std::set<QRgb> plain{0xFFFFFFFF, 0xFF000000, 0xFF008000, 0xFFFF0000,
                               0xFF0000FF, 0xFF800000, 0xFFFF00FF};
    int count = 0;
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x) {
            count += plain.contains(image.pixel(x, y)) ? 0 : 1;
        }
    }
    return count;
}

TEST_F(DrawCommandOf, LinesAreSmoothWhereThatIsAskedForAndElsePlain) {
    const std::string plain = folder / "plain.png";
    const std::string bitmap = folder / "a.bmp";
    EXPECT_EQ(Run({"--smooth", picture}).code, ExitDone);
    EXPECT_EQ(Run({plain}).code, ExitDone);
    EXPECT_EQ(Run({"--smooth", "--no-smooth", bitmap}).code, ExitDone);
    EXPECT_EQ(Shades(Picture("plain.png")), 0);
    EXPECT_GT(Shades(Picture("a.png")), 10000);
    EXPECT_EQ(Picture("a.bmp"), Picture("plain.png"));
    EXPECT_EQ(Run({"--smooth", bitmap}).code, ExitDone);
    EXPECT_EQ(Picture("a.bmp"), Picture("a.png"));
}

TEST_F(DrawCommandOf, OtherFilesAreTheSameSmoothOrNot) {
    for (const std::string ending : {"cgm", "dxf", "wmf", "pdf"}) {
        const std::string smooth = folder / ("smooth." + ending);
        const std::string plain = folder / ("plain." + ending);
        EXPECT_EQ(Run({"--smooth", "--window", "400x300", smooth}).code, ExitDone);
        EXPECT_EQ(Run({"--window", "400x300", plain}).code, ExitDone);
        EXPECT_EQ(ReadWholeFile(smooth), ReadWholeFile(plain)) << ending;
    }
}

class EachProjection : public DrawCommandOf, public testing::WithParamInterface<ProjectionEntry> {};

TEST_P(EachProjection, DrawsItsGridAndItsCoastsWithoutAWord) {
    const Outcome outcome =
        Run({"--projection", std::to_string(GetParam().ProjNum), "--window", "400x300", picture});
    EXPECT_EQ(outcome.code, ExitDone);
    EXPECT_EQ(outcome.errors, "");
    const QImage image = Picture("a.png");
    EXPECT_GT(Count(image, 0x000000), 500);
    EXPECT_GT(Count(image, 0x008000), 500);
    EXPECT_GT(Count(image, 0xFFFFFF), 400 * 300 / 2);
}

TEST_P(EachProjection, IsTheSameTwice) {
    const std::vector<std::string> options{"--projection", std::to_string(GetParam().ProjNum), "--window",
                                           "200x150"};
    for (const char* name : {"a.png", "b.png"}) {
        std::vector<std::string> arguments = options;
        arguments.push_back(folder / name);
        ASSERT_EQ(Run(arguments).code, ExitDone);
    }
    EXPECT_EQ(ReadWholeFile(folder / "a.png"), ReadWholeFile(folder / "b.png"));
}

INSTANTIATE_TEST_SUITE_P(All, EachProjection, testing::ValuesIn(Projections),
                         [](const auto& test) { return "Number" + std::to_string(test.param.ProjNum); });

TEST_F(DrawCommandOf, TheGridAlone) {
    // True to scale on the equator, 360 by 180 degrees fill the picture at one pixel a degree.
    EXPECT_EQ(Run({"--no-map", "--std-north", "0", "--window", "361x181", picture}).code, ExitDone);
    const QImage image = Picture("a.png");
    for (int x = 0; x <= 360; ++x) {
        EXPECT_EQ(image.pixel(x, 80), x % 45 == 0 ? 0xFF000000 : 0xFFFFFFFF) << x;
    }
    for (int y = 0; y <= 180; ++y) {
        EXPECT_EQ(image.pixel(20, y), y % 30 == 0 ? 0xFF000000 : 0xFFFFFFFF) << y;
    }
}

TEST_F(DrawCommandOf, ColoursAndTypeOfTheGrid) {
    EXPECT_EQ(
        Run({"--no-map", "--window", "200x150", "--grid-color", "FF8000", "--background", "000040", picture})
            .code,
        ExitDone);
    const QImage lines = Picture("a.png");
    EXPECT_GT(Count(lines, 0xFF8000), 1000);
    EXPECT_EQ(Count(lines, 0xFF8000) + Count(lines, 0x000040), 200 * 150);
    EXPECT_EQ(
        Run({"--no-map", "--window", "200x150", "--grid-type", "5", "--background", "000040", picture}).code,
        ExitDone);
    EXPECT_EQ(Count(Picture("a.png"), 0x000040), 200 * 150);
    EXPECT_EQ(Run({"--no-map", "--window", "200x150", "--grid-type", "4", picture}).code, ExitDone);
    EXPECT_EQ(Count(Picture("a.png"), 0x000000), 9 * 7); // a dot at each crossing
}

TEST_F(DrawCommandOf, PercentLeavesMargins) {
    EXPECT_EQ(Run({"--no-map", "--window", "200x150", "--percent", "50", picture}).code, ExitDone);
    const QImage image = Picture("a.png");
    EXPECT_EQ(Count(image.copy(0, 0, 49, 150), 0x000000), 0);
    EXPECT_GT(Count(image.copy(49, 0, 3, 150), 0x000000), 40);
}

TEST_F(DrawCommandOf, RefusedDesignTellsItsBoxAndWritesNothing) {
    WriteWholeFile(picture, "earlier");
    const Outcome outcome = Run({"--stats", "--lat-grid", "7", picture});
    EXPECT_EQ(outcome.code, ExitFailed);
    EXPECT_EQ(outcome.output, "");
    EXPECT_EQ(outcome.errors, "Error: Degrees of latitude\nThe DEGREES OF LATITUDE BETWEEN GRID MARKS do not "
                              "yield an integral number of divisions along the latitude axis.\n");
    EXPECT_EQ(ReadWholeFile(picture), "earlier");
}

TEST_F(DrawCommandOf, MissingMapFileTellsItsBoxAndWritesWhatCameBefore) {
    const std::string missing = folder / "missing.map";
    const std::string world = World();
    ASSERT_EQ(Run({"--window", "400x300", picture}).code, ExitDone);
    const Outcome outcome = Run({"--window", "400x300", "--map", world, "--map", missing, "--map", world,
                                 "--feature-color", "FF00FE", folder / "b.png"});
    EXPECT_EQ(outcome.code, ExitFailed);
    EXPECT_EQ(outcome.errors, "File not found error in MapPlot\n" + missing +
                                  "\n\nThe above file, listed in the Open Digital Map File item\nof the File "
                                  "menu, was not found.\n");
    EXPECT_EQ(Picture("b.png"), Picture("a.png"));
}

TEST_F(DrawCommandOf, StatisticsAreOneLineOfJson) {
    const Outcome outcome = Run({"--window", "400x300", "--stats", picture});
    EXPECT_EQ(outcome.code, ExitDone);
    EXPECT_EQ(outcome.output.find('\n'), outcome.output.size() - 1);
    const QJsonObject line = QJsonDocument::fromJson(QByteArray::fromStdString(outcome.output)).object();
    const QJsonArray files = line["map_files"].toArray();
    ASSERT_EQ(files.size(), 1);
    const QJsonObject file = files[0].toObject();
    EXPECT_TRUE(file["name"].toString().endsWith("/Qmnt4.map"));
    EXPECT_GT(file["points_read"].toInteger(), 100000);
    EXPECT_EQ(file["points_read"], line["points_read"]);
    EXPECT_EQ(file["points_plotted"], line["points_plotted"]);
    EXPECT_LE(line["points_plotted"].toInteger(), line["points_read"].toInteger() * 2);
    EXPECT_GT(line["grid_points_plotted"].toInteger(), 0);
    const double sum = line["grid_seconds"].toDouble(-1) + file["seconds"].toDouble(-1);
    EXPECT_GT(file["seconds"].toDouble(), 0.0);
    EXPECT_GE(line["draw_seconds"].toDouble(-1), sum);
    EXPECT_GE(line["total_seconds"].toDouble(-1),
              line["draw_seconds"].toDouble(-1) + line["png_seconds"].toDouble(-1));
    EXPECT_GT(line["png_seconds"].toDouble(), 0.0);
}

TEST_F(DrawCommandOf, StatisticsAlsoTellOfAFailedFile) {
    const Outcome outcome = Run({"--map", folder / "missing.map", "--stats", picture});
    EXPECT_EQ(outcome.code, ExitFailed);
    EXPECT_THAT(outcome.output, StartsWith("{"));
}

TEST_F(DrawCommandOf, OutputThatCannotBeWrittenIsReported) {
    const Outcome missing = Run({"--no-map", "--stats", folder / "no/a.png"});
    EXPECT_EQ(missing.code, ExitFailed);
    EXPECT_EQ(missing.output, "");
    EXPECT_EQ(missing.errors, "quelmont-draw: " + (folder / "no/a.png") + ": Path not found\n");
    std::filesystem::create_directory(picture);
    EXPECT_EQ(Run({"--no-map", picture}).errors, "quelmont-draw: " + picture + ": Path/File access error\n");
}

TEST_F(DrawCommandOf, WrongUsageSaysWhereHelpIs) {
    const Outcome outcome = Run({"--north", "abc", picture});
    EXPECT_EQ(outcome.code, ExitWrongUsage);
    EXPECT_EQ(outcome.output, "");
    EXPECT_THAT(outcome.errors, StartsWith("quelmont-draw: --north: \"abc\" is no latitude"));
    EXPECT_THAT(outcome.errors, HasSubstr("quelmont-draw --help"));
    EXPECT_FALSE(std::filesystem::exists(picture));
}

TEST_F(DrawCommandOf, OptionWithoutMeaningIsReportedAndIgnored) {
    const Outcome outcome = Run({"--no-map", "--range", "50", picture});
    EXPECT_EQ(outcome.code, ExitDone);
    EXPECT_EQ(outcome.errors, "quelmont-draw: --range means nothing on this projection.\n");
}

TEST_F(DrawCommandOf, StyleOfADefaultMapThatIsNotDrawnIsReportedAndIgnored) {
    const Outcome outcome = Run({"--no-map", "--line-width", "3", picture});
    EXPECT_EQ(outcome.code, ExitDone);
    EXPECT_EQ(outcome.errors,
              "quelmont-draw: --line-width means nothing before the first --map, as the default "
              "map is not drawn.\n");
}

TEST_F(DrawCommandOf, TextFileWithoutFlagsIsDrawnWithANote) {
    const std::string map = folder / "a.prn";
    const auto errors = [&](const char* contents, const std::string& name) {
        WriteWholeFile(name, contents);
        const Outcome outcome = Run({"--map", name, picture});
        EXPECT_EQ(outcome.code, ExitDone);
        EXPECT_TRUE(std::filesystem::remove(picture));
        return outcome.errors;
    };
    const std::string note =
        "quelmont-draw: " + map +
        ": no first column is -1, 0 or 1. A flag comes first, then latitude and longitude; "
        "--help shows an example.\n";
    EXPECT_EQ(errors("46.2 6.15 0\r\n46.5 6.63 0\r\n", map), note);
    EXPECT_EQ(errors("46.2,6.15,0\n", map), note);
    EXPECT_EQ(errors("0.7 6.15 0\r\n-1.2 6.63 0\r\n", map), note) << "near the equator, too";
    EXPECT_EQ(errors("9 46.2 6.15\r\n0 46.5 6.63\r\n", map), "") << "one of the three is enough";
    EXPECT_EQ(errors("-1 46.2 6.15\r\n", map), "");
    EXPECT_EQ(errors("1 46.2 6.15\r\n", map), "");
    EXPECT_EQ(errors("", map), "") << "there is no first column";
    EXPECT_EQ(errors("46.2 6.15 0\r\n", folder / "a.mp1"), "") << "no flags belong there";
}

TEST_F(DrawCommandOf, NoteAboutMissingFlagsComesOncePerFile) {
    const std::string map = folder / "a.prn";
    WriteWholeFile(map, "46.2 6.15 0\r\n");
    const Outcome outcome = Run({"--projection", "42", "--map", map, "--map", map, picture});
    EXPECT_EQ(outcome.code, ExitDone);
    EXPECT_EQ(outcome.errors.find("no first column"), outcome.errors.rfind("no first column"));
    EXPECT_EQ(Run({"--no-map", picture}).errors, "") << "the next draw has forgotten it";
}

TEST_F(DrawCommandOf, GridOfMoreThanTenMillionPointsIsReportedBeforeItIsDrawn) {
    const auto errors = [&](const char* spacing) {
        return Run({"--no-map", "--grid-type", "4", "--lat-grid", spacing, "--lon-grid", spacing,
                    folder / "none/a.txt"})
            .errors;
    };
    // 10801 parallels and 21601 meridians cross in 233 312 401 points, each of which comes with its parallel
    // and with its meridian.
    const std::string note =
        "quelmont-draw: note: the grid has some 467 million points; Ctrl+C stops the draw.\n";
    const std::string told = errors("0:01");
    EXPECT_EQ(told.substr(0, note.size()), note);
    EXPECT_NE(told.find("Path not found"), std::string::npos) << "which ended the draw";
    // 181 and 361 cross in 65 341.
    EXPECT_EQ(errors("1").find("million"), std::string::npos);
}

TEST_F(DrawCommandOf, StreamThatFailsIsAFailure) {
    ResetCore();
    std::ostringstream output;
    output.setstate(std::ios::badbit);
    std::ostringstream errors;
    EXPECT_EQ(DrawCommand({"--help"}, output, errors), ExitFailed);
    EXPECT_EQ(errors.str(), "quelmont-draw: The standard output cannot be written.\n");
    EXPECT_EQ(DrawCommand({"--no-map", "--stats", picture}, output, errors), ExitFailed);
}

} // namespace
} // namespace quelmont
