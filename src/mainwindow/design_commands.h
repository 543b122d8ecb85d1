#pragma once

#include <string>

namespace quelmont {

/// Saves the design under its name, CnfFileName, and remembers it as saved. False after a failure, whose
/// message box was shown.
bool SaveDesign();

/// The File menu's "Recall Map Design": asks what to do with unsaved changes, then recalls the file that a
/// file dialog gives. A name that does not end in ".CNF" is refused, and the dialog comes again.
void RecallDesign(int index);

/// An item of the menu of recent designs.
void RecallRecentDesign(int index);

/// Recalls a file by its name, as the argument of the program and a file dropped on the window do: asks about
/// unsaved changes and refuses a name with another ending. Returns true when the design is that of the
/// file.
bool OpenDesign(const std::string& name);

/// Recalls a design that a process kept until it died. It has the name that it had, and counts as changed.
/// Returns false after a failure, whose message box was shown.
bool RecallKeptDesign(const std::string& file);

/// Asks "Save", "Discard" or "Cancel" about a design that came from a file, or went to one, and has changed
/// since. False when it is to stay: after Cancel, and when it could not be saved.
bool MayLeaveDesign();

/// Shows the recent designs in their menu.
void ShowRecentDesigns();

} // namespace quelmont
