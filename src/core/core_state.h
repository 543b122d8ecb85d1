#pragma once

namespace quelmont {

/// Puts back everything that the process keeps in this room to what it was at its start: the design,
/// the file numbers (open files are closed, file numbers open plain files again), the message boxes of
/// a draw.
void ResetCore();

} // namespace quelmont
