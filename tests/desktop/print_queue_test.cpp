#include "desktop/desktop_printers.h"
#include "support/temporary_folder.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <QApplication>
#include <QPrintDialog>
#include <QPushButton>
#include <QTimer>
#include <QWidget>

#include <chrono>
#include <cstdlib>
#include <filesystem>
#include <functional>
#include <string>
#include <thread>

// Run by printing.sh beside a print service, whose queue "Paper" leaves its last job in a file.

namespace quelmont {
namespace {

using testing::EndsWith;
using testing::StartsWith;

class PrintQueue : public testing::Test {
protected:
    PrintQueue() { std::filesystem::remove(job); }

    /// Whether the whole of a job arrives, in a time that is more than enough.
    bool JobArrives(std::chrono::milliseconds patience = std::chrono::seconds(30)) const {
        const auto end = std::chrono::steady_clock::now() + patience;
        while (std::chrono::steady_clock::now() < end) {
            if (std::filesystem::exists(job) && ReadWholeFile(job).ends_with("%%EOF\n")) {
                return true;
            }
            std::this_thread::sleep_for(std::chrono::milliseconds(50));
        }
        return false;
    }
    /// A square of two inches; the steps of a job up to its end.
    static std::unique_ptr<PrintJob> PageOf(Printer& printer, std::int16_t orientation) {
        std::unique_ptr<PrintJob> page = printer.Open(orientation);
        EXPECT_TRUE(page->SelectClip(0, 0, 3000, 3000));
        EXPECT_TRUE(page->StartDoc("A Map"));
        EXPECT_TRUE(page->StartPage());
        EXPECT_TRUE(page->Surface().Rectangle(0, 0, 2400, 2400));
        EXPECT_GE(page->EndPage(), 0);
        return page;
    }
    /// Presses a button of the dialog that is shown next.
    static void Press(const QString& name) {
        QTimer::singleShot(500, [name] {
            auto* const dialog = qobject_cast<QPrintDialog*>(QApplication::activeModalWidget());
            ASSERT_NE(dialog, nullptr);
            for (QPushButton* const button : dialog->findChildren<QPushButton*>()) {
                if (button->text().remove(QLatin1Char('&')) == name) {
                    button->click();
                    return;
                }
            }
            ADD_FAILURE() << "no button " << name.toStdString();
            dialog->reject();
        });
    }

    std::string job = std::getenv("QUELMONT_JOB");
    QWidget window;
    DesktopPrinters printers{window};
};

TEST_F(PrintQueue, IsFoundAndChosen) {
    EXPECT_TRUE(printers.Any());
    ASSERT_NE(printers.Chosen(), nullptr);
    EXPECT_EQ(printers.Chosen()->Name(), "Paper");
    EXPECT_EQ(printers.Chosen(), printers.Chosen());
}

TEST_F(PrintQueue, LimitsAreThoseOfItsPaper) {
    // A4, 595 by 842 points, with strips of 12 and 18 points, at 1200 dots an inch.
    const PrinterLimits upright = printers.Chosen()->Limits(Portrait);
    EXPECT_EQ(upright.pixelsPerInchX, 1200);
    EXPECT_EQ(upright.pixelsPerInchY, 1200);
    EXPECT_NEAR(upright.paperWidth, 595 * 1200 / 72.0, 1.0);
    EXPECT_NEAR(upright.paperHeight, 842 * 1200 / 72.0, 1.0);
    EXPECT_NEAR(upright.stripLeft, 200, 1);
    EXPECT_NEAR(upright.stripTop, 300, 1);
    EXPECT_NEAR(upright.printableWidth, 571 * 1200 / 72.0, 2.0);
    EXPECT_NEAR(upright.printableHeight, 806 * 1200 / 72.0, 2.0);
    const PrinterLimits across = printers.Chosen()->Limits(Landscape);
    EXPECT_EQ(across.paperWidth, upright.paperHeight);
    EXPECT_EQ(across.paperHeight, upright.paperWidth);
    EXPECT_NEAR(across.stripLeft, 300, 1);
    EXPECT_NEAR(across.stripTop, 200, 1);
    EXPECT_NEAR(across.printableWidth, upright.printableHeight, 1);
}

TEST_F(PrintQueue, TakesAPage) {
    EXPECT_TRUE(PageOf(*printers.Chosen(), Portrait)->EndDoc());
    EXPECT_TRUE(JobArrives());
    EXPECT_THAT(ReadWholeFile(job), StartsWith("%PDF-"));
}

TEST_F(PrintQueue, GetsNothingOfAJobThatWasGivenUp) {
    PageOf(*printers.Chosen(), Portrait)->Abort();
    PageOf(*printers.Chosen(), Landscape).reset();
    EXPECT_FALSE(JobArrives(std::chrono::seconds(3)));
    EXPECT_TRUE(PageOf(*printers.Chosen(), Portrait)->EndDoc()) << "the next one is printed";
    EXPECT_TRUE(JobArrives());
}

TEST_F(PrintQueue, HasOneJobAtATime) {
    const std::unique_ptr<PrintJob> first = PageOf(*printers.Chosen(), Portrait);
    EXPECT_EQ(printers.Chosen()->Open(Portrait), nullptr);
    first->Abort();
    EXPECT_NE(printers.Chosen()->Open(Portrait), nullptr);
}

TEST_F(PrintQueue, DialogTakesTheOrientationAndCancelChangesNothing) {
    std::int16_t orientation = Landscape;
    const Printer* const before = printers.Chosen();
    Press(QStringLiteral("Cancel"));
    EXPECT_FALSE(printers.SetUp(orientation));
    EXPECT_EQ(orientation, Landscape);
    EXPECT_EQ(printers.Chosen(), before);
    Press(QStringLiteral("OK"));
    EXPECT_TRUE(printers.SetUp(orientation));
    EXPECT_EQ(orientation, Landscape) << "it began with that of the design";
    EXPECT_EQ(printers.Chosen()->Name(), "Paper");
    EXPECT_TRUE(PageOf(*printers.Chosen(), orientation)->EndDoc());
    EXPECT_TRUE(JobArrives());
}

} // namespace
} // namespace quelmont
