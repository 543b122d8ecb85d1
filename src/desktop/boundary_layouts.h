#pragma once

/// How the controls of the dialogs for the boundaries of the map are arranged.

namespace quelmont {

class FormView;

void LayOutBounds(FormView& view);
void LayOutStandardParallels(FormView& view);
void LayOutAzimuthalBounds(FormView& view);
void LayOutPerspectiveBounds(FormView& view);
void LayOutInterruptions(FormView& view);
void LayOutUtmSpheroid(FormView& view);
void LayOutUtmParameters(FormView& view);
void LayOutUtmBounds(FormView& view);

} // namespace quelmont
