#include "support/scripted_printer.h"

#include "core/rounding.h"

#include <cstddef>
#include <utility>

namespace quelmont {

namespace {

constexpr double MillimetresPerInch = 25.4;

template <typename T>
std::vector<T> From(const std::vector<T>& all, std::size_t first) {
    return {all.begin() + static_cast<std::ptrdiff_t>(first), all.end()};
}

/// Hands everything on to a printer that lives longer.
class StandIn : public Printer {
public:
    explicit StandIn(Printer& printer_) : printer(printer_) {}
    std::string Name() const override { return printer.Name(); }
    PrinterLimits Limits(std::int16_t orientation) const override { return printer.Limits(orientation); }
    std::unique_ptr<PrintJob> Open(std::int16_t orientation) override { return printer.Open(orientation); }

private:
    Printer& printer;
};

} // namespace

class ScriptedPrinter::Job : public PrintJob {
public:
    explicit Job(ScriptedPrinter& printer_) : printer(printer_) { ++printer.openJobs; }
    ~Job() override {
        printer.log.emplace_back("Close");
        --printer.openJobs;
    }
    Job(const Job&) = delete;
    Job& operator=(const Job&) = delete;

    DrawSurface& Surface() override { return printer.surface; }

    bool SelectClip(std::int32_t left, std::int32_t top, std::int32_t right, std::int32_t bottom) override {
        std::string words = "SelectClip";
        for (const std::int32_t number : {left, top, right, bottom}) {
            words += " " + std::to_string(number);
        }
        return printer.Done(JobStep::SelectClip, words);
    }
    bool StartDoc(std::string_view documentName) override {
        return printer.Done(JobStep::StartDoc, "StartDoc " + std::string(documentName));
    }
    bool StartPage() override {
        firstCall = printer.surface.Calls().size();
        firstText = printer.surface.Texts().size();
        return printer.Done(JobStep::StartPage, "StartPage");
    }
    int EndPage() override {
        printer.pages.push_back(
            {From(printer.surface.Calls(), firstCall), From(printer.surface.Texts(), firstText)});
        return printer.Done(JobStep::EndPage, "EndPage") ? 1 : printer.failureCode;
    }
    bool EndDoc() override { return printer.Done(JobStep::EndDoc, "EndDoc"); }
    void Abort() override { printer.log.emplace_back("Abort"); }

private:
    ScriptedPrinter& printer;
    std::size_t firstCall = 0, firstText = 0; ///< of the page
};

bool ScriptedPrinter::Done(JobStep step, const std::string& words) {
    if (onStep) {
        onStep(step);
    }
    bool fails = false;
    const auto [first, last] = failures.equal_range(step);
    for (auto failure = first; failure != last; ++failure) {
        fails = --failure->second == 0 || fails;
    }
    log.push_back(words + (fails ? " failed" : ""));
    return !fails;
}

PrinterLimits ScriptedPrinter::Limits(std::int16_t orientation) const {
    const bool turned = orientation == Landscape;
    PrinterLimits limits;
    limits.pixelsPerInchX = limits.pixelsPerInchY = dotsPerInch;
    limits.paperWidth = RoundToInt32((turned ? sheet.height : sheet.width) * dotsPerInch);
    limits.paperHeight = RoundToInt32((turned ? sheet.width : sheet.height) * dotsPerInch);
    limits.stripLeft = limits.stripTop = RoundToInt32(stripMillimetres / MillimetresPerInch * dotsPerInch);
    limits.printableWidth = limits.paperWidth - 2 * limits.stripLeft;
    limits.printableHeight = limits.paperHeight - 2 * limits.stripTop;
    return limits;
}

std::unique_ptr<PrintJob> ScriptedPrinter::Open(std::int16_t orientation) {
    log.push_back(std::string("Open ") + (orientation == Landscape ? "landscape" : "portrait") +
                  (opens ? "" : " failed"));
    if (!opens) {
        return nullptr;
    }
    return std::make_unique<Job>(*this);
}

bool ScriptedPrinters::SetUp(std::int16_t& orientation) {
    setUpOrientations.push_back(orientation);
    return onSetUp && onSetUp(orientation);
}

std::unique_ptr<Printer> ScriptedPrinters::Pdf(double paperWidth, double paperHeight,
                                               std::string_view fileName) {
    pdfRequests.push_back({paperWidth, paperHeight, std::string(fileName)});
    if (!makesPdf) {
        return nullptr;
    }
    pdf.sheet = {paperWidth, paperHeight};
    return std::make_unique<StandIn>(pdf);
}

} // namespace quelmont
