#pragma once

#include "platform/draw_surface.h"

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>

namespace quelmont {

/// How the paper lies; the numbers of Design.PrinterOrientation.
constexpr std::int16_t Portrait = 1;
constexpr std::int16_t Landscape = 2;

/// What a printer can do with the paper that is set, turned as asked. Device pixels.
struct PrinterLimits {
    std::int32_t pixelsPerInchX = 0, pixelsPerInchY = 0;
    std::int32_t printableWidth = 0, printableHeight = 0;
    std::int32_t paperWidth = 0, paperHeight = 0;
    std::int32_t stripLeft = 0, stripTop = 0; ///< of the paper, where nothing can be printed
};

/// One print job: what stands between opening a printer and closing it, which its destructor does. Each
/// step answers whether it was done.
class PrintJob {
public:
    virtual ~PrintJob() = default;
    /// The page, in device pixels from the upper left corner of the printable area.
    virtual DrawSurface& Surface() = 0;
    /// Lets nothing be printed outside a rectangle, right and bottom edge excluded.
    virtual bool SelectClip(std::int32_t left, std::int32_t top, std::int32_t right, std::int32_t bottom) = 0;
    virtual bool StartDoc(std::string_view documentName) = 0;
    virtual bool StartPage() = 0;
    /// A negative number is the code of a failure.
    virtual int EndPage() = 0;
    /// Hands the job over. Before this nothing is printed, and no file of a job stands in its place.
    virtual bool EndDoc() = 0;
    /// Gives the job up; nothing of it is printed, an earlier file of a job's name stays.
    virtual void Abort() = 0;
};

/// A printer, or a file that takes pages in its place.
class Printer {
public:
    virtual ~Printer() = default;
    virtual std::string Name() const = 0;
    /// orientation: Portrait or Landscape. The resolution is low enough for the paper to stay below 32 000
    /// pixels either way.
    virtual PrinterLimits Limits(std::int16_t orientation) const = 0;
    /// Opens a job; nullptr when the printer does not answer.
    virtual std::unique_ptr<PrintJob> Open(std::int16_t orientation) = 0;
};

/// The printers of the machine.
class Printers {
public:
    virtual ~Printers() = default;
    virtual bool Any() const = 0;
    /// The printer that was chosen last, at first the system's own; nullptr without one.
    virtual Printer* Chosen() = 0;
    /// Lets the user choose and set up a printer, starting from that orientation, which takes the one that
    /// was chosen. False after Cancel, which changes nothing.
    virtual bool SetUp(std::int16_t& orientation) = 0;
    /// Pages as a PDF file of that name, which may be empty as long as limits alone are asked. The paper's
    /// size is that of portrait, inches; there are no strips. nullptr where the machine makes no PDF.
    virtual std::unique_ptr<Printer> Pdf(double paperWidth, double paperHeight,
                                         std::string_view fileName) = 0;
};

} // namespace quelmont
