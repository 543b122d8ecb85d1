#pragma once

#include "dialogs/printing/page_dialog.h"
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
/// Writes  ReportLeft, ReportRight, ReportTop, ReportBottom, PrinterOrientation; PrintUnitTwips, and
///         the size and the margins of a map in it; DialogCancelled. Cancel gives all of them back.
class ReportMargins : public PageDialog {
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

    void Form_Load();
    void ShowMargins();
    void TakeMargins();
    void TakeUnit(std::int32_t twips) override;
    /// Between the margins, in the unit.
    double AvailableWidth() const;
    void OK_Click();

    const Printer& printer;
    double reportWidth;
    std::array<Margin, 4> margins;
};

} // namespace quelmont
