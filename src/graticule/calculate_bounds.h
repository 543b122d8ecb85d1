#pragma once

namespace quelmont {

/// Makes numbers of the texts of the bounds: CalcUtmGrid on the UTM projection, CalcGraticule on the
/// others. Whoever accepts bounds calls this and not those two.
///
/// ProjOffMap marks a refusal here and a point off the map everywhere else: it is cleared before, so that
/// nothing is left from the last draw, and after.
/// Returns false when they refused; LastRefusal then tells an open dialog what to do.
bool CalculateBounds();

} // namespace quelmont
