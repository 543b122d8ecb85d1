#pragma once

#include <cstdint>

/// The text in hand on its way to its place on the map. It lies over the picture and follows the mouse; a
/// press of the left button, or a blank, drops it and lifts it again; the arrow keys move it by a step,
/// which the keys 1, 2 and 3 set to 1, 5 and 10 pixels. Whatever else is begun, a menu above all, ends that:
/// the text becomes an item of the design where it was dropped.

namespace quelmont {

/// Keys of Form_KeyDown.
enum PlacingKey : int {
    BlankKey = 32,
    LeftKey = 37,
    UpKey = 38,
    RightKey = 39,
    DownKey = 40,
    OneKey = 49,
    TwoKey = 50,
    ThreeKey = 51,
};

/// Begins to place the text in hand when TextPending tells that there is one: a new one in the middle of the
/// drawing area, following the mouse; one that is edited dropped in its own place, from where it is gone.
///
/// Reads   CurrentText, CurrentTextAngle, CurrentLook, TextPending, TextIsEdit, TextEditIndex, TextItems.
/// Writes  CurrentX, CurrentY; the window's caption and pointer.
void BeginPlacing();

/// Shows the text in hand over the map, its anchor at a place in twips.
///
/// Reads   CurrentText, CurrentTextAngle, CurrentLook. Writes  CurrentX, CurrentY.
/// A font without measures shows "GetTextMetrics error in Quelmont: TextPrint" or "GetTextExtentPoint32 error
/// in Quelmont: TextPrint", once for each text, and no text.
void TextPrint(std::int32_t x, std::int32_t y);

/// Ends the placing of a text, if one is being placed. Where it was dropped last it becomes an item of the
/// design, or takes the place of the one that was edited; one that was never dropped is given up. The
/// window's texts are drawn anew, and its caption and pointer are as before.
///
/// Writes  TextItems, TextPending, TextIsEdit, TextEditIndex, CurrentText.
/// A font without measures shows "GetTextMetrics error in TextDone", and the item has none; any other
/// failure shows "Error in TextDone", and the text is given up.
void TextDone();

/// The left button of the mouse was pressed on the drawing area, at a place in twips: it drops or lifts the
/// text that is being placed. Ignored while a draw runs.
void Form_MouseDown(double x, double y);

/// The mouse was moved over the drawing area, to a place in twips.
void Form_MouseMove(double x, double y);

/// A key was pressed on the main window. False when it means nothing now.
bool Form_KeyDown(int keyCode);

} // namespace quelmont
