#pragma once

namespace quelmont {

/// Makes numbers of the texts of the bounds: CalcUtmGrid on the UTM projection, CalcGraticule on the
/// others. Whoever accepts bounds calls this and not those two.
///
/// ProjOffMap is their mark of a refusal, and that of a point off the map everywhere else: what the
/// last draw left in it is taken off before, and what they set is taken off after.
/// Returns false when they refused; LastRefusal then tells an open dialog what to do.
bool CalculateBounds();

} // namespace quelmont
