#pragma once

#include "desktop/grid_table.h"
#include "platform/form.h"

#include <QDialog>

#include <functional>
#include <string>
#include <string_view>
#include <vector>

class QAbstractSpinBox;
class QCheckBox;
class QLabel;
class QListWidget;
class QPushButton;
class QRadioButton;
class QSpinBox;
class QVBoxLayout;

namespace quelmont {

class ComboField;
class FittingArea;
class LetterSample;
class MaskedEdit;
class PageView;

/// The widgets that show the controls of a form, one function for each kind of control. A widget and its
/// control are bound: the widget shows what the control has, and what is done to the widget is passed to the
/// form. What the dialog does with focus, keys and the screen is FormView's (form_view.h).
///
/// Buttons get the focus by the tab key only.
class FormWidgets : public QDialog {
public:
    /// The column of the dialog's parts from top to bottom, above the buttons. The dialog is as large as
    /// they need; where the screen is smaller, long captions wrap and the parts scroll.
    QVBoxLayout* Column() const { return column; }
    /// Units of the screen that the parts may take beside a bar to scroll them.
    QSize Room() const;
    /// A distance that grows with the letters.
    int Gap() const;

    /// The widgets of the form's controls by their names; a parent owns them once they lie in its
    /// layout. An explanation wraps its text.
    QLabel* AddLabel(std::string_view name);
    QLabel* AddExplanation(std::string_view name);
    QPushButton* AddButton(std::string_view name);
    QRadioButton* AddOption(std::string_view name);
    QCheckBox* AddCheck(std::string_view name);
    QWidget* AddEdit(std::string_view name);
    QSpinBox* AddSpin(std::string_view name);
    QListWidget* AddList(std::string_view name);
    QWidget* AddPalette(std::string_view name);
    GridTable* AddGrid(std::string_view name, GridTable::Painter painter);
    ComboField* AddCombo(std::string_view name);
    LetterSample* AddSample(std::string_view name);
    PageView* AddPage(std::string_view name);
    /// A title and its items on the dialog's menu bar.
    void AddMenu(std::string_view name);
    /// The widget of a field, by its kind.
    QWidget* AddField(std::string_view name);
    /// The label with a field's caption; its mnemonic leads to the field, which is called by it.
    QLabel* CaptionOf(QWidget* field);
    /// The words above the columns of an angle's field; null above any other.
    QWidget* HeadsOf(QWidget* field);

    /// Binds a widget of a view's own to a control: show is called whenever the control may have
    /// changed, and focus goes both ways.
    void Bind(std::string_view name, QWidget* widget, std::function<void(const Control&)> show);
    /// Shows something more of a control, whose own widget is bound already.
    void Also(std::string_view name, std::function<void(const Control&)> show);
    Form& Shown() const { return form; }

protected:
    FormWidgets(Form& form, QWidget* parent);

    struct Binding {
        std::string name;
        QWidget* widget; ///< null for those of Also
        std::function<void(const Control&)> show;
    };

    /// A button was pressed, by the mouse or by a key.
    virtual void Press(const std::string& button) = 0;
    /// Gives the widget of the form's focus the focus of the dialog.
    void FollowFocus();

    Form& form;
    QVBoxLayout* outer; ///< the parts and the buttons
    FittingArea* area;
    QVBoxLayout* column;
    std::vector<Binding> bindings;
    std::vector<QAbstractSpinBox*> spins;
    std::vector<MaskedEdit*> edits;
    std::vector<PageView*> pages;
};

} // namespace quelmont
