#include "qtsurface/pdf_printer.h"

#include "output/print/papers.h"
#include "qtsurface/pdf_reading.h"
#include "support/hard_times.h"
#include "support/temporary_folder.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cmath>
#include <filesystem>
#include <functional>
#include <limits>
#include <string>
#include <vector>

namespace quelmont {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

constexpr const char* Earlier = "what was there before";

std::unique_ptr<Printer> OnPaper(std::string_view paper, const std::string& file = "") {
    const Paper* const found = PaperOf(paper);
    return MakePdfPrinter(found->width, found->height, file);
}

void DrawLines(DrawSurface& surface, int points) {
    surface.MoveToEx(0, 0);
    for (int i = 1; i <= points; ++i) {
        surface.LineTo(static_cast<int>(i * 7919LL % 9000), static_cast<int>(i * 104729LL % 9000));
    }
}

void Write(DrawSurface& surface, std::string_view text, const char* face, int y) {
    const SurfaceHandle font = surface.CreateFontIndirectA({.height = -200, .faceName = face});
    const SurfaceHandle before = surface.SelectObject(font);
    surface.TextOutA(500, y, text);
    surface.SelectObject(before);
    surface.DeleteObject(font);
}

/// One job, each page drawn by a function.
bool Print(Printer& printer, const std::vector<std::function<void(DrawSurface&)>>& pages,
           std::int16_t orientation = Portrait) {
    const std::unique_ptr<PrintJob> job = printer.Open(orientation);
    bool done = job->SelectClip(0, 0, 9000, 9000) && job->StartDoc("A Map");
    for (const auto& draw : pages) {
        done = job->StartPage() && done;
        draw(job->Surface());
        done = job->EndPage() >= 0 && done;
    }
    return job->EndDoc() && done;
}

bool PrintOneLine(const std::string& file) {
    const std::unique_ptr<Printer> printer = OnPaper("A4", file);
    return Print(*printer, {[](DrawSurface& surface) { DrawLines(surface, 1); }});
}

TEST(PdfPrinter, PaperIsAllPrintableAt1200DotsAnInch) {
    const std::unique_ptr<Printer> printer = OnPaper("Letter");
    EXPECT_EQ(printer->Name(), "PDF");
    const PrinterLimits upright = printer->Limits(Portrait);
    EXPECT_EQ(upright.pixelsPerInchX, 1200);
    EXPECT_EQ(upright.pixelsPerInchY, 1200);
    EXPECT_EQ(upright.paperWidth, 10200); // 8.5 inches
    EXPECT_EQ(upright.paperHeight, 13200);
    EXPECT_EQ(upright.printableWidth, 10200);
    EXPECT_EQ(upright.printableHeight, 13200);
    EXPECT_EQ(upright.stripLeft, 0);
    EXPECT_EQ(upright.stripTop, 0);
    const PrinterLimits across = printer->Limits(Landscape);
    EXPECT_EQ(across.paperWidth, 13200);
    EXPECT_EQ(across.paperHeight, 10200);
    EXPECT_EQ(across.printableWidth, 13200);
}

TEST(PdfPrinter, PaperHasRoomForAMapOfItsOwnSize) {
    // 210 by 297 millimetres are 9921.26 by 14031.5 dots.
    const PrinterLimits limits = OnPaper("A4")->Limits(Portrait);
    EXPECT_EQ(limits.paperWidth, 9922);
    EXPECT_EQ(limits.paperHeight, 14032);
    EXPECT_EQ(OnPaper("A4")->Limits(Landscape).printableWidth, 14032);
}

TEST(PdfPrinter, NameThatIsNoUtf8IsWritten) {
    const TemporaryFolder folder;
    const std::string file = folder / "q\xFF.pdf";
    EXPECT_TRUE(Print(*OnPaper("A4", file), {[](DrawSurface& surface) { DrawLines(surface, 3); }}));
    EXPECT_EQ(ReadPdf(ReadWholeFile(file)).pages, 1);
    EXPECT_EQ(std::distance(std::filesystem::directory_iterator(folder / ""), {}), 1)
        << "nothing stays beside it";
}

TEST(PdfPrinter, LargePapersStayBelow32000Dots) {
    for (const char* const paper : {"A1", "A0"}) {
        const PrinterLimits limits = OnPaper(paper)->Limits(Portrait);
        EXPECT_LT(limits.paperHeight, 32000) << paper;
        EXPECT_GT(limits.paperHeight, 31900) << paper;
        EXPECT_LT(limits.pixelsPerInchX, 1200) << paper;
        EXPECT_EQ(limits.pixelsPerInchX, limits.pixelsPerInchY) << paper;
    }
    EXPECT_LT(MakePdfPrinter(200.0, 200.0, "")->Limits(Portrait).paperWidth, 32000);
}

TEST(PdfPrinter, PapersWithoutASizeAreNone) {
    const double none = std::numeric_limits<double>::quiet_NaN();
    for (const double length : {0.0, -8.0, none, HUGE_VAL, -HUGE_VAL, 1e300, 200.01, 0.01}) {
        EXPECT_EQ(MakePdfPrinter(length, 11.0, ""), nullptr) << length;
        EXPECT_EQ(MakePdfPrinter(8.5, length, ""), nullptr) << length;
    }
}

TEST(PdfPrinter, PaperOfAMillimetreHasAPage) {
    const TemporaryFolder folder;
    const std::unique_ptr<Printer> printer = MakePdfPrinter(1.0 / 25.4, 1.0 / 25.4, folder / "small.pdf");
    ASSERT_NE(printer, nullptr);
    EXPECT_EQ(printer->Limits(Portrait).paperWidth, 48); // 47.2 dots
    EXPECT_TRUE(Print(*printer, {[](DrawSurface& surface) { DrawLines(surface, 3); }}));
    EXPECT_EQ(ReadPdf(ReadWholeFile(folder / "small.pdf")).pages, 1);
}

TEST(PdfPrinter, FileAppearsWhenItIsWhole) {
    const TemporaryFolder folder;
    const std::string file = folder / "map.pdf";
    WriteWholeFile(file, Earlier);
    const std::unique_ptr<Printer> printer = OnPaper("A4", file);
    const std::unique_ptr<PrintJob> job = printer->Open(Portrait);
    EXPECT_THAT(folder.Names(), ElementsAre("map.pdf"));
    ASSERT_TRUE(job->StartDoc("A Map"));
    ASSERT_TRUE(job->StartPage());
    DrawLines(job->Surface(), 10);
    EXPECT_GE(job->EndPage(), 0);
    EXPECT_EQ(ReadWholeFile(file), Earlier);
    EXPECT_TRUE(job->EndDoc());
    EXPECT_THAT(folder.Names(), ElementsAre("map.pdf"));
    const PdfText text = ReadPdf(ReadWholeFile(file));
    EXPECT_EQ(text.pages, 1);
    EXPECT_EQ(OperatorsOf(text.contents[0], "l"), 10) << text.contents[0];
}

TEST(PdfPrinter, GivenUpJobLeavesTheEarlierFileAndNothingElse) {
    const TemporaryFolder folder;
    const std::string file = folder / "map.pdf";
    WriteWholeFile(file, Earlier);
    for (const bool aborted : {true, false}) {
        const std::unique_ptr<Printer> printer = OnPaper("A4", file);
        const std::unique_ptr<PrintJob> job = printer->Open(Portrait);
        ASSERT_TRUE(job->StartDoc("A Map"));
        ASSERT_TRUE(job->StartPage());
        DrawLines(job->Surface(), 10);
        job->EndPage();
        if (aborted) {
            job->Abort();
            EXPECT_FALSE(job->EndDoc());
        }
    }
    EXPECT_THAT(folder.Names(), ElementsAre("map.pdf"));
    EXPECT_EQ(ReadWholeFile(file), Earlier);
}

TEST(PdfPrinter, JobDoesNotStartWhereNoFileCanBeWritten) {
    const TemporaryFolder folder;
    std::filesystem::create_directory(folder / "folder.pdf");
    for (const std::string& file :
         {folder / "folder.pdf", folder / "missing/map.pdf", std::string("/dev/full"), std::string()}) {
        const std::unique_ptr<Printer> printer = OnPaper("A4", file);
        const std::unique_ptr<PrintJob> job = printer->Open(Portrait);
        EXPECT_FALSE(job->StartDoc("A Map")) << file;
        EXPECT_FALSE(job->StartPage()) << file;
        EXPECT_LT(job->EndPage(), 0) << file;
        EXPECT_FALSE(job->EndDoc()) << file;
    }
    EXPECT_THAT(folder.Names(), ElementsAre("folder.pdf"));
}

TEST(PdfPrinter, JobDoesNotStartWithoutPermission) {
    const TemporaryFolder folder;
    WriteWholeFile(folder / "map.pdf", Earlier);
    std::filesystem::permissions(folder / "map.pdf", std::filesystem::perms::owner_read);
    std::filesystem::permissions(
        folder.Path(), std::filesystem::perms::owner_read | std::filesystem::perms::owner_exec |
                           std::filesystem::perms::others_read | std::filesystem::perms::others_exec);
    OnPaper("A4"); // Qt starts with the privileges of who started the process, or not at all
    {
        const WithoutPrivilege nobody;
        EXPECT_FALSE(PrintOneLine(folder / "map.pdf"));
        EXPECT_FALSE(PrintOneLine(folder / "new.pdf"));
    }
    std::filesystem::permissions(folder.Path(), std::filesystem::perms::owner_all);
    EXPECT_EQ(ReadWholeFile(folder / "map.pdf"), Earlier);
    EXPECT_THAT(folder.Names(), ElementsAre("map.pdf"));
}

TEST(PdfPrinter, FullDiskFailsTheJobAndKeepsTheEarlierFile) {
    const TemporaryFolder folder;
    const std::string file = folder / "map.pdf";
    WriteWholeFile(file, Earlier);
    for (const rlim_t bytes : {0U, 10U, 700U, 5000U, 100'000U, 2'000'000U}) {
        const std::unique_ptr<Printer> printer = OnPaper("A4", file);
        const FullDisk disk(bytes);
        EXPECT_FALSE(Print(*printer, {[](DrawSurface& surface) {
            Write(surface, "Text", "Arial", 500);
            DrawLines(surface, 600'000);
        }})) << bytes;
    }
    EXPECT_EQ(ReadWholeFile(file), Earlier);
    EXPECT_THAT(folder.Names(), ElementsAre("map.pdf"));
}

TEST(PdfPrinter, SamePagesAreTheSameBytes) {
    const TemporaryFolder folder;
    std::vector<std::string> files;
    for (const char* const name : {"one.pdf", "two.pdf"}) {
        const std::unique_ptr<Printer> printer = OnPaper("A4", folder / name);
        ASSERT_TRUE(Print(*printer, {[](DrawSurface& surface) {
            DrawLines(surface, 100);
            int y = 500;
            for (const char* const face : {"Liberation Sans", "Liberation Serif", "DejaVu Sans"}) {
                Write(surface, "Text", face, y += 300);
            }
        }}));
        files.push_back(ReadWholeFile(folder / name));
    }
    EXPECT_EQ(files[0].find("CreationDate"), std::string::npos);
    EXPECT_EQ(files[0].find("/ID ["), std::string::npos);
    EXPECT_TRUE(files[0] == files[1]);
}

TEST(PdfPrinter, PageOfManyLinesIsOnePageWithAllOfThem) {
    const TemporaryFolder folder;
    const std::unique_ptr<Printer> printer = OnPaper("A4", folder / "map.pdf");
    ASSERT_TRUE(Print(*printer, {[](DrawSurface& surface) { DrawLines(surface, 700'000); }}));
    const PdfText text = ReadPdf(ReadWholeFile(folder / "map.pdf"));
    EXPECT_EQ(text.pages, 1);
    ASSERT_EQ(text.contents.size(), 1U);
    const std::string& content = text.contents[0];
    EXPECT_EQ(OperatorsOf(content, "l"), 700'000);
    // Every stream is on its own: the unit and the clip are set in each, and none is left at its end.
    EXPECT_GE(CountOf(content, "0 0 -0.06"), 3);
    EXPECT_EQ(CountOf(content, "0 0 -0.06"), CountOf(content, "W* n"));
    EXPECT_EQ(OperatorsOf(content, "q"), OperatorsOf(content, "Q"));
}

TEST(PdfPrinter, PagesOfAJobStayApart) {
    const TemporaryFolder folder;
    const std::unique_ptr<Printer> printer = OnPaper("A4", folder / "pages.pdf");
    ASSERT_TRUE(Print(*printer, {[](DrawSurface& surface) { DrawLines(surface, 5); },
                                 [](DrawSurface& surface) {
                                     Write(surface, "One", "Liberation Sans", 500);
                                     DrawLines(surface, 600'000);
                                     Write(surface, "Two", "Liberation Serif", 900);
                                 },
                                 [](DrawSurface& surface) { DrawLines(surface, 7); }}));
    const PdfText text = ReadPdf(ReadWholeFile(folder / "pages.pdf"));
    EXPECT_EQ(text.pages, 3);
    ASSERT_EQ(text.contents.size(), 3U);
    EXPECT_EQ(OperatorsOf(text.contents[0], "l"), 5);
    EXPECT_EQ(OperatorsOf(text.contents[1], "l"), 600'000);
    EXPECT_EQ(OperatorsOf(text.contents[1], "Tj"), 6) << "of each letter";
    EXPECT_EQ(OperatorsOf(text.contents[2], "l"), 7);
}

TEST(PdfPrinter, PrinterPrintsMoreThanOnce) {
    const TemporaryFolder folder;
    const std::unique_ptr<Printer> printer = OnPaper("A4", folder / "map.pdf");
    const auto line = [](DrawSurface& surface) { DrawLines(surface, 1); };
    EXPECT_TRUE(Print(*printer, {line}));
    EXPECT_TRUE(Print(*printer, {line, line}, Landscape));
    EXPECT_EQ(ReadPdf(ReadWholeFile(folder / "map.pdf")).pages, 2);
}

} // namespace
} // namespace quelmont
