#pragma once

#include "platform/masked_text.h"
#include "platform/page_line.h"

#include <cstdint>
#include <functional>
#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace quelmont {

enum class ControlKind {
    Label,
    Frame,   ///< a heading around options
    Edit,    ///< a text of fixed columns, typed over (masked_text.h)
    Spin,    ///< a number within limits
    Option,  ///< one of those in its frame is chosen
    Check,   ///< a box that is on or off, beside its text
    List,    ///< lines, of which one is selected
    Palette, ///< cells of colours in rows
    Grid,    ///< a table of cells under headings, of which one is current
    Combo,   ///< a text typed freely, or taken from a list of lines
    Sample,  ///< a text in a font, a size and a style of its own
    Page,    ///< a text in columns, to be read
    Menu,    ///< a title on the dialog's menu bar, with items below it
    Button,
};

/// Whether a control of that kind can have the focus.
constexpr bool CanHaveFocus(ControlKind kind) {
    return kind != ControlKind::Label && kind != ControlKind::Frame && kind != ControlKind::Sample &&
           kind != ControlKind::Menu;
}

enum class ControlEvent {
    Click,       ///< a button, an option, a check or a grid's cell was pressed; a line of a list or a combo,
                 ///< a colour or an item of a menu chosen
    DoubleClick, ///< a line of a list was double-clicked
    Change,      ///< a text or a number became another, another cell of a grid the current one
    MouseMove,   ///< another cell of a palette is under the mouse, or none
    Drop,        ///< files were dropped on a list
    Drag,        ///< a line of a list was dragged to another place
    Delete,      ///< the delete key was pressed on a list
    GotFocus,
    LostFocus,
};

/// A cell of a grid.
struct GridCell {
    std::string text = {};
    std::uint32_t textColor = 0;             ///< 0x00BBGGRR; 0 is the colour of the window's texts
    std::optional<std::uint32_t> color = {}; ///< the cell shows this colour, 0x00BBGGRR
    int picture = 0;                         ///< the cell shows a picture of that number; 0 none
    std::optional<bool> checked = {};        ///< the cell shows a check box before its text
    std::string words = {};                  ///< read out in place of the text; empty: the text is
    bool operator==(const GridCell&) const = default;
};

/// What the letters of a sample look like.
struct SampleLetters {
    std::string fontName;
    int points = 0;
    bool bold = false, italic = false, underline = false, strikeout = false;
    std::uint32_t color = 0, background = 0; ///< 0x00BBGGRR
    bool operator==(const SampleLetters&) const = default;
};

/// One control of a dialog as plain values; which of them mean something depends on the kind.
struct Control {
    std::string name;
    ControlKind kind = ControlKind::Label;
    std::string text = {};    ///< what a label, a button, an option, a check, an edit, a combo, a sample or a
                              ///< menu's title says; "&" before a mnemonic. Of a palette: the cell under the
                              ///< mouse, in words
    std::string caption = {}; ///< of the label beside a field; "&" before the mnemonic
    int value = 0;            ///< a spin's number, a palette's or a grid's cell (from 0, row by row, -1
                              ///< none); the line of a list or a combo or the item of a menu that was chosen
                              ///< last, -1 none; 1 for the option chosen and for a check that is on
    int minimum = 0;          ///< of a spin
    int maximum = 0;
    bool enabled = true;
    std::string mask = {};               ///< of an edit
    std::string frame = {};              ///< of an option: the frame it stands in
    std::vector<std::string> items = {}; ///< lines of a list or a combo, items of a menu, a grid's headings
    std::vector<std::uint32_t> colors = {}; ///< a palette's cells, 0x00BBGGRR; a button's swatch
    int columns = 0;                        ///< of a palette or a grid
    int marked = -1;                        ///< the palette's cell in use, -1 none
    std::vector<GridCell> cells = {};       ///< a grid's, row by row
    std::vector<std::string> dropped = {};  ///< the files dropped on a list last, full names
    int dragged = -1;                       ///< the line dragged last; it was let go before the line of value
    bool completes = false;                 ///< what is typed into a combo is completed to one of its lines
    SampleLetters letters = {};             ///< of a sample or a page
    std::vector<PageLine> page = {};        ///< the lines of a page
};

/// A modal dialog without a picture: its controls, the handlers of their events, and the focus.
///
/// The form owns the focus. Moving it runs LostFocus of the control that loses it, then GotFocus of
/// the one that gets it, unless a handler has called for the focus meanwhile (SetFocus): then it
/// goes where the handler wanted it. A handler that closes the form ends the move. A button that is
/// pressed first gets the focus, and is clicked only if it got it, so that the field left last is
/// checked. Cancelling (Escape, the close button, the button that cancels) moves no focus and checks
/// no field.
class Form {
public:
    Form(std::string className, std::string caption);
    virtual ~Form() = default;
    Form(const Form&) = delete;
    Form& operator=(const Form&) = delete;

    const std::string& ClassName() const { return formClass; }
    const std::string& Caption() const { return formCaption; }
    const std::vector<Control>& Controls() const { return controls; }
    /// The control of that name; std::out_of_range when the form has none.
    const Control& At(std::string_view name) const;
    const std::string& Focus() const { return focus; }
    /// The button that Enter presses; empty when there is none.
    const std::string& DefaultButton() const { return defaultButton; }
    bool Closed() const { return closed; }
    /// The page of the help that F1 opens.
    int HelpPage() const { return helpPage; }

    /// What a person can do. A disabled control ignores all of it.
    void MoveFocus(std::string_view name);
    void Press(std::string_view button);
    void PressDefault();
    void PressCancel();
    /// Turns a spin to a number, limited to its range, and runs its Change.
    void Spin(std::string_view name, int value);
    /// Leaves a text in an edit, in its mask's columns, or in a combo, and runs its Change. The line of the
    /// combo that was chosen last stays so.
    void Type(std::string_view name, std::string_view text);
    /// Chooses a line of a list or of a combo, whose text it becomes, an option, a cell of a palette or of a
    /// grid, an item of a menu, turns a check on (0: off), and runs its Click. What is not there is ignored.
    void Choose(std::string_view name, int index = 1);
    /// Runs the DoubleClick of a list, or presses the default button when it has none.
    void DoubleClick(std::string_view name);
    /// Makes a cell of a grid the current one, and runs its Change if it was not. One that is not
    /// there is ignored.
    void MoveTo(std::string_view name, int cell);
    /// Drops files on a line of a list, the last one if there is no such line, and runs its Drop.
    void Drop(std::string_view name, int line, std::vector<std::string> files);
    /// Drags a line of a list to before another one and runs its Drag. Lines that are not there are ignored.
    void Drag(std::string_view name, int line, int before);
    /// Presses the delete key on a list and runs its Delete.
    void PressDelete(std::string_view name);
    /// Moves the mouse over a cell of a palette, -1 for none.
    void Hover(std::string_view name, int cell);
    void PressF1() const;

    /// The watcher runs whenever a control's values may have changed; the view sets it.
    void SetWatcher(std::function<void()> watcher) { changed = std::move(watcher); }

protected:
    /// Adds a control. The first control that can have the focus gets it; of options the chosen one.
    Control& Add(Control control);
    Control& Edit(std::string_view name);
    /// Puts a text into an edit, in its mask's columns; no handler runs.
    void SetText(std::string_view name, std::string_view text);
    void On(std::string_view name, ControlEvent event, std::function<void()> handler);
    void SetFocus(std::string_view name);
    void SetDefaultButton(std::string_view name) { defaultButton = name; }
    void SetCancelButton(std::string_view name) { cancelButton = name; }
    void SetHelpPage(int page) { helpPage = page; }
    void Close();

    /// Runs a handler. A form whose handlers may fail catches their failures here: the view calls
    /// them from Qt's event loop, through which no exception may pass.
    virtual void Handle(const std::function<void()>& handler) { handler(); }

private:
    bool Handles(std::string_view name, ControlEvent event) const;
    void Run(std::string_view name, ControlEvent event);
    /// Moves the focus to where a handler asked for it, if one did.
    void GiveWantedFocus();
    void Changed() const;

    std::string formClass;
    std::string formCaption;
    std::vector<Control> controls;
    std::map<std::pair<std::string, ControlEvent>, std::function<void()>> handlers;
    std::function<void()> changed;
    std::string focus;
    std::string wanted; ///< where a handler wants the focus while it is being moved
    std::string defaultButton;
    std::string cancelButton;
    int helpPage = 0;
    bool closed = false;
};

/// Shows forms.
class Forms {
public:
    virtual ~Forms() = default;
    /// Shows a form modally and returns when it has closed.
    virtual void Show(Form& form) = 0;
};

} // namespace quelmont
