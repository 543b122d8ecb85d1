#pragma once

/// How the controls of the dialogs that print are arranged.

namespace quelmont {

class FormView;

void LayOutPrintMap(FormView& view);
void LayOutReportMargins(FormView& view);

} // namespace quelmont
