#pragma once

#include <cstddef>
#include <optional>

namespace quelmont {

/// What texts and labels keep between calls.
struct AnnotationState {
    /// The text items of the design, as long as a draw may add labels to them.
    std::optional<std::size_t> TextItemsBeforeDraw;
};

/// The state.
extern AnnotationState AnnotationNow;

/// Makes the state that of a program's start.
void ResetAnnotation();

} // namespace quelmont
