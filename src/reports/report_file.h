#pragma once

#include "reports/report.h"

#include <string>

namespace quelmont {

/// What a file of a report is written as.
enum class ReportFormat { RichText, PlainText, Unknown };
/// By the ending of its name, ".rtf" or ".txt" in any case of its letters.
ReportFormat ReportFormatOf(const std::string& name);

/// Writes a report, as rich text unless the name ends in ".txt" (plain text is UTF-8). The file is written
/// beside its target and takes its place when whole.
/// RunTimeError "Disk full", "Permission denied", "Path not found", "Path/File access error" for what is no
/// plain file or is a map file of the design...; an earlier file stays then.
void SaveReport(const Report& report, const std::string& name);

} // namespace quelmont
