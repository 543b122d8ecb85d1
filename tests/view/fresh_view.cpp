#include "support/fresh_program.h"
#include "view/view_state.h"

namespace quelmont {
namespace {

const FreshRoom Fresh(ResetView);

} // namespace
} // namespace quelmont
