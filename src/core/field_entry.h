#pragma once

#include "core/typed_value.h"
#include "platform/masked_text.h"

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace quelmont {

/// Editing in a field of fixed columns: keys, pastes, erasing and undoing, and where the cursor
/// stands. Whatever is done, the text keeps the columns of its mask.
///
/// A field that was entered, or whose whole text is selected, takes what is typed for a new value
/// (typed_value.h), which is finished when the field is left. After a cursor key or a click, digits
/// replace one column each and nothing is moved.
class FieldEntry {
public:
    explicit FieldEntry(std::string_view mask) : field(mask), base(mask) {}

    const MaskedText& Field() const { return field; }
    const std::string& Text() const { return field.Text(); }
    /// The cursor stands before the column of this number.
    std::size_t Cursor() const { return cursor; }

    /// Another text from the program; what was typed before is forgotten. The same text changes nothing.
    void Show(std::string_view text);

    /// The field is given the focus, other than by a click: the cursor stands at its first column.
    void Enter();
    /// The field is left: what was typed is finished.
    void Leave();
    /// A cursor key or a click, even one that leaves the cursor where it was.
    void MoveCursor(std::size_t column);
    void MoveRight() { MoveCursor(field.PlaceFrom(cursor + 1)); }
    void MoveLeft() { MoveCursor(field.PlaceBefore(cursor)); }
    /// Columns first up to last are selected, none when both are the cursor. Selecting the whole
    /// text makes what is typed next a new value. To be called before each of the operations below.
    void Select(std::size_t first, std::size_t last);

    /// Types UTF-8 characters up to the first that has no place. False when there is one.
    bool Type(std::string_view characters);
    /// Takes a whole value, in any form that can be typed, in place of the old one; the letter stays
    /// when there is none in it. Digits alone, pasted after a cursor key or a click, replace the
    /// columns from the cursor on. False, and nothing is changed, when this cannot be done whole.
    bool Paste(std::string_view characters);
    /// Erases what is selected, else what was typed last or the digit before the cursor. Erased
    /// digits become 0; letters stay.
    void Backspace();
    /// Erases what is selected, else the digit behind the cursor.
    void Delete();

    /// Undo and redo: the text before the last run of typing or of erasing, or before the last paste, and
    /// back again. False when there is none.
    bool Undo();
    bool Redo();
    bool CanUndo() const;

private:
    /// Changes that follow one another without a move are undone as one.
    enum class Run { None, Value, Columns, Erasing };
    using Texts = std::vector<std::string>;

    bool AllSelected() const { return selected > 0 && cursor == 0 && selected == field.Mask().size(); }
    bool TypeKey(char key);
    bool TypeIntoValue(char key);
    bool PasteColumns(const std::string& pasted);
    bool EraseSelected();
    void EraseTyped();
    void Erase(std::size_t first, std::size_t last);
    /// Begins a new value over a text.
    void Begin(const MaskedText& over);
    /// Shows what the keys of the value mean.
    void Take(std::string newKeys, const TypedView& view);
    void Remember(Run next);
    bool Restore(Texts& from, Texts& into);

    MaskedText field;
    MaskedText base;   ///< what the keys are typed over
    std::string keys;  ///< of the value that is being typed
    bool fresh = true; ///< whether digits make a new value
    std::size_t cursor = 0;
    std::size_t selected = 0; ///< columns from the cursor on
    Run run = Run::None;
    Texts undone; ///< earlier texts, the latest last
    Texts redone;
};

} // namespace quelmont
