#pragma once

namespace quelmont {

/// Draws the labels, if they are to be shown, and the text items of the design on the window anew, without a
/// draw of the map: what the last draw left there before them is put back first. To be called when texts were
/// added, changed or deleted, or labels erased. The text in hand stays what it was; the item that it
/// replaces is left out.
///
/// Reads   TextItems, MapLabels, LabelsVisible. Writes  Surface.
/// What fails shows the message boxes of DrawLabels and PrintText.
void ShowTexts();

} // namespace quelmont
