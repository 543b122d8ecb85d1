#include "desktop/queue_printer.h"

#include "desktop/qt_text.h"
#include "output/print/papers.h"
#include "qtsurface/page_job.h"

#include <QPageLayout>
#include <QPageSize>
#include <QPrintEngine>

#include <algorithm>

namespace quelmont {

namespace {

class QueueJob final : public PageJob {
public:
    explicit QueueJob(QPrinter& printer_) : printer(printer_) {}
    ~QueueJob() override { GiveUp(); }
    QueueJob(const QueueJob&) = delete;
    QueueJob& operator=(const QueueJob&) = delete;

    bool StartDoc(std::string_view documentName) override {
        printer.setDocName(Text(documentName));
        return BeginPainting(printer);
    }
    bool EndDoc() override { return EndPainting() && printer.printerState() != QPrinter::Error; }
    void Abort() override { GiveUp(); }

private:
    /// Qt hands the job over when its painter ends, abort() or not; without a queue it drops it.
    void GiveUp() {
        if (!IsPainting()) {
            return;
        }
        const QString queue = printer.printerName();
        printer.printEngine()->setProperty(QPrintEngine::PPK_PrinterName, QString());
        EndPainting();
        printer.setPrinterName(queue);
    }

    QPrinter& printer;
};

/// All of the paper that can be printed on, as finely as the numbers of a page allow.
void TakeWholePaper(QPrinter& printer) {
    printer.setFullPage(false);
    QPageLayout layout = printer.pageLayout();
    layout.setMargins(layout.minimumMargins());
    printer.setPageLayout(layout);
    const QSizeF paper = layout.pageSize().size(QPageSize::Inch);
    if (!paper.isEmpty()) {
        printer.setResolution(PageResolution(paper.width(), paper.height()));
    }
}

void Turn(QPrinter& printer, std::int16_t orientation) {
    printer.setPageOrientation(orientation == Landscape ? QPageLayout::Landscape : QPageLayout::Portrait);
    TakeWholePaper(printer);
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
    const QPageLayout layout = printer->pageLayout();
    const int resolution = printer->resolution();
    const QRect paper = layout.fullRectPixels(resolution);
    const QRect printable = layout.paintRectPixels(resolution);
    PrinterLimits limits;
    limits.pixelsPerInchX = limits.pixelsPerInchY = resolution;
    limits.printableWidth = printable.width();
    limits.printableHeight = printable.height();
    limits.paperWidth = paper.width();
    limits.paperHeight = paper.height();
    limits.stripLeft = printable.left();
    limits.stripTop = printable.top();
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
