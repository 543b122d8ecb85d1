#pragma once

#include "core/map_design.h"
#include "platform/draw_surface.h"

#include <string_view>

namespace quelmont {

/// The font in which the window writes by a look: not turned, its height that of its size in pixels of the
/// window. Its face name is the look's own and goes with it.
///
/// Reads   TwipsPerPixelY. RunTimeError "Overflow" for a size without a height.
SurfaceFont WindowFont(const TextLook& look);

/// The look of a text item.
TextLook LookOf(const TextItem& item);

/// The text in hand as a text item placed by hand, with the measures of its font on the window.
///
/// Reads   CurrentText, CurrentTextAngle, CurrentLook, CurrentX, CurrentY, TwipsPerPixelX, TwipsPerPixelY.
/// A font without measures shows "GetTextMetrics error in routine", and the item has none. RunTimeError
/// "Overflow" for a number that its field does not hold.
TextItem TextInHandAsItem(std::string_view routine);

/// Draws the text in hand on the surface in use, turned about its anchor on the baseline: on the window, on
/// the page of a printer, where it has its place on the map and keeps its share of it, or on a metafile. A
/// metafile's y grows upward, so angles are negated there, and lengths are taken as shares
/// of the window.
///
/// Reads   CurrentText, CurrentTextAngle, CurrentLook, CurrentX, CurrentY, Surface, TextToMetafile,
///         TwipsPerPixelX, TwipsPerPixelY, ClientWidth, ClientHeight, LogicalWidth, LogicalHeight; while
///         PrintingNow the margins and PrintWidth, and what GetPrinterParams took.
/// What the surface refuses shows its message box under "Windows API Error", any other failure "Error in
/// PrintRotatedText". On a metafile either costs the export.
void PrintRotatedText();

/// Takes an item in hand and draws it with PrintRotatedText.
/// Writes  CurrentText, CurrentTextAngle, CurrentLook, CurrentX, CurrentY.
void PrintItem(const TextItem& item);

/// Draws the design's text items in their order on the surface in use, but for the one that is being placed
/// anew. Leaves no text in hand, whatever fails.
///
/// Reads   TextItems, TextPending, TextIsEdit, TextEditIndex and what PrintRotatedText reads.
/// Writes  CurrentText, CurrentTextAngle, CurrentLook, CurrentX, CurrentY.
/// The failures of PrintRotatedText, after which the next item goes on; any other shows "Error in PrintText".
void PrintText();

} // namespace quelmont
