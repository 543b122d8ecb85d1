#include "core/field_entry.h"

#include "core/text_encoding.h"
#include "platform/characters.h"

#include <algorithm>
#include <utility>

namespace quelmont {

namespace {

/// Longer than anything that a field can take, blanks included.
constexpr std::size_t MostBytesPasted = 256;
constexpr std::size_t MostKeys = 64;
constexpr std::size_t MostTextsKept = 100;

/// What a value may begin with.
bool Begins(char key) { return key != ' '; }

/// The keys of a pasted text without blanks at its ends; empty when there are none, or one is unknown.
std::string KeysOf(const MaskedText& field, std::string_view pasted) {
    constexpr std::string_view ends = " \t\r\n";
    const std::size_t first = pasted.find_first_not_of(ends);
    if (pasted.size() > MostBytesPasted || first == std::string_view::npos) {
        return {};
    }
    pasted = pasted.substr(first, pasted.find_last_not_of(ends) - first + 1);
    std::string keys;
    for (const char32_t character : Characters(pasted)) {
        const char key = KeyOf(field, character);
        if (key == 0) {
            return {};
        }
        keys += key;
    }
    return keys;
}

} // namespace

void FieldEntry::Begin(const MaskedText& over) {
    base = over;
    keys.clear();
    fresh = true;
    selected = 0;
    cursor = field.PlaceFrom(0);
}

void FieldEntry::Show(std::string_view text) {
    if (text == field.Text()) {
        return;
    }
    field.SetText(text);
    Begin(field);
    run = Run::None;
    undone.clear();
    redone.clear();
}

void FieldEntry::Enter() {
    Leave();
    Begin(field);
}

void FieldEntry::Leave() {
    if (fresh && !keys.empty()) {
        if (const auto view = TypeOver(base, keys, true)) {
            field.SetText(view->text);
        }
    }
    base = field;
    keys.clear();
    run = Run::None;
}

void FieldEntry::MoveCursor(std::size_t column) {
    cursor = std::min(column, field.Mask().size());
    selected = 0;
    keys.clear();
    fresh = false;
    run = Run::None;
}

void FieldEntry::Select(std::size_t first, std::size_t last) {
    if (first == last && first == cursor) {
        selected = 0;
        return;
    }
    if (first != cursor || last - first != selected) {
        MoveCursor(first);
        selected = last - first;
    }
}

void FieldEntry::Remember(Run next) {
    if (run == Run::None || run != next) {
        if (undone.size() == MostTextsKept) {
            undone.erase(undone.begin());
        }
        undone.push_back(field.Text());
        redone.clear();
    }
    run = next;
}

bool FieldEntry::Restore(Texts& from, Texts& into) {
    while (!from.empty() && from.back() == field.Text()) {
        from.pop_back();
    }
    if (from.empty()) {
        return false;
    }
    into.push_back(field.Text());
    field.SetText(from.back());
    from.pop_back();
    Begin(field);
    run = Run::None;
    return true;
}

bool FieldEntry::CanUndo() const {
    return std::any_of(undone.begin(), undone.end(),
                       [this](const std::string& text) { return text != Text(); });
}

bool FieldEntry::Undo() { return Restore(undone, redone); }

bool FieldEntry::Redo() { return Restore(redone, undone); }

void FieldEntry::Take(std::string newKeys, const TypedView& view) {
    Remember(Run::Value);
    keys = std::move(newKeys);
    field.SetText(view.text);
    cursor = view.cursor;
}

bool FieldEntry::TypeIntoValue(char key) {
    std::string next = keys;
    if (key == ' ' && !next.empty() && next.back() == ' ') {
        return true;
    }
    if (next.size() == MostKeys) {
        return false;
    }
    // A second letter corrects the first.
    const std::size_t last = next.find_last_not_of(' ');
    if (IsLetter(key) && last != std::string::npos && IsLetter(next[last])) {
        next.erase(last);
    }
    next += key;
    if (const auto view = TypeOver(base, next, false)) {
        Take(next, *view);
        return true;
    }
    if (IsLetter(key) && field.Mask().find('?') == std::string::npos && !keys.empty()) {
        // It ends the group, though it has no place.
        if (const auto view = TypeOver(base, keys + ' ', false)) {
            Take(keys + ' ', *view);
        }
    }
    return false;
}

bool FieldEntry::TypeKey(char key) {
    if (key == 0) {
        return false;
    }
    if (AllSelected()) {
        const FieldEntry before = *this;
        MaskedText cleared = field;
        cleared.Erase(0, cleared.Mask().size());
        Begin(Begins(key) ? cleared : field);
        run = Run::None;
        if (TypeIntoValue(key)) {
            return true;
        }
        *this = before;
        return false;
    }
    selected = 0;
    if (fresh) {
        return TypeIntoValue(key);
    }
    MaskedText typed = field;
    std::size_t behind = cursor;
    if (!typed.Type(behind, key)) {
        return false;
    }
    Remember(Run::Columns);
    field = typed;
    cursor = behind;
    return true;
}

bool FieldEntry::Type(std::string_view characters) {
    const auto typed = Characters(characters);
    return std::all_of(typed.begin(), typed.end(),
                       [this](char32_t character) { return TypeKey(KeyOf(field, character)); });
}

bool FieldEntry::PasteColumns(const std::string& pasted) {
    MaskedText typed = field;
    std::size_t behind = cursor;
    for (const char digit : pasted) {
        if (!typed.Type(behind, digit)) {
            return false;
        }
    }
    Remember(Run::None);
    field = typed;
    cursor = behind;
    return true;
}

bool FieldEntry::Paste(std::string_view characters) {
    const std::string pasted = KeysOf(field, characters);
    if (pasted.empty() || !Begins(pasted.front()) ||
        std::count_if(pasted.begin(), pasted.end(), IsLetter) > 1) {
        return false;
    }
    const std::size_t place = field.PlaceFrom(cursor);
    const bool atDigit = place < field.Mask().size() && field.Mask()[place] == '%';
    if (!fresh && !AllSelected() && cursor > 0 && atDigit &&
        std::all_of(pasted.begin(), pasted.end(), IsDigit)) {
        return PasteColumns(pasted);
    }
    MaskedText cleared = field;
    cleared.Erase(0, cleared.Mask().size());
    const auto view = TypeOver(cleared, pasted, true);
    if (!view || !view->hasDigits || !view->unmistakable) {
        return false;
    }
    Remember(Run::None);
    field.SetText(view->text);
    MoveCursor(field.Mask().size());
    return true;
}

void FieldEntry::Erase(std::size_t first, std::size_t last) {
    Remember(Run::Erasing);
    field.Erase(first, last);
}

bool FieldEntry::EraseSelected() {
    if (selected == 0) {
        return false;
    }
    const bool all = AllSelected();
    Erase(cursor, cursor + selected);
    selected = 0;
    if (all) {
        Begin(field);
    }
    return true;
}

/// Takes the last key of the value away.
void FieldEntry::EraseTyped() {
    const std::size_t place = field.PlaceBefore(cursor);
    if (IsDigit(keys.back()) && keys.find('.') == std::string::npos) {
        base.Erase(place, place + 1);
    }
    keys.pop_back();
    if (const auto view = TypeOver(base, keys, false)) {
        Take(keys, *view);
    }
}

void FieldEntry::Backspace() {
    if (EraseSelected()) {
        return;
    }
    if (fresh && !keys.empty()) {
        EraseTyped();
        return;
    }
    const std::size_t place = field.PlaceBefore(cursor);
    if (place < cursor) {
        Erase(place, cursor);
        cursor = place;
        fresh = false;
    }
}

void FieldEntry::Delete() {
    if (EraseSelected()) {
        return;
    }
    const std::size_t place = field.PlaceFrom(cursor);
    Erase(place, place + 1);
    cursor = field.PlaceFrom(place + 1);
    keys.clear();
    fresh = false;
}

} // namespace quelmont
