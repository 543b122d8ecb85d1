#pragma once

#include "commandline/text_options.h"

#include <string>
#include <vector>

namespace quelmont {

/// Files for the reports; empty: none.
struct ReportOptions {
    std::string parameters;
    std::string greatCircle;
};

/// Adds --report and --great-circle-report. A name ends in .txt or .rtf.
void AddReportOptions(const AddOption& add, ReportOptions& reports);

/// The files that the reports are written to.
std::vector<std::string> FilesOf(const ReportOptions& reports);

/// Why a report that was asked for cannot be made of the design, or nothing.
std::string FaultOf(const ReportOptions& reports);

/// Writes the reports. Returns which one failed, and why, or nothing.
///
/// Reads   the design, whose options were taken. Writes  what ParameterReport does.
std::string WriteReports(const ReportOptions& reports);

} // namespace quelmont
