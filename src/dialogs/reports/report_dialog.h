#pragma once

#include "dialogs/design_dialog.h"
#include "reports/report.h"

#include <string>

namespace quelmont {

/// A report to be read, in the font of the reports. It is made once, as the dialog opens; its menu prints it,
/// chooses the font and saves it as rich text or plain text.
///
/// Writes  the report slot of Fonts and FontSlot, by the font dialog; what ReportMargins writes;
///         ReportFileName of DialogsNow. DialogCancelled is false at the end.
class ReportDialog : public DesignDialog {
protected:
    ReportDialog(const char* className, const char* caption, Report (*make)());

private:
    void Form_Load();
    void ShowReport();
    void mnuOptions_Click();
    void Print();
    void SelectFont();
    void Save() const;

    Report report;
};

/// "Map Parameter Report": the whole map design (reports/parameter_report.h).
class ReportParam : public ReportDialog {
public:
    ReportParam();
};

/// "Great Circle Report": the points of the great circle (reports/great_circle_report.h).
class GcReport : public ReportDialog {
public:
    GcReport();
};

} // namespace quelmont
