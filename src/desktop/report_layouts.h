#pragma once

namespace quelmont {

class FormView;

/// How the controls of the dialogs that show reports lie.
void LayOutReportBox(FormView& view);

} // namespace quelmont
