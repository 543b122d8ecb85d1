#include "reports/reports_state.h"
#include "support/fresh_program.h"

namespace quelmont {
namespace {

const FreshRoom Fresh(ResetReports);

} // namespace
} // namespace quelmont
