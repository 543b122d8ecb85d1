#pragma once

#include "platform/printers.h"
#include "support/recording_surface.h"

#include <cstdint>
#include <functional>
#include <map>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

/// Printers that print nothing and remember everything.

namespace quelmont {

/// A sheet as it lies in portrait, inches.
struct PaperSheet {
    double width = 0.0, height = 0.0;
    bool operator==(const PaperSheet&) const = default;
};
constexpr PaperSheet SheetA4{210.0 / 25.4, 297.0 / 25.4};
constexpr PaperSheet SheetLetter{8.5, 11.0};

/// The steps of a print job that can fail.
enum class JobStep { SelectClip, StartDoc, StartPage, EndPage, EndDoc };

/// What was drawn between StartPage and EndPage of one page.
struct PrintedPage {
    std::vector<SurfaceCall> calls;
    std::vector<RecordedText> texts;
};

/// A printer with equal strips on all four sides of its paper, and the jobs that it got.
class ScriptedPrinter : public Printer {
public:
    std::string Name() const override { return name; }
    /// Paper and strips in whole pixels; what is left between the strips can be printed on.
    PrinterLimits Limits(std::int16_t orientation) const override;
    /// Jobs draw on surface, one after the other.
    std::unique_ptr<PrintJob> Open(std::int16_t orientation) override;
    /// The n-th call (from 1, counted from now) of a step fails; EndPage then answers failureCode.
    void FailAt(JobStep step, int nth = 1) { failures.emplace(step, nth); }

    std::string name = "Scripted printer";
    PaperSheet sheet = SheetA4;
    std::int32_t dotsPerInch = 300;
    double stripMillimetres = 0.0;
    bool opens = true; ///< else it does not answer
    int failureCode = -1;
    std::function<void(JobStep)> onStep; ///< runs within each step, before it is done

    /// "Open portrait", "SelectClip 0 0 2480 1785", "StartDoc Quelmont", "StartPage", "EndPage", "EndDoc",
    /// "Abort", "Close", each followed by " failed" when it did. Close is what a job's destructor does.
    std::vector<std::string> log;
    RecordingSurface surface;
    std::vector<PrintedPage> pages; ///< that were ended, whether or not that failed
    int openJobs = 0;

private:
    class Job;
    bool Done(JobStep step, const std::string& words);

    std::multimap<JobStep, int> failures; ///< calls to go
};

/// Machine().printers of a test.
class ScriptedPrinters : public Printers {
public:
    /// What was asked for when pages were to become a file.
    struct PdfRequest {
        double paperWidth = 0.0, paperHeight = 0.0; ///< inches
        std::string fileName;
        bool operator==(const PdfRequest&) const = default;
    };

    bool Any() const override { return any; }
    Printer* Chosen() override { return any ? &printer : nullptr; }
    /// Without onSetUp a person cancels.
    bool SetUp(std::int16_t& orientation) override;
    /// Stands for pdf with that paper, which keeps the log.
    std::unique_ptr<Printer> Pdf(double paperWidth, double paperHeight, std::string_view fileName) override;

    bool any = false;
    ScriptedPrinter printer;                     ///< the one printer, if any
    bool makesPdf = true;                        ///< else Pdf answers nullptr
    ScriptedPrinter pdf;                         ///< of the file that was asked for last
    std::vector<PdfRequest> pdfRequests;         ///< in order
    std::function<bool(std::int16_t&)> onSetUp;  ///< what a person does; may change the printer
    std::vector<std::int16_t> setUpOrientations; ///< with which SetUp was called
};

} // namespace quelmont
