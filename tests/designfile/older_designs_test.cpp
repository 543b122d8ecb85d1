#include "designfile/older_designs.h"

#include "designfile/cnf_save.h"
#include "designfile/designs.h"
#include "mapfiles/feature_rows.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>

namespace quelmont {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using testing::SizeIs;

/// Text up to its n-th comma.
std::string Items(const std::string& line, int count) {
    std::size_t comma = std::string::npos;
    for (int i = 0; i < count; ++i) {
        comma = line.find(',', comma + 1);
    }
    return line.substr(0, comma);
}

/// Designs as older versions wrote them.
class OlderDesigns : public DesignFiles {
protected:
    /// The design in force as a file of a version from 2.00 to 2.99, made of the lines of a present file.
    std::vector<std::string> OlderLines(const std::string& version) {
        const std::vector<std::string> now = LinesOf(DesignFileText());
        const auto places = RecordPlaces(now);
        std::vector<std::string> lines = {"Quelmont configuration file version " + version};
        const auto take = [&](int first, int last) {
            for (std::size_t i = places.at(first); i < places.at(last + 1); ++i) {
                lines.push_back(now[i]);
            }
        };
        take(2, 5);
        take(9, 9);
        take(12, 12);
        take(8, 8);
        take(13, 13);
        lines.emplace_back(" 50331647  33554432 ");
        take(15, 16);
        lines.emplace_back(" 1      1      1");
        take(18, 20);
        for (std::size_t i = places.at(21); i < places.at(25); ++i) {
            lines.push_back(now[i]);
        }
        lines.push_back(Items(now[places.at(25)], 7));
        take(26, 49);
        lines.emplace_back(" 37.7833     -122.4333      29.3333      47.9833      0      50266112      45");
        lines.push_back(now[places.at(53)]);
        const bool cellHeights = version > "2.03";
        for (std::size_t i = places.at(54); i < now.size(); ++i) {
            if (cellHeights || (i - places.at(54)) % 7 != 6) {
                lines.push_back(now[i]);
            }
        }
        return lines;
    }
};

TEST_F(OlderDesigns, VersionTwoIsReadInItsOwnOrder) {
    for (const char* version : {"2.00", "2.03", "2.04", "2.99"}) {
        StartAgain();
        AcceptProjection(ProjRobinson);
        Design.TextItems.assign(2, TextOf("Oslo"));
        Design.TextItems[1].TextHeight = 180;
        Design.TextItems[1].TextDescent = 45;
        Design.TextItems[1].TextCellHeight = 230;
        Design.GcFileName = "route.prn";
        const std::string file = Joined(OlderLines(version));
        StartAgain();
        Design.BackColorIndex = 3;
        Design.GridLineWidth = 45.0F;
        Design.LineWidthsScaled = false;
        Design.GcColorIndex = 7;
        Design.ScRadiusDeg = 22.0;
        Design.ScFileName = "present.prn";
        Design.PrintUnitTwips = 567;
        EXPECT_TRUE(Recalled(file)) << version;
        EXPECT_THAT(Told(machine.boxes.Taken()), IsEmpty());
        EXPECT_EQ(Design.ProjNum, ProjRobinson);
        EXPECT_EQ(Design.BackColor, SolidColor(Rgb(255, 255, 255)));
        EXPECT_EQ(Design.GcLineWidth, 45.0F);
        EXPECT_EQ(Design.GcFileName, "route.prn");
        ASSERT_THAT(Design.TextItems, SizeIs(2));
        EXPECT_EQ(Design.TextItems[1].TextString, "Oslo");
        EXPECT_EQ(Design.TextItems[1].TextCellHeight, version > std::string("2.03") ? 230 : 225);
        // What such a file does not hold keeps its present value.
        EXPECT_EQ(Design.BackColorIndex, 3);
        EXPECT_EQ(Design.GridLineWidth, 45.0F);
        EXPECT_FALSE(Design.LineWidthsScaled);
        EXPECT_EQ(Design.GcColorIndex, 7);
        EXPECT_EQ(Design.ScRadiusDeg, 22.0);
        EXPECT_EQ(Design.ScFileName, "present.prn");
        EXPECT_EQ(Design.PrintUnitTwips, 567);
        EXPECT_EQ(window.scaleWidth, 800.0 * 15.0);
    }
}

TEST_F(OlderDesigns, SixFeaturesOfTheMinuteGridBecomeTen) {
    Design.InputFiles.clear();
    for (const char* file : {"a.map", "b.ALL", "c.cci", "d.pnt", "e.pkd"}) {
        InputFileEntry& entry = Design.InputFiles.emplace_back(NewMapFileEntry(file));
        for (FeatureStyle& style : entry.Features) {
            style = {};
        }
        entry.Features[6] = {true, SolidColor(Rgb(1, 2, 3)), 30, 60, 15};
    }
    Design.MapFileCount = 5;
    EXPECT_TRUE(Recalled(Joined(OlderLines("2.50"))));
    for (std::size_t i = 0; i < 5; ++i) {
        const auto& rows = Design.InputFiles[i].Features;
        const bool minuteGrid = i < 3;
        EXPECT_EQ(rows[6].Color, SolidColor(Rgb(1, 2, 3)));
        EXPECT_EQ(rows[6].LineWidth, 30);
        EXPECT_EQ(rows[9].Color, minuteGrid ? SolidColor(Rgb(1, 2, 3)) : 0U) << i;
        EXPECT_EQ(rows[9].Shown, minuteGrid);
        EXPECT_EQ(rows[9].SymbolSize, minuteGrid ? 60 : 0);
        EXPECT_EQ(rows[8].Shown, minuteGrid);
        EXPECT_EQ(rows[8].Color, minuteGrid ? SolidColor(Rgb(255, 0, 255)) : 0U) << "Mexico";
        EXPECT_EQ(rows[10].Color, minuteGrid ? SolidColor(Rgb(128, 0, 0)) : 0U) << "Other Provinces/States";
        EXPECT_EQ(rows[10].LineWidth, minuteGrid ? 15 : 0);
        EXPECT_EQ(rows[10].SymbolSize, minuteGrid ? 45 : 0);
        EXPECT_EQ(rows[10].BorderWidth, minuteGrid ? 15 : 0);
        EXPECT_FALSE(rows[7].Shown);
    }
}

TEST_F(OlderDesigns, NamesOfTheOldestFilesAreKnown) {
    AcceptProjection(ProjAlbers);
    Design.Fonts[ReportFontSlot].FontName = "HELV";
    Design.TextItems.assign(1, TextOf("t"));
    Design.TextItems[0].TextFont = "COUR";
    Design.BmpFileName = "C:\\MAPS\\WORLD.PCX";
    Design.InputFiles[0].LabelFontName = "COUR";
    std::vector<std::string> lines = OlderLines("1.50");
    lines[1] = "ALBERS EQUAL-AREA";
    for (const bool versionLine : {true, false}) {
        StartAgain();
        if (!versionLine) {
            lines.erase(lines.begin());
        }
        EXPECT_TRUE(Recalled(Joined(lines)));
        EXPECT_EQ(Design.ProjName, "Albers Equal-Area");
        EXPECT_EQ(window.caption, "Quelmont: Albers Equal-Area projection");
        EXPECT_EQ(Design.Fonts[ReportFontSlot].FontName, "Arial");
        EXPECT_EQ(Design.InputFiles[0].LabelFontName, "Courier New");
        EXPECT_EQ(Design.TextItems[0].TextFont, "Courier New");
        EXPECT_EQ(Design.BmpFileName, "C:\\MAPS\\WORLD.bmp");
    }
}

TEST_F(OlderDesigns, EveryNameInCapitalsHasItsProjection) {
    const std::vector<std::pair<std::string, std::string>> names = {
        {"NORMAL MERCATOR", "Mercator"},
        {"EQUIRECTANGULAR", "Equirectangular"},
        {"HAMMER EQUAL-AREA", "Hammer Equal-Area"},
        {"ROBINSON", "Robinson"},
        {"EQUIDISTANT CONIC", "Equidistant Conic"},
        {"CONFORMAL CONIC", "Conformal Conic"},
        {"ALBERS EQUAL-AREA", "Albers Equal-Area"},
        {"GNOMONIC", "Gnomonic Azimuthal"},
        {"STEREOGRAPHIC", "Stereographic Azimuthal"},
        {"ORTHOGRAPHIC", "Orthographic Azimuthal"},
        {"VERTICAL PERSPECTIVE", "Vertical Perspective Azimuthal"},
        {"AZIMUTHAL EQUIDISTANT", "Azimuthal Equidistant"},
        {"AZIMUTHAL EQUAL-AREA", "Azimuthal Equal-Area"},
    };
    for (const auto& [capitals, present] : names) {
        Design.ProjName = capitals;
        RenameOldest();
        EXPECT_EQ(Design.ProjName, present);
    }
}

TEST_F(OlderDesigns, OldestFileThatDoesNotFitChangesNothing) {
    std::vector<std::string> lines = OlderLines("1.20");
    lines[1] = "ROBINSON";
    lines.pop_back();
    const MapDesign before = Design;
    EXPECT_FALSE(Recalled(Joined(lines)));
    EXPECT_THAT(Told(machine.boxes.Taken()), ElementsAre("Error in CnfRead: Error: Input past end of file"));
    EXPECT_EQ(Design.ProjName, before.ProjName);
    EXPECT_EQ(Design.BoundsProjNum, before.BoundsProjNum);
    EXPECT_EQ(window.settles, 0) << "nor the window";
    EXPECT_FALSE(Recalled("any text at all\r\n"));
    EXPECT_EQ(Design.ProjName, before.ProjName);
}

TEST_F(OlderDesigns, VersionIsTheLastFourCharacters) {
    const std::vector<std::string> lines = OlderLines("2.50");
    std::vector<std::string> other = lines;
    other[0] = "Configuration 2.50  ";
    EXPECT_TRUE(Recalled(Joined(other)));
    other[0] = "Quelmont 3.00";
    EXPECT_FALSE(Recalled(Joined(other))) << "the table of another version";
    machine.boxes.Taken();
}

} // namespace
} // namespace quelmont
