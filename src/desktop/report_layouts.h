#pragma once

namespace quelmont {

class FormView;

/// How the controls of the dialogs of reports lie.
void LayOutReportBox(FormView& view);
void LayOutReportMargins(FormView& view);

} // namespace quelmont
