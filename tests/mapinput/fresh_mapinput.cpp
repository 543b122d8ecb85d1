#include "mapinput/map_input_state.h"
#include "support/fresh_program.h"

namespace quelmont {
namespace {

const FreshRoom Fresh(ResetMapInput);

} // namespace
} // namespace quelmont
