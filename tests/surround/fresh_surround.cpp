#include "support/fresh_program.h"
#include "surround/surround_state.h"

namespace quelmont {
namespace {
const FreshRoom surround(ResetSurround);
} // namespace
} // namespace quelmont
