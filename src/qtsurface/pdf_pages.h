#pragma once

#include <span>
#include <string>

namespace quelmont {

/// Completes a PDF file as Qt writes it, in place.
///
/// streams tells for each page how many pages of the file hold it, which all begin at the same corner: they
/// become one page, on which their contents lie over each other in their order. The time of writing and what
/// tells two copies apart are blanked out, so that the same pages are the same bytes.
/// RunTimeError "Disk full", "Device I/O error", also for a file that is not made as Qt makes them.
void TidyPdf(const std::string& name, std::span<const int> streams);

} // namespace quelmont
