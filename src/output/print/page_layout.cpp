#include "output/print/page_layout.h"

#include "core/checked_math.h"
#include "core/map_design.h"
#include "output/output_state.h"
#include "platform/machine.h"

#include <algorithm>

namespace quelmont {

namespace {

/// One direction of the page.
struct Direction {
    float paper = 0.0F;  ///< size
    float strip = 0.0F;  ///< before the printable area
    float edge = 0.0F;   ///< end of the printable area, from the paper's
    float behind = 0.0F; ///< strip behind it
    float map = 0.0F;    ///< size
    bool centered = false;

    double Middle() const { return (static_cast<double>(paper) - map) / 2.0; }
    bool CanCenter() const { return Middle() >= strip - PageSlack && Middle() + map <= edge + PageSlack; }
    void Place(float& margin) const {
        if (centered) {
            margin = std::max(static_cast<float>(Middle()), strip);
        } else if (static_cast<double>(margin) + map > edge + PageSlack) {
            margin = std::max(static_cast<float>((static_cast<double>(paper) - map) - behind), strip);
        }
    }
};

Direction Across() {
    const PrinterPage& page = OutputNow.page;
    return {page.PaperWidth,        page.PrinterOffsetX, page.PrinterRightEdge,
            page.PrinterRightStrip, Design.PrintWidth,   Design.CenterHorizontal};
}

Direction Down() {
    const PrinterPage& page = OutputNow.page;
    return {page.PaperHeight,        page.PrinterOffsetY, page.PrinterBottomEdge,
            page.PrinterBottomStrip, Design.PrintHeight,  Design.CenterVertical};
}

} // namespace

void SetPrintWidth(float width) {
    const MainWindow& window = *Machine().window;
    Design.PrintHeight = static_cast<float>(Divide(window.ScaleHeight() * width, window.ScaleWidth()));
    Design.PrintWidth = width;
}

void SetPrintHeight(float height) {
    const MainWindow& window = *Machine().window;
    Design.PrintWidth = static_cast<float>(Divide(window.ScaleWidth() * height, window.ScaleHeight()));
    Design.PrintHeight = height;
}

bool FitPrintToPaper() {
    const auto width =
        static_cast<float>(OutputNow.page.PaperWidth - 2.0 * static_cast<double>(Design.PrintLeft));
    const auto mostHeight =
        static_cast<float>(OutputNow.page.PaperHeight - 2.0 * static_cast<double>(Design.PrintTop));
    if (!(width > 0.0F) || !(mostHeight > 0.0F)) {
        return false;
    }
    SetPrintWidth(width);
    if (Design.PrintHeight > mostHeight) {
        SetPrintHeight(mostHeight);
    }
    return true;
}

bool CanCenterHorizontally() { return Across().CanCenter(); }
bool CanCenterVertically() { return Down().CanCenter(); }

void CalcPrnLeft() { Across().Place(Design.PrintLeft); }
void CalcPrnTop() { Down().Place(Design.PrintTop); }

} // namespace quelmont
