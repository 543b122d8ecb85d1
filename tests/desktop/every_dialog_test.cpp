// Walks over all dialogs and menus as they stand on the screen, at every size of letters and, since
// it runs once per ratio, on every kind of screen.

#include "desktop/desktop_fixture.h"
#include "desktop/dialog_catalogue.h"
#include "desktop/fitting_area.h"
#include "desktop/message_box.h"

#include "core/map_design.h"
#include "mainwindow/main_menu.h"

#include <QAbstractButton>
#include <QAbstractScrollArea>
#include <QAbstractSpinBox>
#include <QAccessible>
#include <QApplication>
#include <QComboBox>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QMenu>
#include <QMenuBar>
#include <QScreen>
#include <QTableWidget>
#include <QTest>
#include <QTextEdit>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <map>
#include <set>

namespace quelmont {
namespace {

using testing::IsEmpty;

/// The letter of a text's mnemonic, 0 when it has none.
char Mnemonic(const QString& text) {
    for (qsizetype at = text.indexOf('&'); at >= 0; at = text.indexOf('&', at + 2)) {
        if (at + 1 < text.size() && text[at + 1] != QLatin1Char('&')) {
            return text[at + 1].toLower().toLatin1();
        }
    }
    return 0;
}

bool IsField(const QWidget* widget) {
    return qobject_cast<const QAbstractSpinBox*>(widget) != nullptr ||
           qobject_cast<const QListWidget*>(widget) != nullptr ||
           qobject_cast<const QTableWidget*>(widget) != nullptr ||
           qobject_cast<const QComboBox*>(widget) != nullptr ||
           (qobject_cast<const QLineEdit*>(widget) != nullptr &&
            qobject_cast<const QAbstractSpinBox*>(widget->parentWidget()) == nullptr &&
            qobject_cast<const QComboBox*>(widget->parentWidget()) == nullptr) ||
           widget->objectName() == QLatin1String("ColorSquare");
}

QString Where(const QWidget* widget) {
    return QString::fromLatin1(widget->metaObject()->className()) + ' ' + widget->objectName();
}

class EveryDialog : public DesktopTest {
protected:
    EveryDialog() : before(QApplication::font()) { Start(); }
    ~EveryDialog() override { QApplication::setFont(before); }

    static void EnlargeLetters(int percent) {
        QFont font = QApplication::font();
        font.setPointSizeF(font.pointSizeF() * percent / 100.0);
        QApplication::setFont(font);
    }

    void Open(const CataloguedDialog& dialog, std::function<void(QDialog&)> action) {
        const std::unique_ptr<Form> form = dialog.make();
        InDialog([&](QDialog& shown) {
            EXPECT_EQ(shown.objectName().toStdString(), form->ClassName());
            action(shown);
            shown.reject();
        });
        Machine().forms->Show(*form);
        EXPECT_TRUE(form->Closed());
    }
    void InEach(std::function<void(QDialog&)> action) {
        for (const CataloguedDialog& dialog : DialogCatalogue()) {
            SCOPED_TRACE(dialog.name);
            Open(dialog, action);
        }
        EXPECT_THAT(boxes.asked, IsEmpty());
    }

    static void ExpectNothingCutOff(QDialog& dialog) {
        // What is above the buttons can be scrolled into sight.
        const QWidget* contents = dialog.findChild<FittingArea*>()->widget();
        for (const QWidget* widget : dialog.findChildren<QWidget*>()) {
            if (!widget->isVisible() ||
                qobject_cast<const QAbstractScrollArea*>(widget->parentWidget()) != nullptr ||
                qobject_cast<const QComboBox*>(widget->parentWidget()) != nullptr ||
                qobject_cast<const QAbstractSpinBox*>(widget->parentWidget()) != nullptr) {
                continue;
            }
            const std::string where = Where(widget).toStdString();
            const QWidget& ground = contents->isAncestorOf(widget) ? *contents : dialog;
            const QRect place(widget->mapTo(&ground, QPoint(0, 0)), widget->size());
            EXPECT_TRUE(ground.rect().contains(place) || widget == contents) << where;
            const auto* text = qobject_cast<const QLabel*>(widget);
            if (qobject_cast<const QAbstractScrollArea*>(widget) == nullptr &&
                (text == nullptr || !text->wordWrap()) &&
                widget->sizePolicy().horizontalPolicy() != QSizePolicy::Ignored) {
                EXPECT_GE(widget->width(), widget->sizeHint().width()) << where;
            }
            if (qobject_cast<const QAbstractScrollArea*>(widget) == nullptr &&
                (text == nullptr || !text->wordWrap())) {
                EXPECT_GE(widget->height(), widget->sizeHint().height()) << where;
            }
            if (text != nullptr && text->wordWrap()) {
                EXPECT_GE(text->height(), text->heightForWidth(text->width())) << where;
            }
            if (const auto* list = qobject_cast<const QListWidget*>(widget);
                list != nullptr && list->horizontalScrollBarPolicy() == Qt::ScrollBarAlwaysOff) {
                EXPECT_GE(list->viewport()->width(), list->sizeHintForColumn(0)) << where;
            }
        }
    }

private:
    QFont before;
};

TEST_F(EveryDialog, CutsNothingOffAtAnySizeOfLetters) {
    for (const int percent : {100, 150, 200}) {
        SCOPED_TRACE(percent);
        QApplication::setFont(QFont());
        EnlargeLetters(percent);
        InEach([](QDialog& dialog) { ExpectNothingCutOff(dialog); });
    }
}

TEST_F(EveryDialog, HasHeadsAboveTheColumnsOfAngles) {
    int angles = 0;
    InEach([&](QDialog& dialog) {
        for (const auto* field : dialog.findChildren<QLineEdit*>()) {
            if (!field->text().contains("    ")) {
                continue;
            }
            ++angles;
            const QRect place(field->mapTo(&dialog, QPoint(0, 0)), field->size());
            bool headed = false;
            for (const auto* widget : dialog.findChildren<QWidget*>()) {
                const QPoint corner = widget->mapTo(&dialog, QPoint(0, 0));
                headed =
                    headed || (widget->objectName().endsWith("Heads") && widget->isVisible() &&
                               widget->parentWidget() == field->parentWidget() &&
                               corner.x() == place.left() && corner.y() + widget->height() <= place.top());
            }
            EXPECT_TRUE(headed) << Where(field).toStdString();
        }
    });
    EXPECT_GE(angles, 25);
}

TEST_F(EveryDialog, ColumnsOfAnglesLieBelowOneAnother) {
    InEach([&](QDialog& dialog) {
        std::map<int, std::set<int>> minutes;
        for (auto* field : dialog.findChildren<QLineEdit*>()) {
            const auto place = field->text().indexOf("    ");
            if (place < 0) {
                continue;
            }
            const int cursor = field->cursorPosition();
            field->setCursorPosition(static_cast<int>(place) + 4);
            const int left = field->mapTo(&dialog, QPoint(0, 0)).x();
            minutes[left].insert(field->inputMethodQuery(Qt::ImCursorRectangle).toRect().left());
            field->setCursorPosition(cursor);
        }
        for (const auto& [left, places] : minutes) {
            EXPECT_LE(*places.rbegin() - *places.begin(), 1) << "fields at " << left;
        }
    });
}

TEST_F(EveryDialog, FitsOnASmallScreenInUsualLetters) {
    InEach([](QDialog& dialog) {
        EXPECT_LE(dialog.frameGeometry().width(), 800);
        EXPECT_LE(dialog.frameGeometry().height(), 600);
    });
}

TEST_F(EveryDialog, HasAMnemonicOnEachFieldAndButtonAndNoneTwice) {
    InEach([](QDialog& dialog) {
        std::set<char> seen;
        const auto take = [&](const QString& text) {
            const char letter = Mnemonic(text);
            ASSERT_NE(letter, 0) << text.toStdString();
            EXPECT_TRUE(seen.insert(letter).second) << text.toStdString();
        };
        std::set<const QWidget*> captioned;
        for (const auto* label : dialog.findChildren<QLabel*>()) {
            if (label->buddy() != nullptr && IsField(label->buddy())) {
                take(label->text());
                captioned.insert(label->buddy());
            }
        }
        for (const QWidget* widget : dialog.findChildren<QWidget*>()) {
            // The colours fill their dialog: they have the focus from the start.
            if (IsField(widget) && widget->isVisible() &&
                widget->objectName() != QLatin1String("ColorSquare") && widget->isEnabled()) {
                EXPECT_TRUE(captioned.contains(widget)) << Where(widget).toStdString();
            }
        }
        for (const auto* button : dialog.findChildren<QAbstractButton*>()) {
            if (!button->text().isEmpty()) {
                take(button->text());
            }
        }
        for (const auto* bar : dialog.findChildren<QMenuBar*>()) {
            for (const QAction* title : bar->actions()) {
                take(title->text());
            }
        }
    });
}

TEST_F(EveryDialog, NamesAllThatCanHaveTheFocusToAScreenReader) {
    InEach([](QDialog& dialog) {
        EXPECT_FALSE(dialog.windowTitle().isEmpty());
        for (QWidget* widget : dialog.findChildren<QWidget*>()) {
            // What has a proxy never has the focus itself.
            const bool proxied = widget->focusProxy() != nullptr;
            if (!widget->isVisible() || proxied ||
                (widget->focusPolicy() == Qt::NoFocus && !IsField(widget) &&
                 qobject_cast<QTextEdit*>(widget) == nullptr)) {
                continue;
            }
            const QString name = QAccessible::queryAccessibleInterface(widget)->text(QAccessible::Name);
            EXPECT_FALSE(name.isEmpty()) << Where(widget).toStdString();
            EXPECT_FALSE(name.contains('&')) << name.toStdString();
        }
    });
}

TEST_F(EveryDialog, TabGoesThroughTheControlsInTheirOrder) {
    for (const CataloguedDialog& entry : DialogCatalogue()) {
        SCOPED_TRACE(entry.name);
        const std::unique_ptr<Form> form = entry.make();
        std::vector<std::string> wanted;
        for (const Control& control : form->Controls()) {
            // Of options, Tab reaches the one that is chosen.
            const bool option = control.kind == ControlKind::Option;
            // A page gives the focus away.
            const bool page = control.kind == ControlKind::Page;
            if (CanHaveFocus(control.kind) && !page && control.enabled && (!option || control.value != 0)) {
                wanted.push_back(control.name);
            }
        }
        InDialog([&](QDialog& dialog) {
            std::vector<std::string> reached;
            for (std::size_t i = 0; i < wanted.size(); ++i) {
                const QWidget* widget = dialog.focusWidget();
                reached.push_back(widget == nullptr ? "" : widget->objectName().toStdString());
                QTest::keyClick(dialog.focusWidget(), Qt::Key_Tab);
                QCoreApplication::processEvents();
            }
            EXPECT_EQ(reached, wanted);
            EXPECT_EQ(dialog.focusWidget()->objectName().toStdString(), wanted.front()) << "and around";
            dialog.reject();
        });
        Machine().forms->Show(*form);
    }
    EXPECT_THAT(boxes.asked, IsEmpty());
}

TEST_F(EveryDialog, ClosesOnEscapeAndOnItsCloseButton) {
    for (const CataloguedDialog& entry : DialogCatalogue()) {
        SCOPED_TRACE(entry.name);
        for (const bool byKey : {true, false}) {
            const std::unique_ptr<Form> form = entry.make();
            InDialog([&](QDialog& dialog) {
                if (byKey) {
                    QTest::keyClick(dialog.focusWidget(), Qt::Key_Escape);
                } else {
                    dialog.close();
                }
            });
            Machine().forms->Show(*form);
            EXPECT_TRUE(form->Closed());
        }
    }
}

TEST_F(EveryDialog, LeavesNothingWhenOpenedAHundredTimes) {
    InEach([](QDialog&) {});
    const auto widgets = QApplication::allWidgets().size();
    for (const CataloguedDialog& dialog : DialogCatalogue()) {
        for (int i = 0; i < 100; ++i) {
            Open(dialog, [](QDialog&) {});
        }
    }
    EXPECT_EQ(QApplication::allWidgets().size(), widgets);
}

TEST_F(EveryDialog, TitlesOfMenusAndCommandsHaveMnemonicsOfTheirOwn) {
    std::set<char> seen;
    for (const MenuEntry& entry : MenuEntries(Menu::mnuBar)) {
        const char letter = Mnemonic(Window().Action(Menu::mnuBar, entry.index)->text());
        EXPECT_NE(letter, 0) << entry.text;
        EXPECT_TRUE(seen.insert(letter).second) << entry.text;
    }
}

TEST_F(EveryDialog, ItemsOfItsMenusHaveMnemonicsOfTheirOwn) {
    int menus = 0;
    InEach([&](QDialog& dialog) {
        for (const QMenuBar* bar : dialog.findChildren<QMenuBar*>()) {
            for (const QAction* title : bar->actions()) {
                std::set<char> seen;
                ++menus;
                EXPECT_FALSE(
                    QAccessible::queryAccessibleInterface(title->menu())->text(QAccessible::Name).isEmpty());
                for (const QAction* item : title->menu()->actions()) {
                    const char letter = Mnemonic(item->text());
                    EXPECT_TRUE(item->isSeparator() || letter != 0) << item->text().toStdString();
                    EXPECT_TRUE(item->isSeparator() || seen.insert(letter).second)
                        << item->text().toStdString();
                }
            }
        }
    });
    EXPECT_GT(menus, 0);
}

TEST_F(EveryDialog, MessageBoxesHaveMnemonicsOfTheirOwnAndNames) {
    for (const BoxButtons buttons :
         {BoxButtons::Ok, BoxButtons::RetryCancel, BoxButtons::YesNo, BoxButtons::SaveDiscardCancel,
          BoxButtons::RecallDiscard, BoxButtons::AbortRetryIgnore}) {
        MessageBox box("Recall Map Design", "Recall it?", buttons, BoxIcon::Exclamation, &Window());
        std::set<char> seen;
        for (const QAbstractButton* button : box.buttons()) {
            if (const char letter = Mnemonic(button->text()); letter != 0) {
                EXPECT_TRUE(seen.insert(letter).second) << button->text().toStdString();
            }
        }
        QAccessibleInterface& told = *QAccessible::queryAccessibleInterface(&box);
        EXPECT_EQ(told.text(QAccessible::Name), QStringLiteral("Recall Map Design"));
        EXPECT_EQ(told.text(QAccessible::Description), QStringLiteral("Recall it?"));
        EXPECT_EQ(told.role(), QAccessible::AlertMessage);
    }
}

TEST_F(EveryDialog, MainWindowNamesItsPartsToAScreenReader) {
    for (QWidget* widget : Window().findChildren<QWidget*>()) {
        if (!widget->isWindow() && widget->parentWidget() == &Window()) {
            EXPECT_NE(QAccessible::queryAccessibleInterface(widget)->text(QAccessible::Name), QString())
                << Where(widget).toStdString();
        }
    }
    for (QMenu* menu : Window().menuBar()->findChildren<QMenu*>()) {
        EXPECT_EQ(QAccessible::queryAccessibleInterface(menu)->text(QAccessible::Name),
                  menu->title().remove(QLatin1Char('&')));
    }
}

TEST_F(EveryDialog, MenusHaveTheirOwnMnemonicsAndFit) {
    for (const MenuEntry& entry : MenuEntries(Menu::mnuBar)) {
        if (!entry.below) {
            continue;
        }
        std::vector<QMenu*> menus = {Window().Action(Menu::mnuBar, entry.index)->menu()};
        for (std::size_t i = 0; i < menus.size(); ++i) {
            std::set<char> seen;
            for (QAction* action : menus[i]->actions()) {
                if (const char letter = Mnemonic(action->text()); letter != 0) {
                    EXPECT_TRUE(seen.insert(letter).second) << action->text().toStdString();
                }
                if (action->menu() != nullptr) {
                    menus.push_back(action->menu());
                }
            }
            menus[i]->popup(QPoint(0, 0));
            EXPECT_GE(menus[i]->width(), menus[i]->sizeHint().width());
            EXPECT_GE(menus[i]->height(), menus[i]->sizeHint().height());
            EXPECT_LE(menus[i]->height(), Window().screen()->availableGeometry().height());
            menus[i]->hide();
        }
    }
}

} // namespace
} // namespace quelmont
