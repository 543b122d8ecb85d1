#pragma once

/// How the controls of the dialogs for texts on the map are arranged.

namespace quelmont {

class FormView;

void LayOutText(FormView& view);
void LayOutFonts(FormView& view);

} // namespace quelmont
