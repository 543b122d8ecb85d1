#include "dialogs/dialogs_state.h"

namespace quelmont {

DialogsState DialogsNow;

void ResetDialogs() { DialogsNow = DialogsState{}; }

} // namespace quelmont
