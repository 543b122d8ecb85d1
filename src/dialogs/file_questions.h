#pragma once

#include <string_view>

namespace quelmont {

/// Tells that a file dialog failed: "Error ", the number, and of which command (" in Save as BMP"). A dialog
/// that was cancelled is no failure.
void ShowFileDialogError(int error, std::string_view command);

} // namespace quelmont
