#pragma once

#include "core/map_file_entry.h"

namespace quelmont {

/// Announces the font dialog and shows it for the labels of a map file: with their font, or with that of
/// texts where none was chosen yet. OK stores the choice in the entry. A dialog that is cancelled leaves the
/// entry's font, and gives an entry without one Arial of ten points in black.
///
/// Writes  the entry's label fields, the look of LabelFontSlot, DialogCancelled.
void ChooseLabelFont(InputFileEntry& entry);

} // namespace quelmont
