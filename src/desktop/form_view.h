#pragma once

#include "desktop/form_widgets.h"

#include <initializer_list>
#include <string>
#include <string_view>
#include <vector>

class QGroupBox;

namespace quelmont {

/// A dialog on the screen. It shows the controls of a form and calls its handlers; the form decides
/// everything. The layout of each dialog arranges the widgets (boundary_layouts.h, look_layouts.h,
/// map_file_layouts.h).
///
/// A change of the focus reaches the form from the event queue: a message box that is shown inside a focus
/// event would swallow the click that caused it. Changes that a message box or another window brings are
/// none of the form's.
class FormView : public FormWidgets {
public:
    FormView(Form& shown, QWidget* parent);
    ~FormView() override;

    /// Escape and the close button.
    void reject() override;

    // What lays out a dialog calls these.

    /// Edits and spins with their captions one below the other, in line with other groups; under a
    /// title, when there is one. Labels with a caption are shown texts.
    /// A heading is a label above the fields.
    void AddFields(const QString& title, std::initializer_list<std::string_view> names,
                   std::string_view heading = {});
    /// The options of a frame under its heading.
    void AddFrame(std::string_view frame);
    /// The same, which lies in no layout yet. The rest of its height stays free.
    QGroupBox* FrameOfOptions(std::string_view frame);
    /// Buttons in a row at the lower right.
    void AddButtons(std::initializer_list<std::string_view> names);

    /// Where a control and its caption stand in the dialog; empty when it has none of that name in sight.
    QRect PlaceOf(std::string_view name) const;
    /// The page of the help about a control, by its number; without a name about the one that has the focus.
    int HelpContextOf(std::string_view name) const;

protected:
    void keyPressEvent(QKeyEvent* event) override;
    void showEvent(QShowEvent* event) override;
    /// A dialog that has grown while it is seen stays on the screen.
    void resizeEvent(QResizeEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    const Binding* Of(const QObject* widget) const;
    void FromForm();
    void FocusArrived(QObject* widget);
    /// FollowFocus after the form gave the focus to another control than the one that asked for it: an
    /// edit is entered anew, also the one that has it already.
    void TakeFocusBack(std::string_view asked);
    void Press(const std::string& button) override;
    void MoveToMiddle();
    void AlignCaptions() const;
    void WrapCaptions(int room) const;
    void FitScreen();

    std::vector<QLabel*> fieldCaptions;
    bool seen = false;
};

} // namespace quelmont
