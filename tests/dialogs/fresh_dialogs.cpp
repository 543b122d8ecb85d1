#include "dialogs/dialogs_state.h"
#include "support/fresh_program.h"

namespace quelmont {
namespace {

const FreshRoom Fresh(ResetDialogs);

} // namespace
} // namespace quelmont
