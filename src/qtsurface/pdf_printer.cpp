#include "qtsurface/pdf_printer.h"

#include "core/replaced_file.h"
#include "core/run_time_error.h"
#include "output/print/papers.h"
#include "qtsurface/gui_application.h"
#include "qtsurface/page_job.h"
#include "qtsurface/pdf_pages.h"

#include <QFile>
#include <QHashSeed>
#include <QMarginsF>
#include <QPageLayout>
#include <QPageSize>
#include <QPdfWriter>
#include <QString>

#include <fcntl.h>

#include <cmath>
#include <optional>
#include <string>
#include <vector>

namespace quelmont {

namespace {

constexpr const char* PrinterName = "PDF";
constexpr const char* ProgramName = "Quelmont";
constexpr mode_t NewFileMode = 0666; ///< as far as the umask lets

/// Vertices in one stream of a page's content. Qt keeps a stream until it is written.
constexpr std::size_t VerticesOfStream = 250'000;

QString QtText(std::string_view utf8) {
    return QString::fromUtf8(utf8.data(), static_cast<qsizetype>(utf8.size()));
}

/// A file that remembers that something was not written, which its writer does not look at, and takes no more
/// then.
class CheckedFile final : public QFile {
public:
    using QFile::QFile;
    void GiveUp() { failed = true; }
    bool HasFailed() const { return failed || error() != NoError; }
    /// Whether all was written.
    bool Finish() {
        failed = !flush() || failed;
        const bool whole = !HasFailed();
        close();
        return whole && !HasFailed();
    }

protected:
    qint64 writeData(const char* data, qint64 size) override {
        failed = failed || QFile::writeData(data, size) != size;
        return size;
    }

private:
    bool failed = false;
};

/// As long as one exists, a new table of Qt's has the same order in every run: fonts stand in a file in the
/// order of such a table.
class SameOrder {
public:
    SameOrder() { QHashSeed::setDeterministicGlobalSeed(); }
    ~SameOrder() { QHashSeed::resetRandomGlobalSeed(); }
    SameOrder(const SameOrder&) = delete;
    SameOrder& operator=(const SameOrder&) = delete;
};

class PdfJob final : public PageJob {
public:
    PdfJob(const QPageLayout& layout_, int resolution_, std::string fileName_)
        : PageJob(VerticesOfStream, [this] { NextStream(); }), layout(layout_), resolution(resolution_),
          fileName(std::move(fileName_)) {}
    ~PdfJob() override { GiveUp(); }
    PdfJob(const PdfJob&) = delete;
    PdfJob& operator=(const PdfJob&) = delete;

    bool StartDoc(std::string_view documentName) override;
    bool EndDoc() override;
    void Abort() override { GiveUp(); }

private:
    bool IsSound() override { return file && !file->HasFailed(); }
    void PageAdded() override { streams.push_back(1); }
    void NextStream();
    void GiveUp();

    QPageLayout layout;
    int resolution;
    std::string fileName;
    std::string target;
    const SameOrder sameOrder;
    std::optional<TemporaryFile> temporary;
    std::optional<CheckedFile> file;
    std::optional<QPdfWriter> writer;
    std::vector<int> streams; ///< of each page
};

bool PdfJob::StartDoc(std::string_view documentName) {
    if (fileName.empty() || writer) {
        return false;
    }
    try {
        target = ReplacedFileName(fileName);
    } catch (const RunTimeError&) {
        return false;
    }
    temporary.emplace(target);
    // By its handle: Qt has no name for a file whose name is no UTF-8.
    const int handle =
        ::open(temporary->Name().c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, NewFileMode);
    file.emplace();
    if (handle < 0 || !file->open(handle, QIODevice::WriteOnly, QFileDevice::AutoCloseHandle)) {
        return false;
    }
    writer.emplace(&*file);
    writer->setResolution(resolution);
    writer->setPageLayout(layout);
    writer->setTitle(QtText(documentName));
    writer->setCreator(QString::fromLatin1(ProgramName));
    streams = {1};
    return BeginPainting(*writer) && IsSound();
}

/// What a page holds so far is written; the file knows it as a page of its own until it is whole.
void PdfJob::NextStream() {
    if (writer->newPage()) {
        ++streams.back();
    }
}

bool PdfJob::EndDoc() {
    const bool painted = EndPainting();
    writer.reset();
    if (!file || !file->Finish() || !painted) {
        GiveUp();
        return false;
    }
    file.reset();
    try {
        TidyPdf(temporary->Name(), streams);
        temporary->MoveTo(target);
    } catch (const RunTimeError&) {
        GiveUp();
        return false;
    }
    temporary.reset();
    return true;
}

void PdfJob::GiveUp() {
    if (file) {
        file->GiveUp();
    }
    EndPainting();
    writer.reset();
    file.reset();
    temporary.reset();
}

class PdfPrinter final : public Printer {
public:
    PdfPrinter(double width_, double height_, std::string_view fileName_)
        : width(width_), height(height_),
          paper(QSizeF(width, height), QPageSize::Inch, QString(), QPageSize::ExactMatch),
          resolution(PageResolution(width, height)), fileName(fileName_) {}

    std::string Name() const override { return PrinterName; }
    PrinterLimits Limits(std::int16_t orientation) const override;
    std::unique_ptr<PrintJob> Open(std::int16_t orientation) override {
        return std::make_unique<PdfJob>(Layout(orientation), resolution, fileName);
    }

private:
    QPageLayout Layout(std::int16_t orientation) const {
        return {paper, orientation == Landscape ? QPageLayout::Landscape : QPageLayout::Portrait,
                QMarginsF()};
    }

    /// In pixels, of which the last may reach over the paper's edge: a map as wide as the paper stands on it.
    /// Qt's pages are of whole points, up to half a point off.
    std::int32_t Pixels(double length) const {
        constexpr double rounding = 1e-6;
        return static_cast<std::int32_t>(std::ceil(length * resolution - rounding));
    }

    double width, height; ///< of the paper upright, inches
    QPageSize paper;
    int resolution;
    std::string fileName;
};

PrinterLimits PdfPrinter::Limits(std::int16_t orientation) const {
    const bool lies = orientation == Landscape;
    PrinterLimits limits;
    limits.pixelsPerInchX = limits.pixelsPerInchY = resolution;
    limits.printableWidth = limits.paperWidth = Pixels(lies ? height : width);
    limits.printableHeight = limits.paperHeight = Pixels(lies ? width : height);
    return limits;
}

} // namespace

std::unique_ptr<Printer> MakePdfPrinter(double paperWidth, double paperHeight, std::string_view fileName) {
    if (!CanBePageSide(paperWidth) || !CanBePageSide(paperHeight)) {
        return nullptr;
    }
    NeedGuiApplication();
    return std::make_unique<PdfPrinter>(paperWidth, paperHeight, fileName);
}

} // namespace quelmont
