#include "commandline/report_options.h"

#include "commandline/option_values.h"
#include "core/map_design.h"
#include "core/run_time_error.h"
#include "reports/great_circle_report.h"
#include "reports/parameter_report.h"
#include "reports/report_file.h"

#include <CLI/CLI.hpp>

namespace quelmont {

namespace {

std::string ReportName(const std::string& value) {
    if (ReportFormatOf(value) == ReportFormat::Unknown) {
        throw BadValue("\"" + value + "\" ends neither in .txt nor in .rtf");
    }
    return value;
}

std::string Write(const std::string& name, Report (*make)()) {
    try {
        if (!name.empty()) {
            SaveReport(make(), name);
        }
    } catch (const RunTimeError& error) {
        return name + ": " + error.Description();
    }
    return "";
}

} // namespace

void AddReportOptions(const AddOption& add, ReportOptions& reports) {
    add("--report", "FILE", "Report on the map and its scale errors (.txt, .rtf)",
        [&reports](const std::string& value) { reports.parameters = ReportName(value); });
    add("--great-circle-report", "FILE", "Report on the points of the great circle (.txt, .rtf)",
        [&reports](const std::string& value) { reports.greatCircle = ReportName(value); });
}

std::vector<std::string> FilesOf(const ReportOptions& reports) {
    std::vector<std::string> names = {reports.parameters, reports.greatCircle};
    std::erase(names, "");
    return names;
}

std::string FaultOf(const ReportOptions& reports) {
    return reports.greatCircle.empty() || Design.GcDefined
               ? ""
               : "--great-circle-report: there is no great circle; --great-circle gives its ends";
}

std::string WriteReports(const ReportOptions& reports) {
    const std::string fault = Write(reports.parameters, ParameterReport);
    return fault.empty() ? Write(reports.greatCircle, GreatCircleReport) : fault;
}

} // namespace quelmont
