#include "desktop/desktop_printers.h"

#include "desktop/dialogs.h"
#include "desktop/keyboard_return.h"
#include "desktop/queue_printer.h"
#include "qtsurface/pdf_printer.h"

#include <QAbstractButton>
#include <QDialogButtonBox>
#include <QFileInfo>
#include <QPrintDialog>
#include <QPrinter>
#include <QPrinterInfo>
#include <QStringList>

#include <algorithm>

namespace quelmont {

namespace {

/// Whether a print service may answer: asking one that is not there loads all that printing needs, to no end.
bool MayHaveQueues() {
    if (!qEnvironmentVariableIsEmpty("CUPS_SERVER")) {
        return true;
    }
    const QString home = qEnvironmentVariable("HOME");
    const QStringList signs = {
        QStringLiteral("/run/cups/cups.sock"), QStringLiteral("/var/run/cups/cups.sock"),
        QStringLiteral("/etc/cups/client.conf"), home + QStringLiteral("/.cups/client.conf")};
    return std::any_of(signs.begin(), signs.end(),
                       [](const QString& sign) { return QFileInfo::exists(sign); });
}

QStringList Queues() { return MayHaveQueues() ? QPrinterInfo::availablePrinterNames() : QStringList(); }

} // namespace

DesktopPrinters::DesktopPrinters(QWidget& window_) : window(window_) {}
DesktopPrinters::~DesktopPrinters() = default;

bool DesktopPrinters::Any() const { return !Queues().isEmpty(); }

Printer* DesktopPrinters::Chosen() {
    const QStringList queues = Queues();
    if (queues.isEmpty()) {
        return nullptr;
    }
    if (chosen == nullptr || !queues.contains(chosen->Queue())) {
        const QString own = QPrinterInfo::defaultPrinterName();
        chosen = std::make_unique<QueuePrinter>(queues.contains(own) ? own : queues.front());
    }
    return chosen.get();
}

bool DesktopPrinters::SetUp(std::int16_t& orientation) {
    if (Chosen() == nullptr) {
        return false;
    }
    std::unique_ptr<QPrinter> printer = chosen->Copy();
    printer->setPageOrientation(orientation == Landscape ? QPageLayout::Landscape : QPageLayout::Portrait);
    QWidget* const below = WindowInUse(window);
    QPrintDialog dialog(printer.get(), below);
    dialog.setWindowTitle(QStringLiteral("Print Setup"));
    dialog.setOptions(QAbstractPrintDialog::PrintShowPageSize | QAbstractPrintDialog::PrintCollateCopies);
    // Nothing is printed yet.
    if (auto* const buttons = dialog.findChild<QDialogButtonBox*>()) {
        for (QAbstractButton* const button : buttons->buttons()) {
            if (buttons->buttonRole(button) == QDialogButtonBox::AcceptRole) {
                button->setText(QStringLiteral("OK"));
            }
        }
    }
    const KeyboardReturn keyboard(dialog, *below);
    dialog.setWindowModality(Qt::WindowModal);
    if (dialog.exec() != QDialog::Accepted) {
        return false;
    }
    orientation = printer->pageLayout().orientation() == QPageLayout::Landscape ? Landscape : Portrait;
    chosen = std::make_unique<QueuePrinter>(std::move(printer));
    return true;
}

std::unique_ptr<Printer> DesktopPrinters::Pdf(double paperWidth, double paperHeight,
                                              std::string_view fileName) {
    return MakePdfPrinter(paperWidth, paperHeight, fileName);
}

} // namespace quelmont
