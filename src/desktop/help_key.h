#pragma once

#include <string_view>

class QDialog;
class QWidget;

namespace quelmont {

/// The page of the help about what stands over a window: of a dialog that of the control or, without one, of
/// the control that has the focus; of the main window that of the command which runs. A number of
/// platform/help_pages.h.
int HelpContextOver(const QWidget& below, std::string_view control = {});

/// F1 in a box opens that page, and the box stays as it is.
void OpenHelpOnF1(QDialog& box, int context);

} // namespace quelmont
