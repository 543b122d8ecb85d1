#pragma once

#include "core/map_design.h"
#include "output/draw_target.h"
#include "output/export_file.h"
#include "output/fan_out.h"
#include "output/scale_screen.h"
#include "support/fresh_program.h"
#include "support/temporary_folder.h"

#include <gtest/gtest.h>

#include <string>
#include <utility>
#include <vector>

namespace quelmont {

/// A program about to export. The map is 32000 by 23100 projection units, and so is the drawing in
/// logical units: a point's numbers are those in the file. Two logical units are a twip, a twip is a
/// pixel, so that a pen of one pixel is two units wide.
class ExportTest : public FreshProgramTest {
protected:
    ExportTest() {
        machine.window.scaleWidth = 16001.0;
        machine.window.scaleHeight = 11551.0;
        Design.TwipsPerPixelX = 1.0F;
        Design.TwipsPerPixelY = 1.0F;
        Design.FullScreenX = 16001;
        Design.FullScreenY = 11551;
        Design.MapXMax = 32000.0;
        Design.MapYMax = 23100.0;
        Design.LogicalMarginX = 320;
        Design.LogicalMarginY = 320;
        Design.LineWidthsScaled = true;
        Design.MaxChainPoints = 1999;
        Design.TextScalePercent = 100;
        Design.VersionText = "3.00";
        Design.Fonts.fill({.FontName = "Arial"});
        Design.BackColor = 0xFFFFFF;
        Design.GridColor = 0x000080;
        Design.AsciiScale = 1.0 / 32000.0;
        Design.LobeFirst = true;
        Design.LobeLast = true;
        Design.CurrentSymbolType = SymbolLine;
        ScaleScreen();
    }
    ~ExportTest() override { Writers() = {}; }

    using Points = std::vector<std::pair<double, double>>;

    /// Begins a stretch of map data of a symbol type.
    static void Stretch(std::int16_t symbolType) {
        Design.CurrentSymbolType = symbolType;
        OpenExport(1);
        StartFileStretch();
    }

    static void Point(double x, double y) {
        Design.ProjX = x;
        Design.ProjY = y;
        ScaleXY();
    }

    static void Line(const Points& points) {
        for (const auto& [x, y] : points) {
            Point(x, y);
        }
        PrintLineBrkDisk();
    }

    /// A line of so many points, one unit apart in x from 0 on.
    static void LongLine(int points) {
        for (int x = 0; x < points; ++x) {
            Point(x, 7);
        }
        PrintLineBrkDisk();
    }

    /// One symbol of a half size and an outline, both logical units.
    static void Symbol(std::int16_t type, std::int16_t radius, std::int16_t border, double x, double y) {
        Stretch(type);
        Design.SymbolRadiusFile = radius;
        Design.BorderWidthFile = border;
        Point(x, y);
        PrintLineBrkDisk();
        CloseExport();
    }

    /// A text of twelve points at a quarter of the width, 8000 units, and at a tenth of the height from
    /// above: 23100 - 2310.
    static TextItem TextOfMap(const std::string& text, ColorValue color) {
        TextItem item;
        item.TextString = text;
        item.TextColour = color;
        item.TextFont = "Arial";
        item.TextSize = 12;
        item.TextX = 4000;
        item.TextY = 1155;
        item.TextWidth = 60;
        item.TextHeight = 100;
        return item;
    }

    /// Finishes an export that lost something, which the boxes reported: no file is there.
    void ExpectGivenUp(std::vector<AskedBox> boxes) {
        FinishFile();
        boxes.push_back({"Map Not Saved", target +
                                              "\n\nThe above file was not written, because a part of the "
                                              "map could not be."});
        EXPECT_EQ(machine.boxes.asked, boxes);
        EXPECT_EQ(Files(), std::vector<std::string>());
    }

    /// Names in the folder of the exports.
    std::vector<std::string> Files() const { return folder.Names(); }

    TemporaryFolder folder;
    const std::string target = folder / "map";
};

} // namespace quelmont
