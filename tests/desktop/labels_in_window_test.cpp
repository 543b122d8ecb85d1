// Labels in the real window: drawn, hidden, made into texts and taken away again, by keys, without a draw of
// the map.

#include "desktop/desktop_fixture.h"

#include "core/map_design.h"
#include "dialogs/bounds/accept_bounds.h"
#include "dialogs/bounds/boundary_defaults.h"
#include "mainwindow/main_menu.h"
#include "mainwindow/map_draw.h"
#include "mapfiles/feature_rows.h"
#include "projection/projection_table.h"

#include <QAction>
#include <QListWidget>
#include <QTest>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace quelmont {
namespace {

using testing::IsEmpty;
using testing::SizeIs;

class LabelsInWindow : public DesktopTest {
protected:
    LabelsInWindow() {
        const std::string towns = folder / "towns.prn";
        WriteWholeFile(
            towns,
            "1 60 10 \"Oslo\"\n1 -34 151 \"Sydney\"\n1 41 -74 \"New York\"\n1 -23 -47 \"Sao Paulo\"\n");
        Start();
        InputFileEntry& file = Design.InputFiles.emplace_back(NewMapFileEntry(towns));
        file.MapFileType = SymbolFilledCircle;
        file.LabelFontName = "Arial";
        file.LabelFontSize = 14;
        Design.MapFileCount = static_cast<std::int16_t>(Design.InputFiles.size());
    }

    /// Opens the dialog of labels and takes the line behind so many presses of the arrow key from the first.
    void Take(int line) {
        Activate();
        InDialog([line](QDialog& dialog) {
            EXPECT_EQ(dialog.windowTitle(), QStringLiteral("Select Label Option"));
            QWidget* list = dialog.focusWidget();
            EXPECT_EQ(list->objectName(), QStringLiteral("LabelOption"));
            QTest::keyClick(list, Qt::Key_Home);
            for (int i = 0; i < line; ++i) {
                QTest::keyClick(list, Qt::Key_Down);
            }
            QTest::keyClick(list, Qt::Key_Return);
        });
        Window().Action(Menu::mnuDesign, LabelsItem)->trigger();
        Activate();
    }
    /// A draw without labels and one with them.
    void DrawBoth(QImage& bare, QImage& labelled) {
        Design.LabelsVisible = false;
        MapDraw();
        bare = Picture();
        Design.LabelsVisible = true;
        MapDraw();
        labelled = Picture();
        EXPECT_NE(bare, labelled);
        EXPECT_THAT(Design.MapLabels, SizeIs(4));
    }
};

TEST_F(LabelsInWindow, ComeAndGoWithoutADraw) {
    DrawByKeys();
    QImage bare;
    QImage labelled;
    DrawBoth(bare, labelled);
    const int beeps = clock.beeps;
    Take(0);
    EXPECT_EQ(Picture(), bare);
    EXPECT_EQ(SeenOfArea(), bare);
    Take(1);
    EXPECT_EQ(Picture(), labelled);
    Take(2);
    EXPECT_EQ(Picture(), labelled) << "they live on as texts";
    EXPECT_THAT(Design.TextItems, SizeIs(4));
    Take(3);
    EXPECT_EQ(Picture(), bare);
    EXPECT_THAT(Design.TextItems, IsEmpty());
    EXPECT_EQ(clock.beeps, beeps) << "the map was not drawn again";
    ExpectIdle();
}

TEST_F(LabelsInWindow, OfLobesComeAndGoToo) {
    DrawByKeys();
    Design.ProjNum = ProjInterruptedMollweide;
    Design.ProjName = FindProjection(Design.ProjNum)->ProjName;
    ProposeBounds();
    ASSERT_TRUE(AcceptBounds());
    ProposeLobes();
    ASSERT_TRUE(AcceptLobes());
    FinishAcceptance();
    QImage bare;
    QImage labelled;
    DrawBoth(bare, labelled);
    Take(2);
    EXPECT_EQ(Picture(), labelled) << "no letter was drawn twice";
    Take(3);
    EXPECT_EQ(Picture(), bare);
    Take(1);
    EXPECT_EQ(Picture(), labelled);
}

TEST_F(LabelsInWindow, DrawAfterTheDialogShowsTheSame) {
    DrawByKeys();
    QImage bare;
    QImage labelled;
    DrawBoth(bare, labelled);
    Take(2);
    MapDraw();
    EXPECT_EQ(Picture(), labelled) << "as texts";
    EXPECT_THAT(Design.TextItems, SizeIs(4));
    Take(3);
    MapDraw();
    EXPECT_EQ(Picture(), bare);
}

} // namespace
} // namespace quelmont
