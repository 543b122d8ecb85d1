#pragma once

namespace quelmont {

/// Forgets the terms that a visibility test of ProjectSelect keeps for the call that resumes it.
/// For tests; a draw never resumes what it has not tested.
void ResetAzimuthalTerms();

} // namespace quelmont
