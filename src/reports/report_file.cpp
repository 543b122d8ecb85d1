#include "reports/report_file.h"

#include "core/file_names.h"
#include "core/run_time_error.h"
#include "output/export_file.h"
#include "reports/report_page.h"
#include "reports/report_rtf.h"

namespace quelmont {

ReportFormat ReportFormatOf(const std::string& name) {
    const std::string capitals = Capitals(name);
    return capitals.ends_with(".RTF")   ? ReportFormat::RichText
           : capitals.ends_with(".TXT") ? ReportFormat::PlainText
                                        : ReportFormat::Unknown;
}

void SaveReport(const Report& report, const std::string& name) {
    const std::string text =
        ReportFormatOf(name) == ReportFormat::PlainText ? PlainText(report) : RichText(report);
    try {
        BeginExport(name);
        WriteExport(text);
        CloseExport();
        FinishExports();
    } catch (const RunTimeError&) {
        DropExports();
        throw;
    }
}

} // namespace quelmont
