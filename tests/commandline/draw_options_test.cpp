#include "commandline/draw_options.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace quelmont {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using Words = std::vector<std::string>;

DrawOptions Read(const Words& arguments) {
    auto result = ReadDrawOptions(arguments, "3.00");
    if (const auto* wrong = std::get_if<WrongUsage>(&result)) {
        ADD_FAILURE() << wrong->reason;
        return {};
    }
    return std::get<DrawOptions>(result);
}

/// Why a command line is wrong; empty when it is right.
std::string Fault(const Words& arguments) {
    const auto result = ReadDrawOptions(arguments, "3.00");
    const auto* wrong = std::get_if<WrongUsage>(&result);
    return wrong == nullptr ? "" : wrong->reason;
}

TEST(DrawOptionsOf, NothingAreTheDefaults) {
    const DrawOptions options = Read({"a.png"});
    EXPECT_EQ(options.output, "a.png");
    EXPECT_EQ(options.ProjNum, 2);
    EXPECT_EQ(options.window, (SurfacePoint{1280, 924}));
    EXPECT_FALSE(options.screen);
    EXPECT_EQ(options.percent, 100);
    EXPECT_FALSE(options.smooth);
    EXPECT_FALSE(options.stats);
    EXPECT_FALSE(options.map.noMap);
    EXPECT_THAT(options.map.files, IsEmpty());
    EXPECT_FALSE(options.gridType || options.gridColor || options.gridWidth || options.background);
}

struct TextCase {
    const char* name;
    const char* value;
    std::optional<std::string> (*field)(const DrawOptions&);
    const char* text;
};

class TextOptions : public testing::TestWithParam<TextCase> {};

TEST_P(TextOptions, FillTheirField) {
    const TextCase& option = GetParam();
    EXPECT_EQ(option.field(Read({option.name, option.value, "a.png"})), option.text);
    EXPECT_EQ(option.field(Read({"a.png", std::string(option.name) + "=" + option.value})), option.text);
    EXPECT_EQ(option.field(Read({"a.png"})), std::nullopt);
}

TEST_P(TextOptions, RefuseWhatTheyCannotUnderstand) {
    EXPECT_THAT(Fault({"a.png", GetParam().name, "?"}), HasSubstr(std::string(GetParam().name) + ": \"?\""));
}

TEST_P(TextOptions, ComeOnceAndWithAValue) {
    const TextCase& option = GetParam();
    EXPECT_NE(Fault({"a.png", option.name, option.value, option.name, option.value}), "");
    EXPECT_NE(Fault({"a.png", option.name}), "");
}

// clang-format off
INSTANTIATE_TEST_SUITE_P(All, TextOptions, testing::Values(
    TextCase{"--north",              "70N",    [](const DrawOptions& o) { return o.grid[0]; }, "70    00    00    N"},
    TextCase{"--south",              "-10.5",  [](const DrawOptions& o) { return o.grid[1]; }, "10    30    00    S"},
    TextCase{"--lat-grid",           "10",     [](const DrawOptions& o) { return o.grid[2]; }, "010    00    00"},
    TextCase{"--west",               "-20",    [](const DrawOptions& o) { return o.grid[3]; }, "020    00    00    W"},
    TextCase{"--east",               "20",     [](const DrawOptions& o) { return o.grid[4]; }, "020    00    00    E"},
    TextCase{"--lon-grid",           "5",      [](const DrawOptions& o) { return o.grid[5]; }, "005    00    00"},
    TextCase{"--central-lat",        "20S",    [](const DrawOptions& o) { return o.grid[6]; }, "20    00    00    S"},
    TextCase{"--central-lon",        "60W",    [](const DrawOptions& o) { return o.grid[7]; }, "060    00    00    W"},
    TextCase{"--range",              "60",     [](const DrawOptions& o) { return o.grid[8]; }, "060    00    00"},
    TextCase{"--height-km",          "1000",   [](const DrawOptions& o) { return o.grid[9]; }, "00001000"},
    TextCase{"--std-north",          "45",     [](const DrawOptions& o) { return o.stdPar[0]; }, "45    00    00    N"},
    TextCase{"--std-south",          "30",     [](const DrawOptions& o) { return o.stdPar[1]; }, "30    00    00    N"},
    TextCase{"--spheroid",           "airy 1830", [](const DrawOptions& o) { return o.spheroid; }, "Airy 1830"},
    TextCase{"--utm-central-lon",    "3W",     [](const DrawOptions& o) { return o.utm[0]; }, "003    00    00    W"},
    TextCase{"--utm-origin-lat",     "49N",    [](const DrawOptions& o) { return o.utm[1]; }, "49    00    00    N"},
    TextCase{"--utm-false-easting",  "400000", [](const DrawOptions& o) { return o.utm[2]; }, "0400000"},
    TextCase{"--utm-false-northing", "1",      [](const DrawOptions& o) { return o.utm[3]; }, "00000001"},
    TextCase{"--utm-scale",          "1.0",    [](const DrawOptions& o) { return o.utm[4]; }, "1.0"},
    TextCase{"--utm-north",          "6200000", [](const DrawOptions& o) { return o.utm[5]; }, "06200000"},
    TextCase{"--utm-south",          "0",      [](const DrawOptions& o) { return o.utm[6]; }, "00000000"},
    TextCase{"--utm-lat-grid",       "100000", [](const DrawOptions& o) { return o.utm[7]; }, "00100000"},
    TextCase{"--utm-west",           "300000", [](const DrawOptions& o) { return o.utm[8]; }, "0300000"},
    TextCase{"--utm-east",           "800000", [](const DrawOptions& o) { return o.utm[9]; }, "0800000"},
    TextCase{"--utm-lon-grid",       "5000",   [](const DrawOptions& o) { return o.utm[10]; }, "0005000"}));
// clang-format on

TEST(DrawOptionsOf, GridAndBackground) {
    const DrawOptions options = Read({"--grid-type", "4", "--grid-color", "0000ff", "--grid-width", "3",
                                      "--background", "123456", "a.png"});
    EXPECT_EQ(options.gridType, 4);
    EXPECT_EQ(options.gridColor, 0x02FF0000U);
    EXPECT_EQ(options.gridWidth, 3);
    EXPECT_EQ(options.background, 0x02563412U);
}

TEST(DrawOptionsOf, ThePicture) {
    const DrawOptions options =
        Read({"--window", "640x480", "--screen", "800x600", "--percent", "50", "--stats", "a.PNG"});
    EXPECT_EQ(options.window, (SurfacePoint{640, 480}));
    EXPECT_EQ(options.screen, (SurfacePoint{800, 600}));
    EXPECT_EQ(options.percent, 50);
    EXPECT_TRUE(options.stats);
    EXPECT_EQ(options.output, "a.PNG");
}

TEST(DrawOptionsOf, SmoothLinesAreWhatWasSaidLast) {
    EXPECT_TRUE(Read({"--smooth", "a.png"}).smooth);
    EXPECT_FALSE(Read({"--no-smooth", "a.png"}).smooth);
    EXPECT_FALSE(Read({"--smooth", "a.png", "--no-smooth"}).smooth);
    EXPECT_TRUE(Read({"--no-smooth", "--smooth", "a.png"}).smooth);
}

TEST(DrawOptionsOf, Interruptions) {
    const DrawOptions options = Read({"--lobes-north", "40W,20E", "--lobes-south", "none", "a.png"});
    EXPECT_THAT(options.lobes[0],
                testing::Optional(ElementsAre("040    00    00    W", "020    00    00    E")));
    EXPECT_THAT(options.lobes[1], testing::Optional(IsEmpty()));
}

TEST(DrawOptionsOf, MapFilesBelongToTheMapBeforeThem) {
    const DrawOptions options = Read(
        {"--map",          "a.map", "--symbol", "12",  "--feature-color", "FF0000", "--map",         "b.map",
         "--map",          "c.map", "--symbol", "1",   "--line-width",    "2",      "--symbol-size", "5",
         "--border-width", "4",     "--hide",   "1,3", "--hide",          "10",     "a.png"});
    ASSERT_EQ(options.map.files.size(), 3U);
    EXPECT_EQ(options.map.files[0].file, "a.map");
    EXPECT_EQ(options.map.files[0].symbol, 12);
    EXPECT_EQ(options.map.files[0].color, 0x020000FFU);
    EXPECT_FALSE(options.map.files[0].lineWidth);
    EXPECT_FALSE(options.map.files[1].symbol);
    EXPECT_THAT(options.map.files[1].hidden, IsEmpty());
    EXPECT_EQ(options.map.files[2].symbol, 1);
    EXPECT_EQ(options.map.files[2].lineWidth, 2);
    EXPECT_EQ(options.map.files[2].symbolSize, 5);
    EXPECT_EQ(options.map.files[2].borderWidth, 4);
    EXPECT_THAT(options.map.files[2].hidden, ElementsAre(1, 3, 10));
}

TEST(DrawOptionsOf, LabelsBelongToTheMapBeforeThem) {
    const DrawOptions options = Read({"--map", "a.prn", "--label-font", "DejaVu Serif", "--label-size", "14",
                                      "--label-color", "0000FF", "--map", "b.utm", "--label-size", "4",
                                      "--map", "towns.txt", "--label-size", "200", "a.png"});
    ASSERT_EQ(options.map.files.size(), 3U);
    EXPECT_EQ(options.map.files[0].labelFont, "DejaVu Serif");
    EXPECT_EQ(options.map.files[0].labelSize, 14);
    EXPECT_EQ(options.map.files[0].labelColor, 0x02FF0000U);
    EXPECT_FALSE(options.map.files[1].labelFont);
    EXPECT_EQ(options.map.files[1].labelSize, 4);
    EXPECT_FALSE(options.map.files[1].labelColor);
    EXPECT_EQ(options.map.files[2].labelSize, 200)
        << "read as a text of points, as every ending of no format";
    EXPECT_FALSE(options.map.noLabels);
    EXPECT_TRUE(Read({"--no-labels", "a.png"}).map.noLabels);
}

TEST(WrongUsageOf, Labels) {
    EXPECT_THAT(Fault({"a.png", "--map", "a.prn", "--label-size", "3"}), HasSubstr("from 4 to 200"));
    EXPECT_THAT(Fault({"a.png", "--map", "a.prn", "--label-size", "201"}), HasSubstr("from 4 to 200"));
    EXPECT_THAT(Fault({"a.png", "--map", "a.prn", "--label-color", "blue"}), HasSubstr("--label-color"));
    EXPECT_THAT(Fault({"a.png", "--map", "a.prn", "--label-font", ""}), HasSubstr("--label-font"));
    for (const std::string name : {"--label-font", "--label-size", "--label-color"}) {
        EXPECT_THAT(Fault({"a.png", "--map", "a.pkv", name, "10"}),
                    HasSubstr(name + ": the points of a.pkv have no labels"));
        EXPECT_THAT(Fault({"a.png", name, name == "--label-color" ? "FF0000" : "10"}),
                    HasSubstr(name + ": the points of Qmnt4.map have no labels"))
            << "the default map";
    }
    EXPECT_NE(Fault({"a.png", "--no-labels=maybe"}), "");
}

TEST(DrawOptionsOf, GridLabels) {
    EXPECT_FALSE(Read({"a.png"}).gridLabels.place);
    const GridLabelOptions labels =
        Read({"--grid-labels", "lines", "--grid-label-style", "signs", "--grid-label-font", "Times",
              "--grid-label-size", "14", "--grid-label-color", "0000FF", "a.png"})
            .gridLabels;
    EXPECT_EQ(labels.place, GridLabelPlace::Lines);
    EXPECT_EQ(labels.style, GridLabelStyle::Sign);
    EXPECT_EQ(labels.font, "Times");
    EXPECT_EQ(labels.size, 14);
    EXPECT_EQ(labels.color, 0x02FF0000U);
    EXPECT_EQ(Read({"--grid-labels", "frame", "a.png"}).gridLabels.place, GridLabelPlace::Frame);
    EXPECT_EQ(Read({"--grid-labels", "none", "a.png"}).gridLabels.place, GridLabelPlace::None);
}

TEST(WrongUsageOf, GridLabels) {
    EXPECT_THAT(Fault({"a.png", "--grid-labels", "outside"}),
                HasSubstr("\"outside\" is none of none, frame, lines"));
    EXPECT_THAT(Fault({"a.png", "--grid-labels", "frame", "--grid-label-style", "30N"}),
                HasSubstr("is none of degrees, letters, signs"));
    EXPECT_THAT(Fault({"a.png", "--grid-labels", "frame", "--grid-label-font", ""}), HasSubstr("is no font"));
    EXPECT_THAT(Fault({"a.png", "--grid-labels", "frame", "--grid-label-size", "3"}),
                HasSubstr("from 4 to 200"));
    EXPECT_THAT(Fault({"a.png", "--grid-label-size", "12"}), HasSubstr("requires --grid-labels"));
}

TEST(WrongUsageOf, TheCommandLine) {
    EXPECT_THAT(Fault({}), HasSubstr("OUTPUT"));
    EXPECT_THAT(Fault({"a.gif"}), HasSubstr("does not end in .png"));
    EXPECT_NE(Fault({"a.png", "b.png"}), "");
    EXPECT_THAT(Fault({"a.png", "--nonsense", "1"}), HasSubstr("--nonsense"));
    EXPECT_THAT(Fault({"a.png", "--projection", "Sinusoidal"}), HasSubstr("\"Sinusoidal\" is no projection"));
    EXPECT_THAT(Fault({"a.png", "--spheroid", "GRS80"}), HasSubstr("is no spheroid"));
    EXPECT_NE(Fault({"a.png", "--north", "--south", "5N"}), "");
    EXPECT_NE(Fault({"a.png", "--stats=maybe"}), "");
}

TEST(WrongUsageOf, NumbersAndColours) {
    const std::vector<std::pair<std::string, std::vector<std::string>>> bad{
        {"--grid-type", {"0", "6", "lines"}},  {"--grid-color", {"red", "FFF"}},
        {"--grid-width", {"0", "601", "-1"}},  {"--background", {"", "12345G"}},
        {"--window", {"0x0", "100", "15x16"}}, {"--screen", {"16x15", "99999x50"}},
        {"--percent", {"9", "101"}},           {"--lobes-north", {"1,2,3,4"}},
        {"--lobes-south", {"nothing"}},
    };
    for (const auto& [name, values] : bad) {
        for (const std::string& value : values) {
            EXPECT_THAT(Fault({"a.png", name, value}), HasSubstr(name)) << value;
        }
    }
}

TEST(DrawOptionsOf, StylesBeforeTheFirstMapAreOfTheDefaultMap) {
    const DrawOptions alone = Read({"--line-width", "3", "--hide", "4", "a.png"});
    EXPECT_EQ(alone.map.defaultMap.lineWidth, 3);
    EXPECT_THAT(alone.map.defaultMap.hidden, ElementsAre(4));
    EXPECT_THAT(alone.map.files, IsEmpty());
    EXPECT_THAT(OptionsOfUndrawnMap(alone), IsEmpty());
    const DrawOptions both = Read({"--line-width", "3", "--map", "b.prn", "--line-width", "5", "a.png"});
    EXPECT_EQ(both.map.defaultMap.lineWidth, 3);
    EXPECT_EQ(both.map.files.at(0).lineWidth, 5);
    EXPECT_THAT(OptionsOfUndrawnMap(both), ElementsAre("--line-width"));
    EXPECT_THAT(OptionsOfUndrawnMap(Read({"--no-map", "--symbol", "2", "a.png"})), ElementsAre("--symbol"));
}

TEST(WrongUsageOf, OptionsOfMapFiles) {
    for (const std::string name :
         {"--symbol", "--feature-color", "--line-width", "--symbol-size", "--border-width", "--hide"}) {
        EXPECT_THAT(Fault({"a.png", name, "0x"}), HasSubstr(name)) << "of the default map";
        EXPECT_THAT(Fault({"a.png", "--map", "a.map", name, "0x"}), HasSubstr(name));
    }
    EXPECT_THAT(Fault({"a.png", "--map", "a.map", "--symbol", "13"}), HasSubstr("from 1 to 12"));
    EXPECT_THAT(Fault({"a.png", "--map", "a.map", "--line-width", "601"}), HasSubstr("from 1 to 600"));
    // The rows of the format count: a .map file has ten, a .prn file one.
    EXPECT_THAT(Fault({"a.png", "--map", "a.map", "--hide", "11"}), HasSubstr("from 1 to 10"));
    EXPECT_THAT(Fault({"a.png", "--hide", "11"}), HasSubstr("from 1 to 10"));
    EXPECT_THAT(Fault({"a.png", "--map", "a.prn", "--hide", "2"}), HasSubstr("from 1 to 1"));
    EXPECT_NE(Fault({"a.png", "--no-map", "--map", "a.map"}), "");
    EXPECT_NE(Fault({"a.png", "--map"}), "");
}

TEST(HelpText, NamesEveryOptionAndShowsSixExamples) {
    const auto result = ReadDrawOptions({"--help"}, "3.00");
    ASSERT_TRUE(std::holds_alternative<TextAnswer>(result));
    const std::string& help = std::get<TextAnswer>(result).text;
    for (const char* name : {"OUTPUT",
                             "--projection",
                             "--north",
                             "--south",
                             "--lat-grid",
                             "--west",
                             "--east",
                             "--lon-grid",
                             "--central-lat",
                             "--central-lon",
                             "--range",
                             "--height-km",
                             "--std-north",
                             "--std-south",
                             "--spheroid",
                             "--utm-central-lon",
                             "--utm-origin-lat",
                             "--utm-false-easting",
                             "--utm-false-northing",
                             "--utm-scale",
                             "--utm-north",
                             "--utm-south",
                             "--utm-lat-grid",
                             "--utm-west",
                             "--utm-east",
                             "--utm-lon-grid",
                             "--lobes-north",
                             "--lobes-south",
                             "--great-circle",
                             "--great-circle-color",
                             "--great-circle-width",
                             "--save-great-circle",
                             "--small-circle",
                             "--circles",
                             "--small-circle-color",
                             "--small-circle-width",
                             "--save-small-circle",
                             "--grid-type",
                             "--grid-color",
                             "--grid-width",
                             "--background",
                             "--map",
                             "--no-map",
                             "--symbol",
                             "--feature-color",
                             "--line-width",
                             "--symbol-size",
                             "--border-width",
                             "--hide",
                             "--no-labels",
                             "--label-font",
                             "--label-size",
                             "--label-color",
                             "--window",
                             "--screen",
                             "--percent",
                             "--stats",
                             "--help",
                             "--version"}) {
        EXPECT_THAT(help, HasSubstr(std::string(name) + " ")) << name;
    }
    EXPECT_THAT(help, HasSubstr("  40  Cylindrical Equal-Area\n"));
    std::size_t examples = 0;
    for (std::size_t at = help.find("\n  quelmont-draw "); at != std::string::npos;
         at = help.find("\n  quelmont-draw ", at + 1)) {
        ++examples;
    }
    EXPECT_EQ(examples, 6U);
}

TEST(HelpText, ShowsTheColumnsOfAFileOfOnesOwn) {
    const auto result = ReadDrawOptions({"--help"}, "3.00");
    const std::string& help = std::get<TextAnswer>(result).text;
    EXPECT_THAT(help, HasSubstr("flag, latitude, longitude"));
    EXPECT_THAT(help, HasSubstr("\n  -1  46.20   6.15  \"Geneva\"\n   0  46.52   6.63\n"));
}

TEST(VersionText, IsTheProgramsNameAndItsVersion) {
    const auto result = ReadDrawOptions({"--version"}, "3.00");
    ASSERT_TRUE(std::holds_alternative<TextAnswer>(result));
    EXPECT_EQ(std::get<TextAnswer>(result).text, "quelmont-draw 3.00\n");
}

TEST(OptionsWithoutMeaning, DependOnTheProjection) {
    const Words all{"a.png", "--north",       "1N",   "--lat-grid",  "1",         "--central-lat",
                    "1N",    "--range",       "1",    "--height-km", "1",         "--std-north",
                    "1",     "--std-south",   "1",    "--spheroid",  "Airy 1830", "--utm-scale",
                    "1",     "--lobes-south", "none", "--projection"};
    const auto without = [&](const char* projection) {
        Words arguments = all;
        arguments.emplace_back(projection);
        return OptionsWithoutMeaning(Read(arguments));
    };
    EXPECT_THAT(without("mercator"),
                ElementsAre("--central-lat", "--range", "--height-km", "--std-north", "--std-south",
                            "--lobes-south", "--spheroid", "--utm-scale"));
    EXPECT_THAT(without("equirectangular"),
                ElementsAre("--central-lat", "--range", "--height-km", "--std-south", "--lobes-south",
                            "--spheroid", "--utm-scale"));
    EXPECT_THAT(without("albers"), ElementsAre("--central-lat", "--range", "--height-km", "--lobes-south",
                                               "--spheroid", "--utm-scale"));
    EXPECT_THAT(without("42"), ElementsAre("--central-lat", "--range", "--height-km", "--std-north",
                                           "--std-south", "--spheroid", "--utm-scale"));
    EXPECT_THAT(without("gnomonic"), ElementsAre("--north", "--height-km", "--std-north", "--std-south",
                                                 "--lobes-south", "--spheroid", "--utm-scale"));
    EXPECT_THAT(without("29"), ElementsAre("--north", "--range", "--std-north", "--std-south",
                                           "--lobes-south", "--spheroid", "--utm-scale"));
    EXPECT_THAT(without("utm"), ElementsAre("--north", "--lat-grid", "--central-lat", "--range",
                                            "--height-km", "--std-north", "--std-south", "--lobes-south"));
    EXPECT_THAT(OptionsWithoutMeaning(Read({"a.png"})), IsEmpty());
}

} // namespace
} // namespace quelmont
