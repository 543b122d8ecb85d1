#include "designfile/designs.h"

#include "core/angle_text.h"
#include "core/degrees.h"
#include "core/file_numbers.h"
#include "core/rounding.h"
#include "designfile/cnf_read.h"
#include "designfile/cnf_save.h"
#include "dialogs/bounds/accept_bounds.h"
#include "dialogs/bounds/boundary_defaults.h"
#include "graticule/grid_types.h"
#include "mainwindow/map_draw.h"
#include "mainwindow/start_up.h"
#include "mapfiles/feature_rows.h"
#include "projection/projection_table.h"
#include "projection/utm.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <filesystem>
#include <sstream>

namespace quelmont {

namespace {

constexpr std::int32_t Circle = SecPerCircle;

class Dice {
public:
    explicit Dice(std::mt19937& random_) : random(random_) {}
    int From(int least, int most) { return std::uniform_int_distribution<int>(least, most)(random); }
    bool Coin() { return From(0, 1) == 1; }
    std::int16_t Short(int least, int most) { return static_cast<std::int16_t>(From(least, most)); }
    ColorValue Colour() { return SolidColor(static_cast<ColorValue>(From(0, 0xFFFFFF))); }

    std::string Latitude() { return LatitudeText(From(-324000, 324000)); }
    std::string Longitude() { return LongitudeText(From(-648000, 648000)); }
    static std::string LatitudeText(int seconds) { return AngleText(seconds, "LAT"); }
    static std::string LongitudeText(int seconds) { return AngleText(seconds, "LON"); }
    static std::string ArcText(int seconds) { return AngleText(seconds, "ARC"); }

    /// Letters of several scripts, quotes and blanks inside.
    std::string Name(bool commas = false) {
        static const std::array<const char*, 12> pieces = {
            "Oslo", "T\xC3\xB8nsberg", "\"old\"", " ", "  ", "\xE6\x9D\xB1\xE4\xBA\xAC", "a", "&", "%s",
            "\\n",  "\xCE\xA9",        "'"};
        std::string name = "n";
        for (int i = From(0, 5); i > 0; --i) {
            name += pieces[static_cast<std::size_t>(From(0, 11))];
            name += commas && Coin() ? ", " : "";
        }
        return name + (commas && Coin() ? "  " : ".");
    }

private:
    static std::string AngleText(int seconds, const char* kind) {
        std::string text;
        DegMinSec(DegreesOf(seconds), text, kind, 4);
        return text;
    }

    std::mt19937& random;
};

/// Seconds that divide 180 and 360 degrees.
constexpr std::array Spacings = {108000, 54000, 36000, 18000, 16200, 7200, 3600, 1800};

void RectangleBounds(Dice& dice) {
    const int lat = Spacings[static_cast<std::size_t>(dice.From(0, 7))] - dice.From(0, 1) * 1;
    const int lon = Spacings[static_cast<std::size_t>(dice.From(0, 7))] - dice.From(0, 1) * 7;
    const int rows = dice.From(1, std::min(8, 640000 / lat));
    const int columns = dice.From(1, std::min(12, Circle / lon));
    const int south = dice.From(-324000, 324000 - rows * lat);
    const int west = dice.From(-648000, 648000);
    int east = west + columns * lon;
    east -= east > 648000 ? Circle : 0;
    Design.GridText[GridTextNorth] = Dice::LatitudeText(south + rows * lat);
    Design.GridText[GridTextSouth] = Dice::LatitudeText(south);
    Design.GridText[GridTextLatSpacing] = Dice::ArcText(lat);
    Design.GridText[GridTextWest] = Dice::LongitudeText(west);
    Design.GridText[GridTextEast] = Dice::LongitudeText(east);
    Design.GridText[GridTextLonSpacing] = Dice::ArcText(lon);
}

void CircleBounds(Dice& dice) {
    Design.GridText[GridTextLatSpacing] = Dice::ArcText(Spacings[static_cast<std::size_t>(dice.From(0, 5))]);
    Design.GridText[GridTextLonSpacing] = Dice::ArcText(Spacings[static_cast<std::size_t>(dice.From(0, 5))]);
    Design.GridText[GridTextCentralLat] = dice.Latitude();
    Design.GridText[GridTextCentralLon] = dice.Longitude();
    Design.GridText[GridTextRange] = Dice::ArcText(dice.Coin() ? 648000 : dice.From(3600, 300000));
    const std::string height = std::to_string(dice.From(100, 99999999));
    Design.GridText[GridTextHeight] = std::string(8 - height.size(), '0') + height;
}

std::string Metres(int metres, std::size_t width) {
    const std::string digits = std::to_string(metres);
    return std::string(width - digits.size(), '0') + digits;
}

void ZoneBounds(Dice& dice) {
    Design.SpheroidName = Spheroids[static_cast<std::size_t>(dice.From(0, 8))].name;
    const int spacing = dice.From(1000, 200000);
    const int south = dice.From(0, 8000000);
    const int west = dice.From(100000, 500000);
    Design.UtmText[UtmTextCentralLon] = Dice::LongitudeText(dice.From(-30, 29) * 21600 + 10800);
    Design.UtmText[UtmTextOriginLat] = dice.Coin() ? Dice::LatitudeText(0) : dice.Latitude();
    Design.UtmText[UtmTextNorth] = Metres(south + spacing * dice.From(1, 6), 8);
    Design.UtmText[UtmTextSouth] = Metres(south, 8);
    Design.UtmText[UtmTextNorthingSpacing] = Metres(spacing, 8);
    Design.UtmText[UtmTextWest] = Metres(west, 7);
    Design.UtmText[UtmTextEast] = Metres(west + spacing * dice.From(1, 2), 7);
    Design.UtmText[UtmTextEastingSpacing] = Metres(spacing, 7);
}

/// Tries bounds until the dialogs of the projection accept them.
void AcceptBoundsOf(std::int16_t projNum, Dice& dice) {
    Design.ProjNum = projNum;
    Design.ProjName = FindProjection(projNum)->ProjName;
    for (int tries = 0;; ++tries) {
        quelmont::ProposeBounds();
        // The interrupted map is accepted with the bounds that it proposes, or some of their latitudes.
        if (projNum == ProjInterruptedMollweide) {
            Design.GridText[GridTextNorth] = Dice::LatitudeText(36000 * dice.From(1, 9));
            Design.GridText[GridTextSouth] = Dice::LatitudeText(-36000 * dice.From(1, 9));
        } else if (projNum == ProjUtm) {
            ZoneBounds(dice);
        } else if (IsAzimuthal(projNum)) {
            CircleBounds(dice);
        } else if (tries < 50) {
            RectangleBounds(dice);
        }
        if (WouldAccept(quelmont::AcceptProjection) && quelmont::AcceptProjection()) {
            return;
        }
        ASSERT_LT(tries, 500) << Design.ProjName;
    }
}

void Look(Dice& dice) {
    StoreGridType(GridTypes[static_cast<std::size_t>(dice.From(0, 4))]);
    Design.GridLineWidth = static_cast<float>(15 * dice.From(1, 600));
    Design.LineWidthsScaled = dice.Coin();
    Design.MapReduce = dice.From(10, 100) / 100.0;
    Design.BackColor = dice.Colour();
    Design.BackColorIndex = dice.Short(0, 255);
    Design.GridColor = dice.Colour();
    Design.GridColorIndex = dice.Short(0, 255);
    Design.LabelsVisible = dice.Coin();
    Design.PrintTop = static_cast<float>(dice.From(0, 1000)) / 7.0F;
    Design.PrintHeight = static_cast<float>(dice.From(0, 1000)) / 13.0F;
    Design.CenterVertical = dice.Coin();
    Design.ReportTop = static_cast<float>(dice.From(0, 300)) / 100.0F;
    Design.PrintUnitTwips = dice.Coin() ? 1440 : 567;
    Design.PrinterOrientation = dice.Short(1, 2);
    Design.Fonts[ReportFontSlot] = {dice.Name(), dice.From(4, 200), dice.Colour(), dice.Coin(),
                                    dice.Coin(), dice.Coin(),       dice.Coin()};
    Design.TextScalePercent = dice.Short(1, 1000);
}

void MapFiles(Dice& dice) {
    static const std::array<const char*, 6> endings = {"map", "pkd", "grf", "prn", "all", "mp1"};
    Design.InputFiles.clear();
    for (int i = dice.From(0, 4); i > 0; --i) {
        InputFileEntry& entry = Design.InputFiles.emplace_back(NewMapFileEntry(
            "/maps/" + dice.Name() + "." + endings[static_cast<std::size_t>(dice.From(0, 5))]));
        entry.MapFileType = dice.Short(1, 12);
        entry.LabelFontName = dice.Name();
        entry.LabelFontSize = dice.Short(0, 200);
        entry.LabelColor = dice.Colour();
        entry.LabelItalic = dice.Coin();
        for (std::size_t row = 1; row <= FeatureRows(entry.MapFileName).size(); ++row) {
            entry.Features[row] = {dice.Coin(), dice.Colour(), dice.Short(0, 9000), dice.Short(0, 9000),
                                   dice.Short(0, 9000)};
        }
    }
    Design.MapFileCount = static_cast<std::int16_t>(Design.InputFiles.size());
    Design.AsciiFileName.clear();
    for (int i = 0; i < Design.GridOutputCount + Design.MapFileCount; ++i) {
        Design.AsciiFileName.push_back(dice.Name(true));
    }
    Design.BmpFileName = dice.Name();
    Design.ScFileName = dice.Name();
}

void TextItems(Dice& dice) {
    Design.TextItems.clear();
    for (int i = dice.From(0, 5); i > 0; --i) {
        Design.TextItems.push_back({.TextString = dice.Name(true),
                                    .TextAngle = dice.Short(0, 359),
                                    .TextFont = dice.Name(true),
                                    .TextSize = dice.Short(4, 200),
                                    .TextColour = dice.Colour(),
                                    .TextBold = dice.Coin(),
                                    .TextUnderline = dice.Coin(),
                                    .TextX = dice.From(-20000, 60000),
                                    .TextY = dice.From(-20000, 60000),
                                    .TextWidth = dice.Short(1, 3000),
                                    .TextHeight = dice.Short(1, 3000),
                                    .TextDescent = dice.Short(0, 900),
                                    .TextCellHeight = dice.Short(1, 3900)});
    }
}

void Circles(Dice& dice) {
    Design.GcText = {dice.Latitude(), dice.Longitude(), dice.Latitude(), dice.Longitude()};
    Design.GcStartLat = DegreesOf(LatitudeSeconds(Design.GcText[0]));
    Design.GcStartLon = DegreesOf(LongitudeSeconds(Design.GcText[1]));
    Design.GcEndLat = DegreesOf(LatitudeSeconds(Design.GcText[2]));
    Design.GcEndLon = DegreesOf(LongitudeSeconds(Design.GcText[3]));
    Design.GcDefined = dice.Coin();
    Design.GcColor = dice.Colour();
    Design.GcLineWidth = static_cast<float>(15 * dice.From(1, 600));
    Design.ScText = {dice.Latitude(), dice.Longitude(), Dice::ArcText(dice.From(1, 648000))};
    Design.ScCenterLat = DegreesOf(LatitudeSeconds(Design.ScText[0]));
    Design.ScCenterLon = DegreesOf(LongitudeSeconds(Design.ScText[1]));
    Design.ScRadiusDeg = DegreesOf(ArcSeconds(Design.ScText[2]));
    Design.ScDefined = dice.Coin();
    Design.ScSymbolCount = dice.Short(1, 80);
}

} // namespace

DesignFiles::DesignFiles() {
    SetFileDeviceMaker(nullptr);
    window.scaleWidth = 800.0 * 15.0;
    window.scaleHeight = 600.0 * 15.0;
    window.place = {0.0, 0.0, window.scaleWidth, window.scaleHeight + window.menuBarTwips};
    machine.places.programFolder = folder / "program/";
    std::filesystem::create_directory(folder / "program");
    WriteWholeFile(folder / "program/Qmnt4.map", files.Contents("/program/Qmnt4.map").value());
    StartAgain();
}

std::string DesignFiles::Saved() {
    Design.CnfFileName = name;
    EXPECT_TRUE(CnfSave());
    EXPECT_EQ(Told(machine.boxes.Taken()), std::vector<std::string>());
    return ReadWholeFile(name);
}

bool DesignFiles::Recalled(std::string_view bytes) {
    WriteWholeFile(name, bytes);
    Design.CnfFileName = name;
    return CnfRead();
}

std::string DesignFiles::Drawn() {
    surface.Forget();
    MapDraw();
    std::ostringstream text;
    for (const RecordedSegment& segment : surface.Segments()) {
        text << segment << '\n';
    }
    return text.str();
}

void DesignFiles::StartAgain() {
    Design = MapDesign{};
    StartUp();
}

void MakeRandomDesign(std::mt19937& random) {
    Dice dice(random);
    const auto index = static_cast<std::size_t>(dice.From(0, static_cast<int>(Projections.size()) - 1));
    AcceptBoundsOf(Projections[index].ProjNum, dice);
    Look(dice);
    MapFiles(dice);
    TextItems(dice);
    Circles(dice);
}

TextItem TextOf(const std::string& text) {
    TextItem item;
    item.TextString = text;
    item.TextFont = "Arial";
    item.TextSize = 10;
    return item;
}

std::vector<std::string> LinesOf(const std::string& text) {
    std::vector<std::string> lines;
    std::istringstream stream(text);
    for (std::string line; std::getline(stream, line);) {
        EXPECT_TRUE(line.ends_with('\r')) << line;
        lines.push_back(line.substr(0, line.find_last_not_of('\r') + 1));
    }
    return lines;
}

std::string Joined(const std::vector<std::string>& lines) {
    std::string text;
    for (const std::string& line : lines) {
        text += line + "\r\n";
    }
    return text;
}

std::map<int, std::size_t> RecordPlaces(const std::vector<std::string>& lines) {
    std::map<int, std::size_t> places;
    std::size_t place = 0;
    const auto take = [&](int number, std::size_t count) {
        places[number] = place;
        place += count;
    };
    for (int number = 1; number <= 20; ++number) {
        take(number, 1);
    }
    std::istringstream counts(lines[places[20]]);
    std::size_t outputs = 0;
    std::size_t files = 0;
    counts >> outputs >> files;
    for (int number = 21; number <= 23; ++number) {
        places[number] = place + static_cast<std::size_t>(number - 21);
    }
    place += 3 * files;
    take(24, outputs + files);
    take(25, 1);
    take(26, 10);
    take(27, 2);
    take(28, 10);
    for (int number = 29; number <= 47; ++number) {
        take(number, 1);
    }
    take(48, 11);
    take(49, 4);
    take(50, 1);
    take(51, 3);
    for (int number = 52; number <= 60; ++number) {
        take(number, 1);
    }
    return places;
}

} // namespace quelmont
