#include "annotation/annotation_state.h"

namespace quelmont {

AnnotationState AnnotationNow;

void ResetAnnotation() { AnnotationNow = AnnotationState{}; }

} // namespace quelmont
