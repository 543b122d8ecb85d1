#pragma once

#include "platform/printers.h"

#include <QPrinter>
#include <QString>

#include <memory>

namespace quelmont {

/// A print queue, set up in some way: with a paper, in colour, on both sides. It prints on all of the paper
/// that it can print on, at 1200 dots an inch or as many as keep the paper below 32 000.
class QueuePrinter final : public Printer {
public:
    /// The queue of that name as it is set up in the system.
    explicit QueuePrinter(const QString& queue);
    /// One that is set up already.
    explicit QueuePrinter(std::unique_ptr<QPrinter> printer);

    std::string Name() const override;
    PrinterLimits Limits(std::int16_t orientation) const override;
    /// There is one job of a queue at a time.
    std::unique_ptr<PrintJob> Open(std::int16_t orientation) override;

    QString Queue() const { return printer->printerName(); }
    /// The same queue, set up likewise, for a dialog to change.
    std::unique_ptr<QPrinter> Copy() const;

private:
    std::unique_ptr<QPrinter> printer;
};

} // namespace quelmont
