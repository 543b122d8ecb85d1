#pragma once

#include <string_view>

namespace quelmont {

/// Reports that a file dialog failed: "Error ", the number, and the command (" in Save as BMP"). A dialog
/// that was cancelled is no failure.
void ShowFileDialogError(int error, std::string_view command);

} // namespace quelmont
