#include "core/constant_defs.h"

#include "core/map_design.h"
#include "core/print_units.h"
#include "core/rounding.h"
#include "platform/machine.h"

namespace quelmont {

namespace {

void ScreenMeasures() {
    const Screen& screen = *Machine().screen;
    Design.TwipsPerPixelX = screen.TwipsPerPixelX();
    Design.TwipsPerPixelY = screen.TwipsPerPixelY();
    Design.ScreenPixelsX = screen.PixelsX();
    Design.ScreenPixelsY = screen.PixelsY();
    Design.FullScreenX = screen.FullScreenX();
    Design.FullScreenY = screen.FullScreenY();
}

void ProjectionDefaults() {
    Design.ProjNum = ProjEquirectangular;
    Design.ProjName = "Equirectangular";
    Design.StdParText = {"00    00    00    N", "00    00    00    N"};
    // The fourth entry belongs to the vertical perspective and is set for each height.
    Design.HorizonCos = {0.0, -1.0, -1e-08, 0.0, -1.0, -1.0};
    Design.SpheroidName = "Clarke 1866";
    Design.UtmText = {"009    00    00    W",
                      "00    00    00    N",
                      "0500000",
                      "00000000",
                      "0.9996",
                      "06200000",
                      "05600000",
                      "00100000",
                      "0300000",
                      "0800000",
                      "0100000"};
}

void GridDefaults() {
    Design.BackColorIndex = 15;
    Design.BackColor = SolidColor(StandardColors[15]);
    Design.GridColorIndex = 0;
    Design.GridColor = SolidColor(StandardColors[0]);
    Design.GridLineWidth = Design.TwipsPerPixelY;
    Design.GridTypeCode = 3;
    Design.GridTypeText = " All grid points connected by lines";
    Design.GridOutputCount = 1;
}

void CircleDefaults() {
    Design.GcColorIndex = 9;
    Design.GcColor = SolidColor(StandardColors[9]);
    Design.ScColorIndex = 9;
    Design.ScColor = SolidColor(StandardColors[9]);
    Design.GcLineWidth = 3.0F * Design.TwipsPerPixelY;
    Design.ScLineWidth = 3.0F * Design.TwipsPerPixelY;
    Design.ScSymbolCount = 3;
    Design.GcText = {"37    47    00    N", "122    26    00    W", "29    20    00    N",
                     "047    59    00    E"};
    Design.GcStartLat = 37.7833;
    Design.GcStartLon = -122.4333;
    Design.GcEndLat = 29.3333;
    Design.GcEndLon = 47.9833;
    Design.ScText = {"37    47    00    N", "122    26    00    W", "015    00    00"};
    Design.ScRadiusDeg = 15.0;
}

void OutputDefaults() {
    Design.MapXMin = 0.0;
    Design.MapXMax = 1.0;
    Design.MapYMin = 0.0;
    Design.MapYMax = 1.0;
    Design.XAxisLength = 1.0;
    Design.MapReduce = 1.0;
    Design.LineWidthsScaled = true;
    Design.TextScalePercent = 100;
    Design.LogicalMarginX = 320;
    Design.LogicalMarginY = 320;
    Design.MaxChainPoints = 1999;
    Design.PrintUnitTwips = InchTwips;
    Design.PrintLeft = 1.0F;
    Design.PrintTop = 1.0F;
    Design.PrintWidth = 6.5F;
    Design.CenterHorizontal = true;
    Design.CenterVertical = true;
    Design.ReportLeft = 1.0F;
    Design.ReportRight = 1.0F;
    Design.ReportTop = 1.0F;
    Design.ReportBottom = 1.0F;
    Design.PrinterOrientation = 1;
}

void TextDefaults() {
    Design.TextStep = 10.0F * Design.TwipsPerPixelY;
    Design.FontSizeList = {8,  9,  10, 11, 12, 14, 16, 18,  20,  22,  24, 26,
                           28, 36, 48, 60, 72, 84, 96, 108, 120, 132, 144};
    Design.FontSlot = TextFontSlot;
    Design.Fonts.fill({.FontName = "Arial", .FontSize = 10, .FontColour = SolidColor(StandardColors[0])});
}

} // namespace

void ConstantDefs() {
    ScreenMeasures();
    ProjectionDefaults();
    GridDefaults();
    CircleDefaults();
    OutputDefaults();
    TextDefaults();
    Design.MapFeatureMax = MaxFeatureRows;
    Design.MapFileCount = 1;
    Design.VersionText = Machine().places->Version();
}

} // namespace quelmont
