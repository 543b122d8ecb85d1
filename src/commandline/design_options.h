#pragma once

#include "commandline/draw_options.h"

namespace quelmont {

/// Puts the options into the design as the dialogs would: what was not given is what the dialog
/// proposes, or what a recalled design has; each text passes the check of its field, and the whole the checks
/// of its acceptance.
///
/// StartUp must have run, and the recall of a design that the options name. Writes  what the dialogs of
/// boundaries, standard parallels, lobes, UTM, grid, background and map files write, and the constants of the
/// projection. False when a check refused the design; its message box was shown.
bool ApplyOptions(const DrawOptions& options);

/// The same of the circles, to be called before that: what the dialogs of great and small circles write, and
/// their tables.
bool ApplyCircles(const DrawOptions& options);

} // namespace quelmont
