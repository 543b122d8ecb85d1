#include "annotation/annotation_state.h"
#include "support/fresh_program.h"

namespace quelmont {
namespace {

const FreshRoom Fresh(ResetAnnotation);

} // namespace
} // namespace quelmont
