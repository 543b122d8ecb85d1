// The window of the help beside the program's window and its dialogs.

#include "desktop/desktop_fixture.h"

#include "core/map_design.h"
#include "desktop/desktop_machine.h"
#include "desktop/help_browser.h"
#include "desktop/help_window.h"
#include "mainwindow/main_menu.h"

#include <QAccessible>
#include <QApplication>
#include <QHelpContentWidget>
#include <QHelpIndexWidget>
#include <QImage>
#include <QLineEdit>
#include <QListWidget>
#include <QMenu>
#include <QPrintDialog>
#include <QPrinter>
#include <QProcess>
#include <QScreen>
#include <QScrollBar>
#include <QTest>
#include <QTextBlock>
#include <QTimer>
#include <QToolBar>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <vector>

namespace quelmont {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

class HelpInWindow : public DesktopTest {
protected:
    /// The help file is that of the build; its search index goes to the tests' folder.
    HelpInWindow() {
        qputenv("XDG_CACHE_HOME", QByteArray::fromStdString(folder.Path()));
        Start();
        Design.HelpFile = QUELMONT_HELP_FILE;
    }

    HelpWindow& Help() { return *desktop->WindowOfHelp(); }
    QUrl Page() { return Help().Browser().source(); }
    std::string PageName() { return Page().path().toStdString(); }
    QString PageText() { return Help().Browser().toPlainText(); }
    template <typename Widget>
    Widget* Part(const char* name = "") {
        return Help().findChild<Widget*>(QLatin1String(name));
    }
};

TEST_F(HelpInWindow, F1OfTheWindowOpensTheContents) {
    Activate();
    QTest::keyClick(&Window(), Qt::Key_F1);
    ASSERT_NE(desktop->WindowOfHelp(), nullptr);
    EXPECT_TRUE(Help().isVisible());
    EXPECT_EQ(PageName(), "/help/README.html");
    EXPECT_TRUE(PageText().startsWith(QStringLiteral("Quelmont help")));
    EXPECT_THAT(boxes.asked, IsEmpty());
}

TEST_F(HelpInWindow, ItemsOfTheMenuOpenContentsAndSearch) {
    Window().Action(Menu::mnuAbout, ContentsItem)->trigger();
    ASSERT_NE(desktop->WindowOfHelp(), nullptr);
    EXPECT_EQ(PageName(), "/help/README.html");
    Window().Action(Menu::mnuAbout, SearchItem)->trigger();
    EXPECT_TRUE(Part<QLineEdit>("SearchText")->isVisible());
}

TEST_F(HelpInWindow, F1OfAFieldOpensItsPageWhileTheDialogStaysAsItIs) {
    InDialog([&](QDialog& dialog) {
        auto* field = dialog.findChild<QLineEdit*>(QStringLiteral("LatGr"));
        ASSERT_NE(field, nullptr);
        field->setFocus();
        QTest::qWait(20);
        QTest::keyClicks(field, QStringLiteral("7"));
        const QString typed = field->text();
        QTest::keyClick(field, Qt::Key_F1);
        ASSERT_NE(desktop->WindowOfHelp(), nullptr);
        EXPECT_EQ(PageName(), "/help/bounds.html");
        EXPECT_EQ(Page().fragment().toStdString(), "degrees-of-latitude-between-grid-marks");
        EXPECT_TRUE(dialog.isVisible());
        EXPECT_EQ(field->text(), typed);
        EXPECT_THAT(boxes.asked, IsEmpty()) << "no field is checked";
        // The help can be used meanwhile.
        QTest::mouseClick(Help().Browser().viewport(), Qt::LeftButton);
        Help().activateWindow();
        EXPECT_TRUE(QTest::qWaitForWindowActive(&Help()));
        QTest::keyClick(&Help(), Qt::Key_Home, Qt::AltModifier);
        EXPECT_EQ(PageName(), "/help/README.html");
        EXPECT_FALSE(QApplication::activeModalWidget()->isAncestorOf(&Help()));
        EXPECT_EQ(dialog.windowModality(), Qt::WindowModal);
        dialog.reject();
    });
    Window().Action(Menu::mnuDesign, BoundariesItem)->trigger();
    EXPECT_TRUE(Help().isVisible()) << "it stays when the dialog has closed";
}

TEST_F(HelpInWindow, StandsBesideTheDialogAndNotOverIt) {
    InDialog([&](QDialog& dialog) {
        const QRect screen = dialog.screen()->availableGeometry();
        // At ratio 2 the screen has no room beside a dialog, and the help stays where it is.
        const bool hasRoom = screen.width() > dialog.width() + 500;
        EXPECT_EQ(hasRoom, dialog.devicePixelRatioF() < 2.0);
        for (const bool atRight : hasRoom ? std::vector<bool>{false, true} : std::vector<bool>{}) {
            dialog.move(atRight ? screen.right() - dialog.width() - 50 : screen.left() + 50,
                        screen.top() + 60);
            QTest::qWait(20);
            HelpWindow& help = Help();
            help.StandBeside(dialog);
            EXPECT_FALSE(help.frameGeometry().intersects(dialog.frameGeometry())) << atRight;
            EXPECT_TRUE(screen.contains(help.frameGeometry())) << atRight;
        }
        dialog.reject();
    });
    Activate();
    QTest::keyClick(&Window(), Qt::Key_F1);
    ASSERT_NE(desktop->WindowOfHelp(), nullptr);
    EXPECT_FALSE(Help().windowIcon().isNull());
    Window().Action(Menu::mnuDesign, BoundariesItem)->trigger();
}

TEST_F(HelpInWindow, F1OnAnItemOfAMenuOpensItsPage) {
    QMenu* const file = Window().Action(Menu::mnuBar, FileTitle)->menu();
    ASSERT_NE(file, nullptr);
    file->popup(Window().mapToGlobal(QPoint(10, 10)));
    file->setActiveAction(Window().Action(Menu::mnuInput, SaveDxfItem));
    QTest::keyClick(file, Qt::Key_F1);
    ASSERT_NE(desktop->WindowOfHelp(), nullptr);
    EXPECT_EQ(PageName(), "/help/save-dxf.html");
    EXPECT_EQ(QApplication::activePopupWidget(), nullptr);
}

/// The boxes of the desktop in the place of the scripted ones.
class HelpOfBoxesInWindow : public HelpInWindow {
protected:
    HelpOfBoxesInWindow() : real(Window()) { Machine().boxes = &real; }

    /// F1 in a box, which stays as it is.
    void ExpectPage(QDialog& box, const std::string& page, const std::string& section = {}) {
        QTest::keyClick(&box, Qt::Key_F1);
        EXPECT_TRUE(box.isVisible());
        ASSERT_NE(desktop->WindowOfHelp(), nullptr);
        EXPECT_EQ(PageName(), "/help/" + page + ".html");
        EXPECT_EQ(Page().fragment().toStdString(), section);
        EXPECT_EQ(box.windowModality(), Qt::WindowModal) << "the help can be used";
    }

    DesktopBoxes real;
};

TEST_F(HelpOfBoxesInWindow, F1OpensThePageOfTheFieldThatABoxIsAbout) {
    InDialog([&](QDialog& dialog) {
        auto* field = dialog.findChild<QLineEdit*>(QStringLiteral("LatN"));
        field->setFocus();
        QTest::qWait(20);
        QTest::keyClicks(field, QStringLiteral("999999"));
        InDialog([&](QDialog& box) {
            ExpectPage(box, "bounds", "northernmost-latitude-of-map-southernmost-latitude-of-map");
            box.reject();
        });
        QTest::keyClick(field, Qt::Key_Tab);
        QTest::qWait(50);
        dialog.reject();
    });
    Window().Action(Menu::mnuDesign, BoundariesItem)->trigger();
}

TEST_F(HelpOfBoxesInWindow, F1OpensThePageOfTheCommandThatABoxBelongsTo) {
    InDialog([&](QDialog& box) {
        ExpectPage(box, "draw-map", "how-long-it-took");
        box.reject();
    });
    Window().Action(Menu::mnuAbout, PlotTimeItem)->trigger();
}

TEST_F(HelpOfBoxesInWindow, F1OpensThePageOfBoxesWhereAMapFileFailsInADraw) {
    std::filesystem::remove(folder / "Qmnt4.map");
    InDialog([&](QDialog& size) {
        InDialog([&](QDialog& box) {
            ExpectPage(box, "messages");
            box.reject();
        });
        QTest::keyClick(size.focusWidget(), Qt::Key_Return);
    });
    Window().Action(Menu::mnuBar, DrawTitle)->trigger();
}

TEST_F(HelpOfBoxesInWindow, F1OpensThePageOfDesignsWhereOneIsOffered) {
    InDialog([&](QDialog& box) {
        ExpectPage(box, "designs", "recall-map-design");
        box.reject();
    });
    Machine().boxes->Ask("Recall Map Design", "Recall it?", BoxButtons::RecallDiscard, BoxIcon::Exclamation);
}

TEST_F(HelpOfBoxesInWindow, F1OpensThePageOfTheCommandInItsFileDialogAndItsQuestion) {
    std::ofstream(folder / "map.bmp") << "earlier";
    DrawByKeys();
    InDialog([&](QDialog& files) {
        ExpectPage(files, "save-bmp");
        auto* name = files.findChild<QLineEdit*>(QStringLiteral("fileNameEdit"));
        name->setText(QString::fromStdString(folder / "map.bmp"));
        Help().ShowPlace({"angles", ""});
        InDialog([&](QDialog& question) {
            ExpectPage(question, "save-bmp");
            QTest::keyClick(&question, Qt::Key_Escape);
            QTimer::singleShot(0, &files, &QDialog::reject);
        });
        files.activateWindow();
        QTest::keyClick(name, Qt::Key_Return);
    });
    Window().Action(Menu::mnuInput, SaveBmpItem)->trigger();
}

TEST_F(HelpOfBoxesInWindow, F1OpensThePageOfTheDialogThatAFileDialogStandsOver) {
    InDialog([&](QDialog& list) {
        InDialog([&](QDialog& files) {
            ExpectPage(files, "map-files");
            files.reject();
        });
        QTest::keyClick(list.focusWidget(), Qt::Key_A, Qt::AltModifier);
        QTest::qWait(20);
        list.reject();
    });
    Window().Action(Menu::mnuInput, OpenMapFileItem)->trigger();
}

TEST_F(HelpInWindow, ContentsMarkThePageThatIsShown) {
    QTest::keyClick(&Window(), Qt::Key_F1);
    auto* contents = Help().findChild<QHelpContentWidget*>();
    const auto marked = [&] { return contents->currentIndex().data().toString(); };
    EXPECT_TRUE(QTest::qWaitFor([&] { return marked() == QStringLiteral("Quelmont help"); }));
    Help().ShowPlace({"utm-zone", "spheroid"});
    EXPECT_EQ(marked(), QStringLiteral("Zone and bounds of a UTM map"));
    EXPECT_TRUE(contents->viewport()->rect().intersects(contents->visualRect(contents->currentIndex())));
    Help().Browser().backward();
    EXPECT_EQ(marked(), QStringLiteral("Quelmont help"));
}

TEST_F(HelpInWindow, PrintedPageHasItsTextAndItsPictures) {
    QTest::keyClick(&Window(), Qt::Key_F1);
    Help().ShowPlace({"help-menu", ""});
    QTest::qWait(200);
    InDialog([&](QDialog& dialog) {
        auto* print = qobject_cast<QPrintDialog*>(&dialog);
        ASSERT_NE(print, nullptr);
        EXPECT_EQ(print->windowModality(), Qt::WindowModal);
        print->printer()->setOutputFileName(QString::fromStdString(folder / "page.pdf"));
        print->done(QDialog::Accepted);
    });
    QTest::keyClick(&Help(), Qt::Key_P, Qt::ControlModifier);
    const auto told = [&](const char* tool, const QStringList& arguments) {
        QProcess process;
        process.start(QString::fromLatin1(tool), arguments);
        EXPECT_TRUE(process.waitForFinished()) << tool;
        return QString::fromUtf8(process.readAllStandardOutput());
    };
    const QString file = QString::fromStdString(folder / "page.pdf");
    EXPECT_TRUE(told("pdftotext", {"-layout", file, "-"}).contains("F1 opens the help as well"));
    EXPECT_TRUE(told("pdfimages", {"-list", file}).contains("image"));
}

TEST_F(HelpInWindow, NamesAllThatCanHaveTheFocusToAScreenReader) {
    QTest::keyClick(&Window(), Qt::Key_F1);
    for (QWidget* widget : Help().findChildren<QWidget*>()) {
        if (widget->focusPolicy() != Qt::NoFocus && widget->focusProxy() == nullptr) {
            EXPECT_NE(QAccessible::queryAccessibleInterface(widget)->text(QAccessible::Name), QString())
                << widget->metaObject()->className() << " " << widget->objectName().toStdString();
        }
    }
}

TEST_F(HelpInWindow, AMissingFileIsNamedInOneBox) {
    Design.HelpFile = "/nowhere/Qmnt.qch";
    QTest::keyClick(&Window(), Qt::Key_F1);
    EXPECT_EQ(desktop->WindowOfHelp(), nullptr);
    ASSERT_EQ(boxes.asked.size(), 1U);
    EXPECT_THAT(boxes.asked[0].text, HasSubstr("/nowhere/Qmnt.qch"));
}

TEST_F(HelpInWindow, AFileThatIsNoHelpIsNamedInOneBox) {
    Design.HelpFile = folder.Path() + "/Qmnt.qch";
    std::ofstream(Design.HelpFile) << "no help";
    QTest::keyClick(&Window(), Qt::Key_F1);
    EXPECT_EQ(desktop->WindowOfHelp(), nullptr);
    ASSERT_EQ(boxes.asked.size(), 1U);
    EXPECT_THAT(boxes.asked[0].text, HasSubstr("Qmnt.qch"));
}

TEST_F(HelpInWindow, ACacheThatCannotBeWrittenIsNoHindrance) {
    qputenv("XDG_CACHE_HOME", "/proc/nowhere");
    QTest::keyClick(&Window(), Qt::Key_F1);
    ASSERT_NE(desktop->WindowOfHelp(), nullptr);
    EXPECT_TRUE(PageText().startsWith(QStringLiteral("Quelmont help")));
}

TEST_F(HelpInWindow, ThePageOpenedAgainIsThatOfTheCache) {
    QTest::keyClick(&Window(), Qt::Key_F1);
    Restart();
    Design.HelpFile = QUELMONT_HELP_FILE;
    QTest::keyClick(&Window(), Qt::Key_F1);
    ASSERT_NE(desktop->WindowOfHelp(), nullptr);
    EXPECT_TRUE(PageText().startsWith(QStringLiteral("Quelmont help")));
    EXPECT_THAT(boxes.asked, IsEmpty());
}

TEST_F(HelpInWindow, ContentsAndIndexListThePages) {
    QTest::keyClick(&Window(), Qt::Key_F1);
    auto* contents = Help().findChild<QHelpContentWidget*>();
    ASSERT_NE(contents, nullptr);
    EXPECT_TRUE(QTest::qWaitFor([&] { return contents->model()->rowCount() == 1; }));
    const QModelIndex top = contents->model()->index(0, 0);
    EXPECT_TRUE(contents->isExpanded(top));
    EXPECT_GT(contents->model()->rowCount(top), 25);
    auto* index = Help().findChild<QHelpIndexWidget*>();
    ASSERT_NE(index, nullptr);
    EXPECT_TRUE(QTest::qWaitFor([&] { return index->model()->rowCount() > 100; }));
}

TEST_F(HelpInWindow, SearchFindsThePagesThatHaveTheWords) {
    Window().Action(Menu::mnuAbout, SearchItem)->trigger();
    auto* results = Part<QListWidget>("SearchResults");
    const auto found = [&] {
        QStringList titles;
        for (int row = 0; row < results->count(); ++row) {
            titles << results->item(row)->text();
        }
        return titles;
    };
    // The index is made when the help is opened first.
    EXPECT_TRUE(QTest::qWaitFor(
        [&] {
            Part<QLineEdit>("SearchText")->setText(QStringLiteral("Krasovsky"));
            QTest::keyClick(Part<QLineEdit>("SearchText"), Qt::Key_Return);
            QTest::qWait(100);
            return found() == QStringList{QStringLiteral("Zone and bounds of a UTM map")};
        },
        20000))
        << found().join(u';').toStdString();
    emit results->itemActivated(results->item(0));
    EXPECT_EQ(PageName(), "/help/utm-zone.html");
}

TEST_F(HelpInWindow, BackAndForwardReturnToPages) {
    QTest::keyClick(&Window(), Qt::Key_F1);
    Help().ShowPlace({"angles", ""});
    Help().Browser().backward();
    EXPECT_EQ(PageName(), "/help/README.html");
    Help().Browser().forward();
    EXPECT_EQ(PageName(), "/help/angles.html");
}

TEST_F(HelpInWindow, FindSelectsTheNextPlaceAndBeginsAgain) {
    QTest::keyClick(&Window(), Qt::Key_F1);
    Help().ShowPlace({"angles", ""});
    auto* text = Part<QLineEdit>("FindText");
    text->setText(QStringLiteral("latitude"));
    QTest::keyClick(text, Qt::Key_Return);
    EXPECT_EQ(Help().Browser().textCursor().selectedText().toLower(), QStringLiteral("latitude"));
    const int first = Help().Browser().textCursor().position();
    QTest::keyClick(text, Qt::Key_Return);
    EXPECT_GT(Help().Browser().textCursor().position(), first);
    for (int again = 0; again < 40 && Help().Browser().textCursor().position() != first; ++again) {
        QTest::keyClick(text, Qt::Key_Return);
    }
    EXPECT_EQ(Help().Browser().textCursor().position(), first);
}

TEST_F(HelpInWindow, PicturesAreNoWiderThanThePage) {
    QTest::keyClick(&Window(), Qt::Key_F1);
    Help().ShowPlace({"first-map", ""});
    for (const int width : {400, 1000}) {
        Help().resize(width, 600);
        QTest::qWait(200);
        HelpBrowser& browser = Help().Browser();
        EXPECT_LE(browser.document()->size().width(), browser.viewport()->width()) << width;
        const QVariant picture =
            browser.loadResource(QTextDocument::ImageResource, QUrl(QStringLiteral("look/europe.png")));
        EXPECT_FALSE(picture.value<QImage>().isNull());
    }
}

/// Every page that the contents lead to.
std::vector<QUrl> PagesOf(const QHelpContentModel& contents, const QModelIndex& parent = {}) {
    std::vector<QUrl> pages;
    for (int row = 0; row < contents.rowCount(parent); ++row) {
        const QModelIndex index = contents.index(row, 0, parent);
        pages.push_back(contents.contentItemAt(index)->url());
        for (const QUrl& page : PagesOf(contents, index)) {
            pages.push_back(page);
        }
    }
    return pages;
}

/// The pictures that a page shows.
QStringList PicturesOf(const QTextDocument& page) {
    QStringList pictures;
    for (QTextBlock block = page.begin(); block.isValid(); block = block.next()) {
        for (auto part = block.begin(); !part.atEnd(); ++part) {
            if (part.fragment().charFormat().isImageFormat()) {
                pictures << part.fragment().charFormat().toImageFormat().name();
            }
        }
    }
    return pictures;
}

TEST_F(HelpInWindow, EveryPageFitsItsWidthAndHasItsPictures) {
    QTest::keyClick(&Window(), Qt::Key_F1);
    auto* contents = Help().findChild<QHelpContentWidget*>();
    EXPECT_TRUE(QTest::qWaitFor([&] { return contents->model()->rowCount() == 1; }));
    HelpBrowser& browser = Help().Browser();
    int pictures = 0;
    for (const int width : {400, 1000}) {
        Help().resize(width, 900);
        QTest::qWait(200);
        for (const QUrl& page : PagesOf(*qobject_cast<QHelpContentModel*>(contents->model()))) {
            SCOPED_TRACE(page.path().toStdString() + " at " + std::to_string(width));
            browser.setSource(page);
            EXPECT_FALSE(browser.toPlainText().isEmpty());
            EXPECT_LE(browser.document()->size().width(), browser.viewport()->width());
            EXPECT_EQ(browser.horizontalScrollBar()->maximum(), 0);
            for (const QString& name : PicturesOf(*browser.document())) {
                ++pictures;
                EXPECT_FALSE(
                    browser.loadResource(QTextDocument::ImageResource, QUrl(name)).value<QImage>().isNull())
                    << name.toStdString();
            }
        }
    }
    EXPECT_GT(pictures, 60);
}

TEST_F(HelpInWindow, LinksCanBeReadOnADarkGround) {
    const QPalette before = QApplication::palette();
    QPalette dark(QColor(45, 45, 48));
    dark.setColor(QPalette::Base, QColor(30, 30, 32));
    dark.setColor(QPalette::Link, Qt::blue);
    QApplication::setPalette(dark);
    QTest::keyClick(&Window(), Qt::Key_F1);
    const auto link = [&] {
        const QTextDocument& page = *Help().Browser().document();
        for (QTextBlock block = page.begin(); block.isValid(); block = block.next()) {
            for (auto part = block.begin(); !part.atEnd(); ++part) {
                if (!part.fragment().charFormat().anchorHref().isEmpty()) {
                    return qGray(part.fragment().charFormat().foreground().color().rgb());
                }
            }
        }
        return -1;
    };
    EXPECT_GT(link(), 128);
    QApplication::setPalette(before);
    QTest::qWait(20);
    EXPECT_GE(link(), 0);
    EXPECT_LT(link(), 128) << "the theme has become a light one";
}

TEST_F(HelpInWindow, ClosesWithTheProgram) {
    QTest::keyClick(&Window(), Qt::Key_F1);
    EXPECT_FALSE(Help().testAttribute(Qt::WA_QuitOnClose));
    QTest::keyClick(&Help(), Qt::Key_Escape);
    EXPECT_FALSE(Help().isVisible());
}

} // namespace
} // namespace quelmont
