#pragma once

#include "desktop/fitting_area.h"
#include "desktop/grid_table.h"
#include "platform/form.h"

#include <QDialog>

#include <functional>
#include <initializer_list>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

class QAbstractSpinBox;
class QCheckBox;
class QGridLayout;
class QGroupBox;
class QLabel;
class QListWidget;
class QPushButton;
class QRadioButton;
class QSpinBox;
class QVBoxLayout;

namespace quelmont {

class MaskedEdit;

/// A dialog on the screen. It shows the controls of a form and calls its handlers; the form decides
/// everything. The layout of each dialog arranges the widgets (boundary_layouts.h, look_layouts.h,
/// map_file_layouts.h).
///
/// Buttons get the focus by the tab key only. A change of the focus reaches the form from the event
/// queue: a message box that is shown inside a focus event would swallow the click that caused it. Changes
/// that a message box or another window brings are none of the form's.
class FormView : public QDialog {
public:
    FormView(Form& form, QWidget* parent);
    ~FormView() override;

    /// Escape and the close button.
    void reject() override;

    // What lays out a dialog calls these.

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
    /// The label with a field's caption; its mnemonic leads to the field, which is called by it.
    QLabel* CaptionOf(QWidget* field);
    /// The words above the columns of an angle's field; null above any other.
    QWidget* HeadsOf(QWidget* field);
    /// The widget of a field, by its kind.
    QWidget* AddField(std::string_view name);

    /// Edits and spins with their captions one below the other, in line with other groups; under a
    /// title, when there is one. Labels with a caption are shown texts.
    /// A heading is a label above the fields.
    void AddFields(const QString& title, std::initializer_list<std::string_view> names,
                   std::string_view heading = {});
    /// The options of a frame under its heading.
    void AddFrame(std::string_view frame);
    /// Buttons in a row at the lower right.
    void AddButtons(std::initializer_list<std::string_view> names);

    /// Binds a widget of a view's own to a control: show is called whenever the control may have
    /// changed, and focus goes both ways.
    void Bind(std::string_view name, QWidget* widget, std::function<void(const Control&)> show);
    /// Shows something more of a control, whose own widget is bound already.
    void Also(std::string_view name, std::function<void(const Control&)> show);
    Form& Shown() const { return form; }

    /// Where a control and its caption stand in the dialog; empty when it has none of that name in sight.
    QRect PlaceOf(std::string_view name) const;

protected:
    void keyPressEvent(QKeyEvent* event) override;
    void showEvent(QShowEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    struct Binding {
        std::string name;
        QWidget* widget;
        std::function<void(const Control&)> show;
    };

    const Binding* Of(const QObject* widget) const;
    void FromForm();
    void FocusArrived(QObject* widget);
    void FollowFocus();
    /// The same after the form gave the focus to another control than the one that asked for it: an
    /// edit is entered anew, also the one that has it already.
    void TakeFocusBack(std::string_view asked);
    void Press(const std::string& button);
    void MoveToMiddle();
    void AlignCaptions() const;
    void WrapCaptions(int room) const;
    void FitScreen();

    Form& form;
    QVBoxLayout* outer; ///< the parts and the buttons
    FittingArea* area;
    QVBoxLayout* column;
    std::vector<Binding> bindings; ///< those of Also have no widget
    std::vector<QLabel*> fieldCaptions;
    std::vector<QAbstractSpinBox*> spins;
    std::vector<MaskedEdit*> edits;
    bool seen = false;
};

} // namespace quelmont
