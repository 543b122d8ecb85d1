// Every projection from its menu item through its dialogs to the map, by keys and by mouse; the map
// is the one that quelmont-draw makes of the same figures.

#include "desktop/desktop_fixture.h"

#include "core/map_design.h"
#include "projection/projection_table.h"

#include <QAction>
#include <QLineEdit>
#include <QListWidget>
#include <QMenu>
#include <QMenuBar>
#include <QPushButton>
#include <QTest>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cstdlib>
#include <deque>

namespace quelmont {
namespace {

using testing::IsEmpty;

/// What is done in one dialog of a chain.
struct Step {
    const char* dialog;
    std::map<const char*, const char*> typed = {}; ///< characters, by field
    const char* line = nullptr;                    ///< of the list
};

/// A projection, the figures that a person types, and the same for the program without a window.
struct Journey {
    std::int16_t projNum;
    std::vector<Step> steps;
    const char* options;
};

void PrintTo(const Journey& journey, std::ostream* stream) {
    *stream << FindProjection(journey.projNum)->ProjName;
}

class FromMenuToMap : public DesktopTest, public testing::WithParamInterface<Journey> {
protected:
    FromMenuToMap() { Start(); }

    QPushButton* Button(QDialog& dialog, const char* name) {
        return dialog.findChild<QPushButton*>(QString::fromLatin1(name));
    }

    /// Does the steps in the dialogs that come one after the other.
    void InChain(std::deque<Step> steps, bool byMouse) {
        if (steps.empty()) {
            return;
        }
        InDialog([this, steps, byMouse](QDialog& dialog) mutable {
            const Step step = steps.front();
            steps.pop_front();
            ASSERT_EQ(dialog.objectName().toStdString(), step.dialog);
            for (const auto& [field, characters] : step.typed) {
                auto* edit = dialog.findChild<QLineEdit*>(QString::fromLatin1(field));
                ASSERT_NE(edit, nullptr) << field;
                if (byMouse) {
                    QTest::mouseClick(edit, Qt::LeftButton, {}, QPoint(3, edit->height() / 2));
                } else {
                    edit->setFocus(Qt::TabFocusReason);
                }
                QTest::keyClicks(edit, characters);
                QCoreApplication::processEvents();
            }
            if (step.line != nullptr) {
                auto* list = dialog.findChild<QListWidget*>();
                list->setCurrentItem(list->findItems(step.line, Qt::MatchContains).front());
            }
            InChain(steps, byMouse);
            if (byMouse) {
                QTest::mouseClick(Button(dialog, "OK"), Qt::LeftButton);
            } else {
                QTest::keyClick(dialog.focusWidget(), Qt::Key_Return);
            }
        });
    }

    void Choose(const ProjectionEntry& entry) {
        if (entry.mollweideIndex < 0) {
            Window().Action(Menu::mnuProj, entry.menuIndex)->trigger();
        } else {
            Window().Action(Menu::mnuProjMollweide, entry.mollweideIndex)->trigger();
        }
    }

    /// The picture that the program without a window makes.
    QImage DrawnWithoutWindow(const std::string& options) {
        const auto pair = [](int width, int height) {
            return std::to_string(width) + "x" + std::to_string(height);
        };
        const std::string file = folder / "map.png";
        const std::string command =
            std::string(QUELMONT_DRAW) + " --projection " + std::to_string(GetParam().projNum) +
            " --smooth --window " + pair(Area().DeviceSize().width(), Area().DeviceSize().height()) +
            " --screen " + pair(Design.FullScreenX, Design.FullScreenY) + " " + options + " " + file;
        EXPECT_EQ(std::system(command.c_str()), 0) << command;
        return QImage(QString::fromStdString(file)).convertToFormat(QImage::Format_RGB32);
    }

    void Travel(bool byMouse) {
        const ProjectionEntry& entry = *FindProjection(GetParam().projNum);
        InChain({GetParam().steps.begin(), GetParam().steps.end()}, byMouse);
        Choose(entry);
        EXPECT_EQ(Window().Caption(), entry.caption);
        EXPECT_THAT(boxes.asked, IsEmpty());
        EXPECT_FALSE(Design.DialogCancelled);
        EXPECT_TRUE(Design.BoundsChanged);
        DrawByKeys();
        const int passes = GetParam().projNum == ProjInterruptedMollweide ? 6 : 1; // a lobe each
        EXPECT_EQ(clock.beeps, passes);
        EXPECT_EQ(Picture().convertToFormat(QImage::Format_RGB32), DrawnWithoutWindow(GetParam().options));
    }
};

TEST_P(FromMenuToMap, ByKeys) { Travel(false); }

TEST_P(FromMenuToMap, ByMouse) { Travel(true); }

// clang-format off
const std::vector<Journey> Journeys = {
    {ProjMercator,             {{"LatLonBounds"}}, ""},
    {ProjEquirectangular,      {{"LatLonBounds"}, {"LatLonStdPar"}}, ""},
    {ProjCylindricalEqualArea, {{"LatLonBounds"}, {"LatLonStdPar"}}, ""},
    {ProjHammer,               {{"LatLonBounds"}}, ""},
    {ProjMollweide,            {{"LatLonBounds"}}, ""},
    {ProjInterruptedMollweide, {{"LatLonBounds"}, {"LatLonInterrupt"}}, ""},
    {ProjRobinson,             {{"LatLonBounds"}}, ""},
    {ProjEquidistantConic,     {{"LatLonBounds"}, {"LatLonStdPar"}}, ""},
    {ProjConformalConic,       {{"LatLonBounds"}, {"LatLonStdPar"}}, ""},
    {ProjAlbers,               {{"LatLonBounds"}, {"LatLonStdPar"}}, ""},
    {ProjGnomonic,             {{"LatLonBoundsAz"}}, ""},
    {ProjStereographic,        {{"LatLonBoundsAz"}}, ""},
    {ProjOrthographic,         {{"LatLonBoundsAz"}}, ""},
    {ProjVerticalPerspective,  {{"LatLonBoundsVp"}}, ""},
    {ProjAzimuthalEquidistant, {{"LatLonBoundsAz"}}, ""},
    {ProjAzimuthalEqualArea,   {{"LatLonBoundsAz"}}, ""},
    {ProjUtm,                  {{"UtmSpheroid"}, {"UtmParameters"}, {"UtmCoords"}}, ""},
};

const std::vector<Journey> TypedJourneys = {
    {ProjRobinson, {{"LatLonBounds", {{"LatN", "700000n"}, {"LatS", "200000s"}, {"LatGr", "0100000"},
                                      {"LonW", "0300000w"}, {"LonE", "0600000e"}, {"LonGr", "0150000"}}}},
     "--north 70N --south 20S --lat-grid 10 --west 30W --east 60E --lon-grid 15"},
    {ProjAlbers, {{"LatLonBounds", {{"LatN", "720000"}, {"LatS", "240000N"}, {"LatGr", "0060000"},
                                    {"LonW", "1400000"}, {"LonE", "0500000W"}, {"LonGr", "0100000"}}},
                  {"LatLonStdPar", {{"LatNorthStdPar", "553000"}, {"LatSouthStdPar", "293000"}}}},
     "--north 72N --south 24N --lat-grid 6 --west 140W --east 50W --lon-grid 10 --std-north 55.5N --std-south 29.5N"},
    {ProjCylindricalEqualArea, {{"LatLonBounds"}, {"LatLonStdPar", {{"LatNorthStdPar", "300000"}}}}, "--std-north 30N"},
    {ProjInterruptedMollweide, {{"LatLonBounds"}, {"LatLonInterrupt", {{"LonInt(0)", "0800000E"}, {"LonInt(4)", "0900000W"}}}},
     "--lobes-north 80E,100W --lobes-south 140E,90W"},
    {ProjStereographic, {{"LatLonBoundsAz", {{"LatCentral", "900000S"}, {"LonCentral", "0100000E"}, {"LatGr", "010"},
                                             {"LonGr", "030"}, {"AzRangeDist", "0600000"}}}},
     "--central-lat 90S --central-lon 10E --lat-grid 10 --lon-grid 30 --range 60"},
    {ProjVerticalPerspective, {{"LatLonBoundsVp", {{"LatCentral", "500000N"}, {"LonCentral", "0100000E"}, {"VpDistanceKM", "00010000"}}}},
     "--central-lat 50N --central-lon 10E --height-km 10000"},
    {ProjUtm, {{"UtmSpheroid", {}, "WGS84"}, {"UtmParameters", {{"UtmLonCentral", "0150000E"}}},
               {"UtmCoords", {{"UtmLatN", "06000000"}, {"UtmLatS", "05000000"}, {"UtmLonW", "0200000"}}}},
     "--spheroid \"WGS84 1984\" --utm-central-lon 15E --utm-north 6000000 --utm-south 5000000 --utm-west 200000"},
};
// clang-format on

std::string NameOf(const testing::TestParamInfo<Journey>& journey) {
    std::string name(FindProjection(journey.param.projNum)->ProjName);
    std::erase_if(name, [](char c) { return c == ' ' || c == '-'; });
    return name;
}

INSTANTIATE_TEST_SUITE_P(Proposed, FromMenuToMap, testing::ValuesIn(Journeys), NameOf);
INSTANTIATE_TEST_SUITE_P(Typed, FromMenuToMap, testing::ValuesIn(TypedJourneys), NameOf);

class MenuKeys : public DesktopTest {
protected:
    MenuKeys() { Start(); }
};

TEST_F(MenuKeys, ReachAnItemOfASubMenu) {
    InDialog([](QDialog& dialog) { QTest::keyClick(dialog.focusWidget(), Qt::Key_Escape); });
    QTest::keyClick(&Window(), Qt::Key_P, Qt::AltModifier);
    QMenu* menu = Window().Action(Menu::mnuBar, 1)->menu();
    ASSERT_TRUE(menu->isVisible());
    QTest::keyClick(menu, Qt::Key_W);
    QMenu* lower = Window().Action(Menu::mnuProj, 5)->menu();
    ASSERT_TRUE(lower->isVisible());
    QTest::keyClick(lower, Qt::Key_I);
    EXPECT_EQ(Design.ProjNum, ProjInterruptedMollweide);
    EXPECT_TRUE(Window().MenuChecked(Menu::mnuProjMollweide, 1));
    EXPECT_TRUE(Window().Action(Menu::mnuProjMollweide, 1)->isChecked());
    EXPECT_FALSE(Window().Action(Menu::mnuProjMollweide, 0)->isChecked());
}

TEST_F(MenuKeys, BoundariesOpenWithWhatWasAccepted) {
    InDialog([](QDialog& dialog) {
        QTest::keyClicks(dialog.focusWidget(), "60");
        QTest::keyClick(dialog.focusWidget(), Qt::Key_Return);
    });
    Window().Action(Menu::mnuProj, 6)->trigger();
    Activate();
    std::string shown;
    InDialog([&](QDialog& dialog) {
        shown = dialog.findChild<QLineEdit*>("LatN")->text().toStdString();
        QTest::keyClick(dialog.focusWidget(), Qt::Key_Escape);
    });
    QTest::keyClick(&Window(), Qt::Key_M, Qt::AltModifier);
    QTest::keyClick(Window().Action(Menu::mnuBar, 2)->menu(), Qt::Key_B);
    EXPECT_EQ(shown, "60    00    00    N");
}

} // namespace
} // namespace quelmont
