#pragma once

/// How the controls of the dialogs for what the map looks like are arranged, and those of the about box.

namespace quelmont {

class FormView;

void LayOutMapSize(FormView& view);
void LayOutFills(FormView& view);
void LayOutDistortion(FormView& view);
void LayOutGridType(FormView& view);
void LayOutGridLabels(FormView& view);
void LayOutMapFrame(FormView& view);
void LayOutLabelOption(FormView& view);
void LayOutColors(FormView& view);
void LayOutLineWidths(FormView& view);
void LayOutTextScale(FormView& view);
void LayOutAbout(FormView& view);

} // namespace quelmont
