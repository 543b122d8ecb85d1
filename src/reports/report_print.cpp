#include "reports/report_print.h"

#include "core/checked_math.h"
#include "core/color_table.h"
#include "core/map_design.h"
#include "core/rounding.h"
#include "core/run_time_error.h"
#include "platform/machine.h"

#include <algorithm>
#include <memory>
#include <string>

namespace quelmont {

namespace {

constexpr double TwipsPerInch = 1440.0;
constexpr double PointsPerInch = 72.0;
constexpr std::int32_t BoldWeight = 700, RegularWeight = 400;
/// Height of a line in a font without measures, as a multiple of the font's.
constexpr double UnmeasuredLine = 1.25;

/// Device pixels of the printer, from the corner of the printable area.
struct Box {
    std::int32_t left = 0, top = 0, right = 0, bottom = 0;
};

/// Where the text may stand on the page.
Box BetweenMargins(const PrinterLimits& limits) {
    const auto pixels = [](float length, std::int32_t perInch) {
        return RoundToInt32(static_cast<double>(length) * Design.PrintUnitTwips * perInch / TwipsPerInch);
    };
    const PrinterLimits& l = limits;
    return {.left = pixels(Design.ReportLeft, l.pixelsPerInchX) - l.stripLeft,
            .top = pixels(Design.ReportTop, l.pixelsPerInchY) - l.stripTop,
            .right = l.paperWidth - pixels(Design.ReportRight, l.pixelsPerInchX) - l.stripLeft,
            .bottom = l.paperHeight - pixels(Design.ReportBottom, l.pixelsPerInchY) - l.stripTop};
}

SurfaceFont PrinterFont(const TextLook& look, std::int32_t pixelsPerInch) {
    return {.height = -std::max(1, RoundToInt32(look.FontSize * pixelsPerInch / PointsPerInch)),
            .weight = look.FontBold ? BoldWeight : RegularWeight,
            .italic = look.FontItalic,
            .underline = look.FontUnderline,
            .strikeout = look.FontStrikeout,
            .faceName = look.FontName};
}

/// Why nothing is printed.
struct PrintFailure {
    const char* title;
    const char* text;
};

void Need(bool done, const char* failure) {
    if (!done) {
        throw PrintFailure{"Windows API Error", failure};
    }
}

/// The pages of one job.
class Pages {
public:
    Pages(PrintJob& job_, const PrinterLimits& limits_)
        : job(job_), limits(limits_), box(BetweenMargins(limits_)),
          font(PrinterFont(Design.Fonts[ReportFontSlot], limits_.pixelsPerInchY)) {
        const std::optional<FontMetrics> metrics = Machine().fonts->Metrics(font);
        lineHeight = std::max(1, metrics ? metrics->height : RoundToInt32(-font.height * UnmeasuredLine));
    }

    void Print(const std::vector<PageLine>& lines) {
        const auto onAPage = static_cast<std::size_t>(std::max(1, (box.bottom - box.top) / lineHeight));
        for (std::size_t first = 0; first < lines.size(); first += onAPage) {
            Need(job.StartPage(), Failure);
            const std::size_t end = std::min(lines.size(), first + onAPage);
            const bool drawn = DrawPage(lines, first, end);
            Need(job.EndPage() >= 0 && drawn, Failure);
        }
    }

    bool HasRoom() const { return box.left < box.right && box.top < box.bottom; }

    bool SelectClip() const { return job.SelectClip(box.left, box.top, box.right, box.bottom); }

    static constexpr const char* Failure = "Error in EM_FORMATRANGE";

private:
    bool DrawPage(const std::vector<PageLine>& lines, std::size_t first, std::size_t end) {
        DrawSurface& surface = job.Surface();
        const SurfaceHandle made = surface.CreateFontIndirectA(font);
        if (made == 0) {
            return false;
        }
        const SurfaceHandle before = surface.SelectObject(made);
        surface.SetTextAlign(AlignTop);
        surface.SetTextColor(ColorBits(Design.Fonts[ReportFontSlot].FontColour));
        bool drawn = true;
        std::int32_t y = box.top;
        for (std::size_t i = first; i < end && drawn; ++i, y += lineHeight) {
            drawn = DrawLine(surface, lines[i], y);
        }
        surface.SelectObject(before);
        return surface.DeleteObject(made) && drawn;
    }

    bool DrawLine(DrawSurface& surface, const PageLine& line, std::int32_t y) const {
        for (std::size_t i = 0; i < line.cells.size(); ++i) {
            const double twips = i == 0 ? 0.0 : line.stops[i - 1];
            const std::int32_t x = box.left + RoundToInt32(twips * limits.pixelsPerInchX / TwipsPerInch);
            if (!line.cells[i].empty() && !surface.TextOutA(x, y, line.cells[i])) {
                return false;
            }
        }
        return true;
    }

    PrintJob& job;
    const PrinterLimits& limits;
    Box box;
    SurfaceFont font;
    std::int32_t lineHeight = 1;
};

void PrintPages(const std::vector<PageLine>& lines, Printer& printer, std::unique_ptr<PrintJob>& job) {
    const PrinterLimits limits = printer.Limits(Design.PrinterOrientation);
    job = printer.Open(Design.PrinterOrientation);
    Need(job != nullptr, "Error in OpenPrinter");
    Pages pages(*job, limits);
    if (!pages.HasRoom()) {
        throw PrintFailure{"Error: Margins too large", "The margins leave no room on the paper."};
    }
    Need(pages.SelectClip(), "Error in SelectClipRgn");
    Need(job->StartDoc("Quelmont"), "Error in StartDoc");
    try {
        pages.Print(lines);
    } catch (...) {
        job->Abort();
        throw;
    }
    Need(job->EndDoc(), "Error in EndDoc");
}

void ShowFailure(const char* title, const std::string& text) {
    Machine().boxes->Ask(title, "Error printing \n\n" + text, BoxButtons::Ok, BoxIcon::Exclamation);
}

} // namespace

bool PrintReport(const std::vector<PageLine>& lines, Printer& printer) {
    std::unique_ptr<PrintJob> job; // closed before a message box comes
    try {
        PrintPages(lines, printer, job);
        return true;
    } catch (const PrintFailure& failure) {
        job.reset();
        ShowFailure(failure.title, failure.text);
    } catch (const RunTimeError& error) {
        job.reset();
        ShowFailure("Error in PrintReport", "Error: " + error.Description());
    }
    return false;
}

} // namespace quelmont
