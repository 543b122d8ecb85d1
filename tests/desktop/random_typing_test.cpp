// Random keys, clicks and pastes in the real windows: whatever a person does, each field keeps its
// columns, shows what the dialog knows, and what is accepted is what the checks let pass.

#include "desktop/desktop_fixture.h"
#include "desktop/dialog_catalogue.h"

#include "core/map_design.h"
#include "dialogs/bounds/boundary_checks.h"

#include <QApplication>
#include <QClipboard>
#include <QLineEdit>
#include <QTest>

#include <gtest/gtest.h>

#include <algorithm>
#include <random>
#include <vector>

namespace quelmont {
namespace {

bool HasShape(const std::string& mask, const std::string& text) {
    return std::equal(mask.begin(), mask.end(), text.begin(), text.end(), [](char m, char c) {
        return m == '%' ? c >= '0' && c <= '9' : m == '?' ? c == ' ' || (c >= 'A' && c <= 'Z') : c == m;
    });
}

/// Boxes that somebody closes by any of their buttons.
class RandomAnswers : public Boxes {
public:
    explicit RandomAnswers(std::mt19937& random_) : random(random_) {}
    BoxAnswer Ask(std::string_view, std::string_view, BoxButtons buttons, BoxIcon) override {
        ++asked;
        const bool first = random() % 3 == 0;
        switch (buttons) {
        case BoxButtons::RetryCancel:
            return first ? BoxAnswer::Retry : BoxAnswer::Cancel;
        case BoxButtons::YesNo:
            return first ? BoxAnswer::Yes : BoxAnswer::No;
        default:
            return BoxAnswer::Ok;
        }
    }
    int asked = 0;

private:
    std::mt19937& random;
};

class RandomTyping : public DesktopTest, public testing::WithParamInterface<const char*> {
protected:
    RandomTyping() {
        Start();
        Machine().boxes = &answers;
    }

    std::size_t Below(std::size_t n) { return random() % n; }
    template <typename Values>
    auto One(const Values& values) {
        return values[Below(values.size())];
    }

    void TypeSomething(QLineEdit& field) {
        static const std::vector<const char*> typed = {"1", "0", "9", "45", "180", "7 ", "12.5",
                                                       "s", "N", "w", "E",  "x",   " ",  ".",
                                                       ":", "-", "'", "/",  "70 w"};
        QTest::keyClicks(&field, QString::fromUtf8(One(typed)));
    }
    void PasteSomething(QLineEdit& field) {
        static const std::vector<const char*> pasted = {
            "12:30:00 W", "-37.5", "40N", "garbage", "7 S\n8 E", "500,000", "0.99", "3045", "122°26′ E", ""};
        QApplication::clipboard()->setText(QString::fromUtf8(One(pasted)));
        QTest::keyClick(&field, Qt::Key_V, Qt::ControlModifier);
    }
    void PressSomething(QLineEdit& field) {
        static const std::vector<Qt::Key> keys = {Qt::Key_Left, Qt::Key_Right,     Qt::Key_Home,
                                                  Qt::Key_End,  Qt::Key_Backspace, Qt::Key_Delete};
        static const std::vector<Qt::Key> controls = {Qt::Key_A, Qt::Key_Z, Qt::Key_Y,        Qt::Key_X,
                                                      Qt::Key_K, Qt::Key_U, Qt::Key_Backspace};
        switch (Below(3)) {
        case 0:
            QTest::keyClick(&field, One(keys));
            break;
        case 1:
            QTest::keyClick(&field, One(keys), Qt::ShiftModifier);
            break;
        default:
            QTest::keyClick(&field, One(controls), Qt::ControlModifier);
        }
    }
    void Move(QDialog& dialog, const std::vector<QLineEdit*>& fields) {
        QLineEdit& field = *One(fields);
        const QPoint place(static_cast<int>(Below(static_cast<std::size_t>(field.width()))),
                           field.height() / 2);
        switch (Below(4)) {
        case 0:
            QTest::mouseClick(&field, Qt::LeftButton, {}, place);
            break;
        case 1:
            QTest::mouseDClick(&field, Qt::LeftButton, {}, place);
            break;
        default:
            QTest::keyClick(dialog.focusWidget(), Below(2) == 0 ? Qt::Key_Tab : Qt::Key_Backtab);
        }
        QCoreApplication::processEvents();
    }
    void Step(QDialog& dialog, const std::vector<QLineEdit*>& fields) {
        auto* field = qobject_cast<QLineEdit*>(dialog.focusWidget());
        if (field == nullptr || std::find(fields.begin(), fields.end(), field) == fields.end() ||
            Below(6) == 0) {
            Move(dialog, fields);
            return;
        }
        switch (Below(4)) {
        case 0:
            PasteSomething(*field);
            break;
        case 1:
            PressSomething(*field);
            break;
        default:
            TypeSomething(*field);
        }
    }

    std::mt19937 random{20260402};
    RandomAnswers answers{random};
};

TEST_P(RandomTyping, KeepsTheColumnsAndAcceptsWhatTheChecksKnow) {
    const auto& all = DialogCatalogue();
    const auto entry = std::find_if(all.begin(), all.end(),
                                    [](const CataloguedDialog& dialog) { return dialog.name == GetParam(); });
    ASSERT_NE(entry, all.end());
    int accepted = 0;
    for (int run = 0; run < 15; ++run) {
        const std::unique_ptr<Form> form = entry->make();
        InDialog([&](QDialog& dialog) {
            std::vector<QLineEdit*> fields;
            for (const Control& control : form->Controls()) {
                if (control.kind == ControlKind::Edit && control.enabled) {
                    fields.push_back(dialog.findChild<QLineEdit*>(QString::fromStdString(control.name)));
                }
            }
            const int steps = run == 0 ? 0 : run % 3 == 0 ? 5 : 60;
            for (int step = 0; step < steps && dialog.isVisible(); ++step) {
                Step(dialog, fields);
                for (const QLineEdit* field : fields) {
                    const Control& control = form->At(field->objectName().toStdString());
                    const std::string shown = field->text().toStdString();
                    ASSERT_TRUE(HasShape(control.mask, shown)) << control.name << ": " << shown;
                    ASSERT_EQ(shown, control.text);
                }
            }
            QTest::keyClick(dialog.focusWidget(), Qt::Key_Return);
            QCoreApplication::processEvents();
            if (dialog.isVisible()) {
                dialog.reject();
            }
        });
        Design.DialogCancelled = true;
        Machine().forms->Show(*form);
        if (Design.DialogCancelled) {
            continue;
        }
        ++accepted;
        const int asked = answers.asked;
        for (const BoundaryField& field : BoundaryFields()) {
            if (field.dialog == form->ClassName()) {
                const std::string& text = form->At(field.control).text;
                EXPECT_FALSE(IsRefused(CheckBoundaryField(field.dialog, field.control, text))) << text;
            }
        }
        EXPECT_EQ(answers.asked, asked);
    }
    EXPECT_GT(accepted, 0);
}

INSTANTIATE_TEST_SUITE_P(Dialogs, RandomTyping,
                         testing::Values("lat-lon-bounds", "lat-lon-std-par", "lat-lon-std-par-cylinder",
                                         "lat-lon-bounds-az", "lat-lon-bounds-vp", "lat-lon-interrupt",
                                         "utm-coords"),
                         [](const auto& dialog) {
                             std::string name = dialog.param;
                             std::replace(name.begin(), name.end(), '-', '_');
                             return name;
                         });

} // namespace
} // namespace quelmont
