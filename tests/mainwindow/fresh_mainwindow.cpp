#include "mainwindow/main_window_state.h"
#include "support/fresh_program.h"

namespace quelmont {
namespace {

const FreshRoom Fresh(ResetMainWindow);

} // namespace
} // namespace quelmont
