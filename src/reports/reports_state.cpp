#include "reports/reports_state.h"

namespace quelmont {

ReportsState ReportsNow;

void ResetReports() { ReportsNow = ReportsState{}; }

} // namespace quelmont
