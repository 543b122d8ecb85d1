#pragma once

#include "dialogs/design_dialog.h"

namespace quelmont {

/// What a number in the parameters of a map file measures.
enum class SymbolSizeKind { LineWidth, SymbolRadius, BorderWidth };

/// Asks for one size in pixels, 1 to 600.
///
/// Writes  DialogCancelled, which is true unless the number was accepted.
class SymbolSizeSpin : public DesignDialog {
public:
    /// Proposes a size; one outside the range is brought to its nearest end.
    SymbolSizeSpin(SymbolSizeKind kind, double pixels);

    int Pixels() const { return At("SymbolSize").value; }
};

} // namespace quelmont
