#pragma once

/// What files of versions below 3.00 have otherwise. All work on Design.

namespace quelmont {

/// Names that versions below 2.00 have in capitals or in another form: the projection, the picture file,
/// fonts.
void RenameOldest();

/// Map files of the minute grid had six features. The sixth becomes the ninth of the present ten and stays
/// what it was; the eighth and the tenth are shown as they are proposed.
void RemakeMinuteGridStyles();

/// Versions up to 2.03 do not tell the height of a text's cell.
void DeriveCellHeights();

} // namespace quelmont
