#pragma once

/// How the controls of the dialogs for great and small circles are arranged.

namespace quelmont {

class FormView;

void LayOutGreatCircle(FormView& view);
void LayOutSmallCircle(FormView& view);

} // namespace quelmont
