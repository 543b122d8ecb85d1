#pragma once

#include "platform/changes.h"

#include <string>
#include <string_view>

namespace quelmont {

/// The design as ComparableDesignText tells it; empty for one that no file can hold.
std::string DesignTextNow();

/// Tells Machine().changes that the design, or a choice that its picture depends on, has changed, if it is
/// not the one of which they were told last, or the one that NoteDesign saw. The name is that of a menu item;
/// the "&" of its mnemonic is left out.
void TellChange(std::string_view name, ChangeKind kind);

/// Tells Machine().changes that another design was recalled. NoteDesign has to follow.
void TellRecall();

/// The design as it is now is nothing to tell of: it is the program's default, saved, or recalled.
void NoteDesign();

} // namespace quelmont
