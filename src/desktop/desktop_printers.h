#pragma once

#include "platform/printers.h"

#include <memory>

class QWidget;

namespace quelmont {

class QueuePrinter;

/// The print queues of the machine. They are looked for when somebody asks, which takes a moment, and only
/// where there may be any. Needs a QApplication.
class DesktopPrinters final : public Printers {
public:
    /// The window is below the dialog.
    explicit DesktopPrinters(QWidget& window_);
    ~DesktopPrinters() override;
    DesktopPrinters(const DesktopPrinters&) = delete;
    DesktopPrinters& operator=(const DesktopPrinters&) = delete;

    bool Any() const override;
    /// A queue that is gone since it was chosen gives way to the system's own, or the first.
    Printer* Chosen() override;
    bool SetUp(std::int16_t& orientation) override;
    std::unique_ptr<Printer> Pdf(double paperWidth, double paperHeight, std::string_view fileName) override;

private:
    QWidget& window;
    std::unique_ptr<QueuePrinter> chosen;
};

} // namespace quelmont
