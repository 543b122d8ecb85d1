#pragma once

#include <cstdint>

namespace quelmont {

/// A click on an item of the projection menu: the projection is in force at once, with its caption,
/// and the dialogs of its boundaries open. Cancelling them leaves the projection with the boundaries
/// that the design had. Index 5 is the parent of the Mollweide sub-menu and does nothing. Index 21 helps to
/// choose, and is never marked.
void mnuProj_Click(int Index);

/// The same for the sub-menu: 0 the Mollweide projection, 1 its interrupted form.
void mnuProjMollweide_Click(int Index);

/// Sets the check mark of a projection in both menus, and clears all others there.
void MarkProjection(std::int16_t ProjNum);

/// What these items do, but for the marks of the menus.
void ChooseProjection(int index);
void ChooseMollweide(int index);

/// Opens what helps to choose a projection (MainWindowState::HelpInChoosing), which may choose one.
void ChooseWithHelp(int index);

} // namespace quelmont
