#pragma once

namespace quelmont {

// What was made is not lost when the program ends by accident: after each change the design is kept beside
// the settings, in a file that belongs to this process alone. The next start offers it back.

/// Writes the design to this process's file, whole or not at all. Where it cannot be written nothing happens.
void KeepDesign();

/// Removes that file: the design is saved elsewhere, or not wanted any more.
void ForgetKeptDesign();

/// Offers the designs that processes left which are dead by now, the newest first, until one is recalled or
/// none is left. "Discard" removes a design; a box that is closed leaves it for the next start.
void OfferKeptDesigns();

} // namespace quelmont
