#pragma once

namespace quelmont {

/// What the items of the menus do, as far as no other header tells it. Each is called with the item's
/// index.

/// Before the File menu is seen: printing is enabled when there is a printer.
void EnablePrinting(int index);

/// Asks for the map's size and draws it on a cleared window, unless the projection refuses the bounds
/// that the design has, or that dialog is cancelled.
void AskSizeAndDraw(int index);

/// Draws the map at the size that it had last, without asking for it.
void DrawAgain(int index);

/// The dialogs of the design.
void ChooseMapFiles(int index);
void ChooseBoundaries(int index);
void ChooseGreatCircle(int index);
void ChooseSmallCircle(int index);
void ChooseBackground(int index);
void ChooseGrid(int index);
void ChooseFrame(int index);
void ChooseLabels(int index);
void ChooseGridLabels(int index);
void ChooseLineWidths(int index);

/// Asks for a text, deletes others at the person's wish, and begins to place it.
void AddText(int index);

/// Turns the mark of the pixel size item, and the size in the window's caption with it.
void TogglePixelSize(int index);

/// Takes the last change of the design back, and brings it again.
void UndoChange(int index);
void RedoChange(int index);

/// The reports. The one of a design that cannot be drawn opens the dialogs of its bounds; the one of a great
/// circle that is not defined shows a message box instead.
void ShowParameterReport(int index);
void ShowGreatCircleReport(int index);

/// The help at its contents, and at its search.
void ShowHelpContents(int index);
void ShowHelpSearch(int index);

/// The about box, and the message box that tells how long the last draw took.
void ShowAbout(int index);
void ShowPlotTime(int index);

} // namespace quelmont
