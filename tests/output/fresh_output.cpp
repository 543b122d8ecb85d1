#include "output/output_state.h"
#include "support/fresh_program.h"

namespace quelmont {
namespace {

const FreshRoom Fresh(ResetOutput);

} // namespace
} // namespace quelmont
