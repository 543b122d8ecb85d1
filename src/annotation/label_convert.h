#pragma once

#include <cstddef>

namespace quelmont {

/// Adds the labels of MapLabels from one on to the text items, at their places and with a mark.
///
/// Writes  TextItems.
/// A run-time failure shows "Error in LabelConvert" and leaves the text items as they were.
void ConvertLabels(std::size_t first);

/// The same for all labels, in the place of the ones that were converted before. Afterwards the map is
/// fitted to the window anew.
/// Writes  TextItems, and as ScaleScreen.
void LabelConvert();

/// Takes the text items that were made of labels off the list. Items of a design file, which does not tell
/// where they come from, count as such when they are not turned and agree with a label of MapLabels in text,
/// font, size and colour.
/// Writes  TextItems.
void EraseConvertedLabels();

/// From the beginning of a draw on the labels that it converts are added for its devices alone.
void RememberTextItems();

/// Takes off what was added since then; without a draw, nothing.
void GiveBackTextItems();

} // namespace quelmont
