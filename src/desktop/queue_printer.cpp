#include "desktop/queue_printer.h"

#include "desktop/qt_text.h"
#include "output/print/papers.h"
#include "qtsurface/page_job.h"

#include <QPageLayout>
#include <QPageSize>
#include <QPrintEngine>
#include <QVariant>

#include <algorithm>

namespace quelmont {

namespace {

/// What a job tells the print service beside its paper, in pairs of name and value: a property of Qt's
/// printers that no header names.
constexpr auto JobOptions = static_cast<QPrintEngine::PrintEnginePropertyKey>(0xFE00);

/// The paper of a printer in dots.
struct PaperDots {
    QSize paper;
    QRect printable;
};

/// What a queue cannot print on is known for paper that stands upright. Paper that lies may have been turned
/// either way.
PaperDots DotsOf(const QPrinter& printer) {
    const QPageLayout layout = printer.pageLayout();
    const int resolution = printer.resolution();
    QPageLayout upright = layout;
    upright.setOrientation(QPageLayout::Portrait);
    upright.setMode(QPageLayout::StandardMode);
    upright.setMargins(upright.minimumMargins());
    const QMargins strips = upright.marginsPixels(resolution);
    const int besides = std::max(strips.top(), strips.bottom());
    const int above = std::max(strips.left(), strips.right());
    const bool lies = layout.orientation() == QPageLayout::Landscape;
    const QRect paper = layout.fullRectPixels(resolution);
    return {paper.size(), paper.marginsRemoved(lies ? QMargins(besides, above, besides, above) : strips)};
}

class QueueJob final : public PageJob {
public:
    explicit QueueJob(QPrinter& printer_) : printer(printer_) {}
    ~QueueJob() override { GiveUp(); }
    QueueJob(const QueueJob&) = delete;
    QueueJob& operator=(const QueueJob&) = delete;

    bool StartDoc(std::string_view documentName) override {
        printer.setDocName(Text(documentName));
        return BeginPainting(printer, DotsOf(printer).printable.topLeft());
    }
    bool EndDoc() override { return EndPainting() && printer.printerState() != QPrinter::Error; }
    void Abort() override { GiveUp(); }

private:
    /// Qt hands a job over when its painter ends, even after QPrinter::abort(). The print service refuses
    /// pages that end before they begin, and one that took them would hold the job.
    void GiveUp() {
        if (!IsPainting()) {
            return;
        }
        QPrintEngine& engine = *printer.printEngine();
        const QVariant options = engine.property(JobOptions);
        engine.setProperty(JobOptions,
                           QStringList{QStringLiteral("page-ranges"), QStringLiteral("2-1"),
                                       QStringLiteral("job-hold-until"), QStringLiteral("indefinite")});
        EndPainting();
        engine.setProperty(JobOptions, options);
    }

    QPrinter& printer;
};

/// Turns the paper, and takes as many dots as the numbers of a page allow. The page is the whole paper, as Qt
/// does not turn the strips at its edges.
void Turn(QPrinter& printer, std::int16_t orientation) {
    printer.setPageOrientation(orientation == Landscape ? QPageLayout::Landscape : QPageLayout::Portrait);
    printer.setFullPage(true);
    const QSizeF paper = printer.pageLayout().pageSize().size(QPageSize::Inch);
    if (!paper.isEmpty()) {
        printer.setResolution(PageResolution(paper.width(), paper.height()));
    }
}

} // namespace

QueuePrinter::QueuePrinter(const QString& queue)
    : printer(std::make_unique<QPrinter>(QPrinter::HighResolution)) {
    printer->setPrinterName(queue);
}

QueuePrinter::QueuePrinter(std::unique_ptr<QPrinter> printer_) : printer(std::move(printer_)) {}

std::string QueuePrinter::Name() const { return printer->printerName().toStdString(); }

PrinterLimits QueuePrinter::Limits(std::int16_t orientation) const {
    Turn(*printer, orientation);
    const PaperDots dots = DotsOf(*printer);
    PrinterLimits limits;
    limits.pixelsPerInchX = limits.pixelsPerInchY = printer->resolution();
    limits.printableWidth = dots.printable.width();
    limits.printableHeight = dots.printable.height();
    limits.paperWidth = dots.paper.width();
    limits.paperHeight = dots.paper.height();
    limits.stripLeft = dots.printable.left();
    limits.stripTop = dots.printable.top();
    return limits;
}

std::unique_ptr<PrintJob> QueuePrinter::Open(std::int16_t orientation) {
    if (!printer->isValid() || printer->printerState() == QPrinter::Active) {
        return nullptr;
    }
    Turn(*printer, orientation);
    return std::make_unique<QueueJob>(*printer);
}

std::unique_ptr<QPrinter> QueuePrinter::Copy() const {
    auto copy = std::make_unique<QPrinter>(QPrinter::HighResolution);
    copy->setPrinterName(printer->printerName());
    copy->setPageLayout(printer->pageLayout());
    copy->setColorMode(printer->colorMode());
    copy->setDuplex(printer->duplex());
    copy->setPaperSource(printer->paperSource());
    copy->setCopyCount(printer->copyCount());
    return copy;
}

} // namespace quelmont
