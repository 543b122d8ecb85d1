#include "output/print/printer_params.h"

#include "core/checked_math.h"
#include "core/map_design.h"
#include "core/print_units.h"
#include "output/output_state.h"
#include "platform/printers.h"

namespace quelmont {

namespace {

float InUnits(double twipsPerPixel, std::int32_t pixels) {
    return static_cast<float>(Divide(twipsPerPixel * pixels, Design.PrintUnitTwips));
}

} // namespace

bool GetPrinterParams(const Printer& printer) {
    OutputNow.page = {};
    const PrinterLimits limits = printer.Limits(Design.PrinterOrientation);
    if (limits.pixelsPerInchX <= 0 || limits.pixelsPerInchY <= 0 || limits.paperWidth <= 0 ||
        limits.paperHeight <= 0) {
        return false;
    }
    const double twipsX = static_cast<double>(InchTwips) / limits.pixelsPerInchX;
    const double twipsY = static_cast<double>(InchTwips) / limits.pixelsPerInchY;
    OutputNow.PrinterTwipsPerPixelX = static_cast<float>(twipsX);
    OutputNow.PrinterTwipsPerPixelY = static_cast<float>(twipsY);
    PrinterPage& page = OutputNow.page;
    page.PrintableWidth = InUnits(twipsX, limits.printableWidth);
    page.PrintableHeight = InUnits(twipsY, limits.printableHeight);
    page.PaperWidth = InUnits(twipsX, limits.paperWidth);
    page.PaperHeight = InUnits(twipsY, limits.paperHeight);
    page.PrinterOffsetX = InUnits(twipsX, limits.stripLeft);
    page.PrinterOffsetY = InUnits(twipsY, limits.stripTop);
    page.PrinterRightEdge = InUnits(twipsX, limits.stripLeft + limits.printableWidth);
    page.PrinterBottomEdge = InUnits(twipsY, limits.stripTop + limits.printableHeight);
    page.PrinterRightStrip = InUnits(twipsX, limits.paperWidth - limits.stripLeft - limits.printableWidth);
    page.PrinterBottomStrip = InUnits(twipsY, limits.paperHeight - limits.stripTop - limits.printableHeight);
    return true;
}

} // namespace quelmont
