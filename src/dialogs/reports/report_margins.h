#pragma once

#include "core/map_design.h"
#include "dialogs/design_dialog.h"
#include "platform/printers.h"

#include <array>
#include <cstdint>
#include <string>

namespace quelmont {

/// "Print Report on ...": how the paper lies, and the margins of a report from its edges, in inches or
/// centimetres. A report that is wider than what lies between the margins is asked about: Abort cancels,
/// Retry leaves the dialog open, Ignore accepts.
///
/// A length that the program wrote into a field counts as it is, not as it is shown with two decimals.
///
/// Writes  ReportLeft, ReportRight, ReportTop, ReportBottom, PrinterOrientation; PrintUnitTwips, with which
///         the size and the margins of a map go; DialogCancelled. Cancel gives all of them back.
class ReportMargins : public DesignDialog {
public:
    /// The printer outlives the dialog; the width of the report in twips.
    ReportMargins(const Printer& printer_, double reportWidth_);

private:
    struct Margin {
        const char* name;
        const char* caption;
        float* length;
        std::string written = {}; ///< by the program
    };
    /// What Cancel gives back.
    struct Before {
        std::int32_t unit = Design.PrintUnitTwips;
        std::array<float, 4> map = {Design.PrintLeft, Design.PrintTop, Design.PrintWidth, Design.PrintHeight};
        std::array<float, 4> report = {Design.ReportLeft, Design.ReportRight, Design.ReportTop,
                                       Design.ReportBottom};
        std::int16_t orientation = Design.PrinterOrientation;
    };

    void Form_Load();
    void AddOptions();
    void ShowMargins();
    void TakeMargins();
    void TakeUnit(std::int32_t twips);
    /// Between the margins, in the unit.
    double AvailableWidth() const;
    void OK_Click();
    void Cancel_Click() override;

    const Printer& printer;
    double reportWidth;
    std::array<Margin, 4> margins;
    Before before;
};

} // namespace quelmont
