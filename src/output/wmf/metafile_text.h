#pragma once

#include "output/wmf/metafile_recorder.h"

namespace quelmont {

/// Records the design's text items in their order, in their fonts, each about its anchor on the baseline.
/// A metafile's y grows upward here, so angles are negated.
///
/// Reads   TextItems, ClientWidth, ClientHeight, LogicalWidth, LogicalHeight.
/// What a surface refuses shows its message box under "Windows API Error", any other failure "Error in
/// PrintRotatedText"; the next item goes on.
void PrintText(MetafileRecorder& surface);

} // namespace quelmont
