#include "exports/whole_draw.h"
#include "support/cgm_file.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cstdint>
#include <string>
#include <vector>

namespace quelmont {
namespace {

using testing::HasSubstr;

/// Sheets of symbols and lines, drawn on the window and into each kind of file.
class SymbolsInFiles : public WholeDraw {
protected:
    /// A map file in minutes: a code of 1000 and more begins a line. Returns its name.
    std::string MapFile(const std::string& name, const std::vector<std::pair<int, int>>& degrees) {
        std::string bytes;
        std::uint16_t code = 1000;
        for (const auto& [lat, lon] : degrees) {
            for (const int value : {static_cast<int>(std::exchange(code, 0)), lat * 60, lon * 60}) {
                bytes += static_cast<char>(value & 0xFF);
                bytes += static_cast<char>(value >> 8 & 0xFF);
            }
        }
        WriteWholeFile(maps / name, bytes);
        return maps / name;
    }

    /// The types of symbols in three sizes (pixels), outlines and lines of several widths and colours.
    Arguments Sheet(const std::vector<std::string>& sizes = {"100", "300", "555"}) {
        Arguments arguments{"--projection", "robinson", "--grid-type", "5"};
        const std::vector<std::string> colors{"FF0000", "0000FF", "008000"};
        for (int type = 2; type <= 12; ++type) {
            for (std::size_t row = 0; row < sizes.size(); ++row) {
                const int lat = 60 - 30 * static_cast<int>(row);
                const std::string name = std::to_string(type) + "-" + sizes[row] + ".map";
                for (const std::string& word :
                     {std::string("--map"), MapFile(name, {{lat, -150 + 25 * (type - 2)}}),
                      std::string("--symbol"), std::to_string(type), std::string("--symbol-size"), sizes[row],
                      std::string("--border-width"), std::to_string(1 + 6 * row),
                      std::string("--feature-color"), colors[row]}) {
                    arguments.push_back(word);
                }
            }
        }
        for (const int width : {1, 2, 3, 5, 9}) {
            const int lat = -30 - 5 * width;
            for (const std::string& word :
                 {std::string("--map"),
                  MapFile("line" + std::to_string(width) + ".map", {{lat, -120}, {lat - 2, 0}, {lat, 120}}),
                  std::string("--line-width"), std::to_string(width)}) {
                arguments.push_back(word);
            }
        }
        return arguments;
    }

    TemporaryFolder maps;
};

TEST_F(SymbolsInFiles, SheetIsTheWindowsInEveryFormat) {
    const DrawnMap screen = ExpectSameInEachFormat(Sheet());
    EXPECT_EQ(screen.symbols.size(), 30U);
    EXPECT_EQ(screen.dots.size(), 3U);
    EXPECT_EQ(screen.lines.size(), 5U);
}

TEST_F(SymbolsInFiles, SheetHasEachTypeOnceInEachSize) {
    Draw(Sheet(), "cgm");
    std::vector<std::string> kinds;
    for (const DrawnSymbol& symbol : MapOfCgm(File("map.cgm")).symbols) {
        if (symbol.high.x - symbol.low.x > 1000) { // of the largest
            kinds.push_back(symbol.kind);
        }
    }
    EXPECT_THAT(kinds, testing::ElementsAre("plus", "cross", "open square", "filled square", "open diamond",
                                            "filled diamond", "open triangle", "filled triangle",
                                            "open circle", "filled circle"));
}

/// A sheet whose screen has pixels of 15 twips, so that a scaled width and one in pixels are not the same.
class WidthsInFiles : public SymbolsInFiles {
protected:
    WidthsInFiles() {
        machine.screen.twipsPerPixelX = 15.0F;
        machine.screen.twipsPerPixelY = 15.0F;
        machine.screen.fullScreenX = 2000;
        machine.screen.fullScreenY = 1444;
        machine.window.scaleWidth = 30000.0;
        machine.window.scaleHeight = 21660.0;
    }

    Arguments SmallSheet() { return Sheet({"10", "30", "55"}); }

    /// Widths of the lines, then of the outlines of the smallest symbols and of the larger ones.
    static std::vector<int> Widths(const DrawnMap& map) {
        std::vector<int> widths;
        for (const DrawnLine& line : map.lines) {
            widths.push_back(line.width);
        }
        for (const DrawnSymbol& symbol : map.symbols) {
            if (symbol.kind == "open square" || symbol.kind == "cross") {
                widths.push_back(symbol.width);
            }
        }
        return widths;
    }
};

TEST_F(WidthsInFiles, ArePixelsOfTheWindowInLogicalUnits) {
    // A pixel is 15 twips, and a twip 32000 / 29985 units: 16.008. Crosses first, of 1, 7 and 13 pixels.
    const std::vector<int> expected{16, 32, 48, 80, 144, 16, 112, 208, 16, 112, 208};
    Draw(SmallSheet(), "cgm");
    EXPECT_EQ(Widths(MapOfCgm(File("map.cgm"))), expected);
    Draw(SmallSheet(), "dxf");
    EXPECT_EQ(Widths(MapOfDxf(File("map.dxf"))), expected);
    Draw(SmallSheet(), "wmf");
    EXPECT_EQ(Widths(MapOfWmf(File("map.wmf"))), expected);
}

TEST_F(WidthsInFiles, CountPixelsWithoutScaling) {
    const std::vector<int> expected{1, 2, 3, 5, 9, 1, 7, 13, 1, 7, 13};
    Arguments sheet = SmallSheet();
    sheet.emplace_back("--no-line-scaling");
    Draw(sheet, "cgm");
    EXPECT_EQ(Widths(MapOfCgm(File("map.cgm"))), expected);
    Draw(sheet, "dxf");
    EXPECT_EQ(Widths(MapOfDxf(File("map.dxf"))), expected);
    Draw(sheet, "wmf");
    EXPECT_EQ(Widths(MapOfWmf(File("map.wmf"))), expected);
}

TEST_F(SymbolsInFiles, ComparisonSeesALineThatIsMissingAndASymbolThatIsChanged) {
    const Arguments sheet = Sheet();
    Draw(sheet, "dxf");
    const DrawnMap screen = Screen();
    const std::string dxf = File("map.dxf");
    // The last polyline is a line, the first SOLID a dot, the last CIRCLE an open circle.
    const std::size_t line = dxf.rfind("  0\r\nPOLYLINE");
    const std::size_t end = dxf.find("  0\r\nENDSEC", line);
    EXPECT_THAT(Difference(MapOfDxf(dxf.substr(0, line) + dxf.substr(end)), screen), HasSubstr("lines"));
    const std::size_t radius = dxf.find(" 40\r\n", dxf.rfind("CIRCLE"));
    EXPECT_THAT(Difference(MapOfDxf(std::string(dxf).insert(radius + 5, "1")), screen), HasSubstr("symbol"));

    Draw(sheet, "cgm");
    const std::string cgm = File("map.cgm");
    std::size_t begin = 0;
    std::size_t after = 0;
    std::size_t circle = 0;
    for (const CgmElement& element : ReadCgm(cgm)) {
        const auto offset = static_cast<std::size_t>(element.offset);
        after = after <= begin ? offset : after;
        if (element.name == "POLYLINE" && element.longForm) {
            begin = offset;
        }
        circle = element.name == "CIRCLE" ? offset : circle;
    }
    EXPECT_THAT(Difference(MapOfCgm(cgm.substr(0, begin) + cgm.substr(after)), screen), HasSubstr("lines"));
    std::string larger = cgm;
    larger[circle + 6] = static_cast<char>(larger[circle + 6] + 1); // 256 units more
    EXPECT_THAT(Difference(MapOfCgm(larger), screen), HasSubstr("symbol"));

    Draw(sheet, "wmf");
    DrawnMap wmf = MapOfWmf(File("map.wmf"));
    ASSERT_EQ(Difference(wmf, screen), "");
    // Its headers count words, so that bytes cannot simply go: what was read is changed.
    wmf.symbols.back().kind = "open circle";
    EXPECT_THAT(Difference(wmf, screen), HasSubstr("symbol"));
    wmf = MapOfWmf(File("map.wmf"));
    wmf.lines.pop_back();
    EXPECT_THAT(Difference(wmf, screen), HasSubstr("lines"));
}

TEST_F(SymbolsInFiles, DotsOfLaterLobesAreFilledBehindOpenShapes) {
    const Arguments arguments{
        "--projection", "42", "--grid-type",   "4",  "--map", MapFile("one.map", {{10, 10}}),
        "--symbol",     "11", "--symbol-size", "300"};
    const DrawnMap screen = ExpectSameInEachFormat(arguments);
    EXPECT_GT(screen.dots.size(), 100U);
    EXPECT_EQ(screen.symbols.size(), 1U);
}

/// Lines of so many points, and one behind them.
class LongLinesInFiles : public SymbolsInFiles, public testing::WithParamInterface<int> {
protected:
    Arguments LongLine() {
        std::string bytes;
        const auto point = [&](int code, int latMinutes, int lonMinutes) {
            for (const int value : {code, latMinutes, lonMinutes}) {
                bytes += static_cast<char>(value & 0xFF);
                bytes += static_cast<char>(value >> 8 & 0xFF);
            }
        };
        for (int i = 0; i < GetParam(); ++i) {
            point(i == 0 ? 1000 : 0, 10 * 60 + i % 7, -150 * 60 + 4 * i);
        }
        point(1000, -600, 0);
        point(0, -600, 600);
        WriteWholeFile(maps / "long.map", bytes);
        return {"--projection", "equirectangular", "--grid-type", "5", "--map", maps / "long.map"};
    }
};

TEST_P(LongLinesInFiles, ArriveWholeAndNothingLeadsToTheNextLine) {
    const Arguments arguments = LongLine();
    const DrawnMap screen = ExpectSameInEachFormat(arguments);
    ASSERT_EQ(screen.lines.size(), 2U);
    EXPECT_EQ(screen.lines[0].points.size(), static_cast<std::size_t>(GetParam()));
    EXPECT_EQ(screen.lines[1].points.size(), 2U);
    Draw(arguments, "txt");
    EXPECT_EQ(Difference(MapOfText(File("map-long.map.txt")), screen), "");
}

INSTANTIATE_TEST_SUITE_P(Counts, LongLinesInFiles, testing::Values(1, 1998, 1999, 2000, 3998, 3999));

} // namespace
} // namespace quelmont
