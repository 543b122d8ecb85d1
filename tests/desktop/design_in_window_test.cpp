#include "core/map_design.h"
#include "designfile/cnf_save.h"
#include "desktop/desktop_fixture.h"
#include "desktop/session_end.h"
#include "mainwindow/design_commands.h"
#include "mainwindow/main_menu.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <QAbstractButton>
#include <QAction>
#include <QApplication>
#include <QDropEvent>
#include <QMenu>
#include <QMessageBox>
#include <QMimeData>
#include <QTest>
#include <QTimer>
#include <QUrl>

#include <filesystem>

namespace quelmont {
namespace {

using testing::Contains;
using testing::IsEmpty;
using testing::SizeIs;

/// Map designs in the real window.
class DesignInWindow : public DesktopTest {
protected:
    DesignInWindow() { Start(); }

    void Save() {
        Design.CnfFileName = name;
        EXPECT_TRUE(SaveDesign());
    }
    void Drop(const std::string& file) { Drop(QUrl::fromLocalFile(QString::fromStdString(file))); }
    void Drop(const QUrl& file) {
        QMimeData data;
        data.setUrls({file});
        QDragEnterEvent enter(QPoint(50, 50), Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
        QCoreApplication::sendEvent(&Window(), &enter);
        if (enter.isAccepted()) {
            QDropEvent drop(QPointF(50, 50), Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
            QCoreApplication::sendEvent(&Window(), &drop);
        }
        QCoreApplication::processEvents();
    }

    const std::string name = folder / "map.cnf";
};

TEST_F(DesignInWindow, DrawingAreaGetsTheSavedPixelsBack) {
    Window().resize(700, 520);
    QCoreApplication::processEvents();
    const QSize area = Area().DeviceSize();
    Save();
    Design.MapReduce = 0.5;
    const std::string half = DesignFileText();
    WriteWholeFile(name, half);
    Window().resize(900, 640);
    QCoreApplication::processEvents();
    EXPECT_NE(Area().DeviceSize(), area);
    boxes.Answer(BoxAnswer::Discard);
    EXPECT_TRUE(OpenDesign(name));
    EXPECT_EQ(Area().DeviceSize(), area);
    EXPECT_EQ(Design.MapReduce, 0.5) << "the area has the same pixels";
    EXPECT_FALSE(Window().IsZoomed());
    boxes.Taken();
}

TEST_F(DesignInWindow, MaximisedWindowComesBackMaximised) {
    Window().Maximise();
    Window().Settle();
    const QSize area = Area().DeviceSize();
    Save();
    const int width = static_cast<int>(600.0 * Window().devicePixelRatioF());
    Window().SetAreaSize(width, width);
    Window().Settle();
    EXPECT_FALSE(Window().IsZoomed());
    // A unit of the screen may be more than a device pixel.
    EXPECT_NEAR(Area().DeviceSize().width(), width, 1);
    EXPECT_NEAR(Area().DeviceSize().height(), width, 1);
    EXPECT_TRUE(OpenDesign(name));
    EXPECT_TRUE(Window().IsZoomed());
    EXPECT_EQ(Area().DeviceSize(), area);
}

TEST_F(DesignInWindow, DroppedDesignIsRecalled) {
    Design.BackColor = SolidColor(Rgb(1, 2, 3));
    WriteWholeFile(folder / "Dropped.CNF", DesignFileText());
    Design.BackColor = SolidColor(Rgb(255, 255, 255));
    Drop(folder / "Dropped.CNF");
    EXPECT_EQ(Design.BackColor, SolidColor(Rgb(1, 2, 3)));
    EXPECT_EQ(Design.CnfFileName, folder / "Dropped.CNF");
    EXPECT_THAT(boxes.asked, IsEmpty());
}

TEST_F(DesignInWindow, DesignWhoseNameIsNoUtf8IsRecalledAndSavedUnderItsName) {
    Design.BackColor = SolidColor(Rgb(1, 2, 3));
    const std::string odd = folder / "caf\xE9.cnf";
    WriteWholeFile(odd, DesignFileText());
    Design.BackColor = SolidColor(Rgb(255, 255, 255));
    Drop(QUrl::fromEncoded(QByteArray::fromStdString("file://" + folder / "caf%E9.cnf")));
    EXPECT_EQ(Design.BackColor, SolidColor(Rgb(1, 2, 3)));
    ASSERT_EQ(Design.CnfFileName, odd); // otherwise the key would open a dialog
    Design.BackColor = SolidColor(Rgb(4, 5, 6));
    const std::size_t files = folder.Names().size();
    QTest::keyClick(&Window(), Qt::Key_S, Qt::ControlModifier);
    EXPECT_EQ(ReadWholeFile(odd), DesignFileText());
    EXPECT_EQ(folder.Names().size(), files) << "no second file";
    EXPECT_THAT(boxes.asked, IsEmpty());
    EXPECT_EQ(Window().Action(Menu::mnuRecent, 0)->text(),
              QString::fromStdString("&1 " + folder / "caf\u00E9.cnf"));
}

TEST_F(DesignInWindow, RecalledDesignAsksForNoProjection) {
    EXPECT_EQ(Area().accessibleDescription(), QString("Choose a projection, then Draw Map (Alt+D)"));
    WriteWholeFile(name, DesignFileText());
    desktop->BeginWith(name);
    EXPECT_EQ(Area().accessibleDescription(), QString("Draw Map (Alt+D) draws the map"));
}

TEST_F(DesignInWindow, OtherFilesCannotBeDropped) {
    WriteWholeFile(folder / "rivers.map", "");
    Drop(folder / "rivers.map");
    EXPECT_EQ(Design.CnfFileName, "");
    EXPECT_THAT(boxes.asked, IsEmpty());
}

TEST_F(DesignInWindow, ClosingAsksAboutUnsavedChanges) {
    Save();
    Design.BackColor = 0;
    Window().close();
    EXPECT_TRUE(Window().isVisible()) << "cancelled";
    boxes.Answer(BoxAnswer::Discard);
    Window().close();
    EXPECT_FALSE(Window().isVisible());
    EXPECT_THAT(boxes.Taken(), SizeIs(2));
}

TEST_F(DesignInWindow, EndOfTheSessionAsksNothingAndKeepsTheDesign) {
    Save();
    Design.BackColor = 0;
    Machine().changes->Accepted("Background Color", ChangeKind::Look);
    SessionEnd session(Window());
    session.End();
    EXPECT_FALSE(Window().isVisible());
    EXPECT_THAT(boxes.asked, IsEmpty());
    EXPECT_THAT(folder.Names(), Contains("Qmnt-kept-1.cnf"));
}

TEST_F(DesignInWindow, ClosingForgetsTheKeptDesign) {
    Machine().changes->Accepted("Background Color", ChangeKind::Look);
    EXPECT_THAT(folder.Names(), Contains("Qmnt-kept-1.cnf"));
    Window().close();
    EXPECT_THAT(folder.Names(), testing::Not(Contains("Qmnt-kept-1.cnf")));
}

TEST_F(DesignInWindow, RecentDesignsStandInTheirMenu) {
    const QAction* parent = Window().Action(Menu::mnuInput, RecentDesignsItem);
    EXPECT_FALSE(parent->isEnabled());
    Save();
    EXPECT_TRUE(parent->isEnabled());
    EXPECT_TRUE(Window().Action(Menu::mnuRecent, 0)->isVisible());
    EXPECT_TRUE(Window().Action(Menu::mnuRecent, 0)->text().endsWith(QLatin1String("map.cnf")));
    EXPECT_FALSE(Window().Action(Menu::mnuRecent, 1)->isVisible());
    Design.CnfFileName.clear(); // a change
    boxes.Answer(BoxAnswer::Discard);
    Window().Action(Menu::mnuRecent, 0)->trigger();
    EXPECT_EQ(Design.CnfFileName, name);
    boxes.Taken();
}

/// The boxes that ask about designs, as they are on the screen.
class DesignBoxes : public DesktopTest {
protected:
    DesignBoxes() : real(Window()) { Start(); }

    BoxAnswer Ask(BoxButtons buttons, const std::function<void(QMessageBox&)>& act) {
        InDialog([&](QDialog& dialog) { act(dynamic_cast<QMessageBox&>(dialog)); });
        return real.Ask("Title", "Text", buttons, BoxIcon::Exclamation);
    }
    static std::function<void(QMessageBox&)> Press(const QString& text) {
        return [text](QMessageBox& box) {
            for (QAbstractButton* button : box.buttons()) {
                if (button->text().remove(QLatin1Char('&')) == text) {
                    button->click();
                    return;
                }
            }
            ADD_FAILURE() << "no button " << text.toStdString();
            box.close();
        };
    }

    DesktopBoxes real;
};

TEST_F(DesignBoxes, SaveDiscardCancel) {
    EXPECT_EQ(Ask(BoxButtons::SaveDiscardCancel, Press(QStringLiteral("Save"))), BoxAnswer::Save);
    EXPECT_EQ(Ask(BoxButtons::SaveDiscardCancel, Press(QStringLiteral("Discard"))), BoxAnswer::Discard);
    EXPECT_EQ(Ask(BoxButtons::SaveDiscardCancel, Press(QStringLiteral("Cancel"))), BoxAnswer::Cancel);
    EXPECT_EQ(
        Ask(BoxButtons::SaveDiscardCancel, [](QMessageBox& box) { QTest::keyClick(&box, Qt::Key_Escape); }),
        BoxAnswer::Cancel);
}

TEST_F(DesignBoxes, LettersSaveAndCancelAndNeverDiscard) {
    const auto type = [](Qt::Key key) { return [key](QMessageBox& box) { QTest::keyClick(&box, key); }; };
    EXPECT_EQ(Ask(BoxButtons::SaveDiscardCancel, type(Qt::Key_S)), BoxAnswer::Save);
    EXPECT_EQ(Ask(BoxButtons::SaveDiscardCancel, type(Qt::Key_C)), BoxAnswer::Cancel);
    EXPECT_EQ(Ask(BoxButtons::SaveDiscardCancel,
                  [](QMessageBox& box) {
                      QTest::keyClick(&box, Qt::Key_D);
                      EXPECT_TRUE(box.isVisible());
                      QTest::keyClick(&box, Qt::Key_Escape);
                  }),
              BoxAnswer::Cancel);
    EXPECT_EQ(Ask(BoxButtons::RecallDiscard,
                  [](QMessageBox& box) {
                      QTest::keyClick(&box, Qt::Key_D);
                      EXPECT_TRUE(box.isVisible());
                      QTest::keyClick(&box, Qt::Key_R);
                  }),
              BoxAnswer::Recall);
}

TEST_F(DesignBoxes, RecallDiscardOrNeither) {
    EXPECT_EQ(Ask(BoxButtons::RecallDiscard, Press(QStringLiteral("Recall"))), BoxAnswer::Recall);
    EXPECT_EQ(Ask(BoxButtons::RecallDiscard, Press(QStringLiteral("Discard"))), BoxAnswer::Discard);
    EXPECT_EQ(Ask(BoxButtons::RecallDiscard, [](QMessageBox& box) { QTest::keyClick(&box, Qt::Key_Escape); }),
              BoxAnswer::Cancel);
    EXPECT_EQ(Ask(BoxButtons::RecallDiscard, [](QMessageBox& box) { box.close(); }), BoxAnswer::Cancel);
    EXPECT_EQ(Ask(BoxButtons::RecallDiscard, [](QMessageBox& box) { QTest::keyClick(&box, Qt::Key_Return); }),
              BoxAnswer::Recall);
}

} // namespace
} // namespace quelmont
