// Every dialog and message box on a screen that may be too small for it, in usual letters and in
// letters twice as large, as of 192 dots per inch.

#include "desktop/desktop_fixture.h"
#include "desktop/dialog_catalogue.h"
#include "desktop/fitting_area.h"

#include <QAbstractButton>
#include <QApplication>
#include <QScreen>
#include <QScrollBar>
#include <QTest>
#include <QTextEdit>

#include <gtest/gtest.h>

namespace quelmont {
namespace {

class SmallScreen : public DesktopTest, public testing::WithParamInterface<int> {
protected:
    SmallScreen() : before(QApplication::font()) {
        QFont font = before;
        font.setPointSizeF(font.pointSizeF() * GetParam() / 100.0);
        QApplication::setFont(font);
        Start();
    }
    ~SmallScreen() override { QApplication::setFont(before); }

    QRect Screen() { return Window().screen()->availableGeometry(); }

    void InEach(const std::function<void(QDialog&)>& action) {
        for (const CataloguedDialog& dialog : DialogCatalogue()) {
            SCOPED_TRACE(dialog.name);
            const std::unique_ptr<Form> form = dialog.make();
            InDialog([&](QDialog& shown) {
                action(shown);
                shown.reject();
            });
            Machine().forms->Show(*form);
        }
    }

private:
    QFont before;
};

TEST_P(SmallScreen, HoldsEachDialogWithItsButtons) {
    InEach([&](QDialog& dialog) {
        EXPECT_TRUE(Screen().contains(dialog.frameGeometry()))
            << dialog.frameGeometry().width() << " x " << dialog.frameGeometry().height();
        for (const char* const name : {"OK", "Cancel"}) {
            if (const auto* button = dialog.findChild<QAbstractButton*>(QString::fromLatin1(name))) {
                const QRect place(button->mapTo(&dialog, QPoint(0, 0)), button->size());
                EXPECT_TRUE(dialog.rect().contains(place)) << name << " can be pressed without scrolling";
            }
        }
    });
}

TEST_P(SmallScreen, ShowsTheFieldThatTabReaches) {
    InEach([](QDialog& dialog) {
        const auto* area = dialog.findChild<FittingArea*>();
        const QWidget* first = dialog.focusWidget();
        for (const QWidget* now = first;;) {
            QCoreApplication::processEvents();
            if (area->isAncestorOf(now)) {
                const QRect seen = area->viewport()->rect();
                const QRect place(now->mapTo(area->viewport(), QPoint(0, 0)), now->size());
                const QRect common = place & seen;
                EXPECT_GE(common.width(), std::min(place.width(), seen.width() / 2))
                    << now->objectName().toStdString();
                EXPECT_GE(common.height(), std::min(place.height(), seen.height() / 2))
                    << now->objectName().toStdString();
            }
            QTest::keyClick(dialog.focusWidget(), Qt::Key_Tab);
            now = dialog.focusWidget();
            if (now == first || now == nullptr) {
                break;
            }
        }
    });
}

TEST_P(SmallScreen, HasOneBarBesideAReport) {
    InEach([](QDialog& dialog) {
        const auto* page = dialog.findChild<QTextEdit*>();
        if (page == nullptr) {
            return;
        }
        const auto* area = dialog.findChild<FittingArea*>();
        EXPECT_EQ(area->verticalScrollBar()->maximum(), 0);
        EXPECT_EQ(area->horizontalScrollBar()->maximum(), 0);
        EXPECT_GT(page->verticalScrollBar()->maximum(), 0);
    });
}

TEST_P(SmallScreen, NeedsNoScrollingAsideForFields) {
    for (const char* const name :
         {"lat-lon-bounds", "lat-lon-std-par", "lat-lon-bounds-az", "lat-lon-bounds-vp", "lat-lon-interrupt",
          "utm-coords", "utm-parameters", "colors256"}) {
        for (const CataloguedDialog& entry : DialogCatalogue()) {
            if (entry.name != std::string_view(name)) {
                continue;
            }
            SCOPED_TRACE(name);
            const std::unique_ptr<Form> form = entry.make();
            InDialog([&](QDialog& dialog) {
                QCoreApplication::processEvents();
                const auto* area = dialog.findChild<FittingArea*>();
                EXPECT_EQ(area->horizontalScrollBar()->maximum(), 0)
                    << "captions wrap, and rows break; the contents need "
                    << area->widget()->sizeHint().width() << " of " << area->Room().width();
                dialog.reject();
            });
            Machine().forms->Show(*form);
        }
    }
}

TEST_P(SmallScreen, HoldsAMessageBox) {
    DesktopBoxes real(Window());
    InDialog([&](QDialog& box) {
        EXPECT_TRUE(Screen().contains(box.frameGeometry()));
        box.reject();
    });
    real.Ask("Error: Conformal Conic standard parallels",
             "For maps which show the North Pole (90\u00B0N), the NORTHERNMOST STANDARD PARALLEL must be "
             "further from "
             "the equator than the SOUTHERNMOST STANDARD PARALLEL.",
             BoxButtons::Ok, BoxIcon::Exclamation);
}

INSTANTIATE_TEST_SUITE_P(PercentOfLetters, SmallScreen, testing::Values(100, 200));

} // namespace
} // namespace quelmont
