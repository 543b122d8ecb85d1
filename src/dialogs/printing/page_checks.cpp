#include "dialogs/printing/page_checks.h"

#include "core/map_design.h"
#include "core/number_text.h"
#include "core/print_units.h"
#include "output/output_state.h"
#include "output/print/page_layout.h"

namespace quelmont {

namespace {

bool Exceeds(double length, float limit) { return length > limit + PageSlack; }

bool SumExceeds(float size, float margin, float edge) {
    return Exceeds(static_cast<double>(size) + margin, edge);
}

bool IsOnStrip(float margin, float strip) { return margin < strip - PageSlack; }

} // namespace

std::string LengthInWords(double length) {
    return FormatNumber(length, "##0.00 ") + (Design.PrintUnitTwips == CentimetreTwips ? "cm." : "inches.");
}

std::optional<PageRefusal> CheckPage() {
    const PrinterPage& page = OutputNow.page;
    if (!(Design.PrintWidth > 0.0F)) {
        return PageRefusal{"Error: Map width too small",
                           "The map width must be greater than " + LengthInWords(0.0), "WidthMap"};
    }
    if (Exceeds(Design.PrintWidth, page.PrintableWidth)) {
        return PageRefusal{"Error: Map width too large",
                           "The map width cannot exceed " + LengthInWords(page.PrintableWidth), "WidthMap"};
    }
    if (SumExceeds(Design.PrintWidth, Design.PrintLeft, page.PrinterRightEdge)) {
        return PageRefusal{"Error: (Map width + left margin) too large",
                           "The sum (map width + left margin) cannot exceed " +
                               LengthInWords(page.PrinterRightEdge) +
                               "\n\nReduce the map width and/or the left margin!",
                           "LeftMap"};
    }
    if (IsOnStrip(Design.PrintLeft, page.PrinterOffsetX)) {
        return PageRefusal{"Error: Left margin too small",
                           "The left margin must be greater than " + LengthInWords(page.PrinterOffsetX),
                           "LeftMap"};
    }
    if (Exceeds(Design.PrintHeight, page.PrintableHeight)) {
        return PageRefusal{"Error: Map height too large",
                           "The map height cannot exceed " + LengthInWords(page.PrintableHeight) +
                               "\n\nReduce the map width to reduce the map height!",
                           "WidthMap"};
    }
    if (SumExceeds(Design.PrintHeight, Design.PrintTop, page.PrinterBottomEdge)) {
        return PageRefusal{"Error: (Map height + top margin) too large",
                           "The sum (map height + top margin)  cannot exceed " +
                               LengthInWords(page.PrinterBottomEdge) +
                               "\n\nReduce the map width and/or the top margin!",
                           "TopMap"};
    }
    if (IsOnStrip(Design.PrintTop, page.PrinterOffsetY)) {
        return PageRefusal{"Error: Top margin too small",
                           "The top margin must be greater than " + LengthInWords(page.PrinterOffsetY),
                           "TopMap"};
    }
    return std::nullopt;
}

} // namespace quelmont
