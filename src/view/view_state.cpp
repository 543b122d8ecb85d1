#include "view/view_state.h"

namespace quelmont {

ViewState ViewNow;

void ResetView() { ViewNow = ViewState{}; }

} // namespace quelmont
