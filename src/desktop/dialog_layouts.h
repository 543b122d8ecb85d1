#pragma once

/// How each dialog's controls are arranged, a function per dialog.

namespace quelmont {

class FormView;

// Boundaries of the map.
void LayOutBounds(FormView& view);
void LayOutStandardParallels(FormView& view);
void LayOutAzimuthalBounds(FormView& view);
void LayOutPerspectiveBounds(FormView& view);
void LayOutInterruptions(FormView& view);
void LayOutUtmSpheroid(FormView& view);
void LayOutUtmParameters(FormView& view);
void LayOutUtmBounds(FormView& view);

// What the map looks like.
void LayOutMapSize(FormView& view);
void LayOutGridType(FormView& view);
void LayOutColors(FormView& view);
void LayOutLineWidths(FormView& view);
void LayOutTextScale(FormView& view);

void LayOutAbout(FormView& view);

} // namespace quelmont
