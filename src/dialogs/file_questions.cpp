#include "dialogs/file_questions.h"

#include "platform/machine.h"

#include <string>

namespace quelmont {

void ShowFileDialogError(int error, std::string_view command) {
    if (error != FileDialogCancelled) {
        Machine().boxes->Ask("File Common Dialog Error",
                             "Error " + std::to_string(error) + std::string(command), BoxButtons::Ok,
                             BoxIcon::Exclamation);
    }
}

} // namespace quelmont
