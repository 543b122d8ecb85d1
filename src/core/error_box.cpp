#include "core/error_box.h"

#include "platform/machine.h"

#include <set>
#include <string>

namespace quelmont {

namespace {

struct DrawBoxes {
    bool drawing = false;
    std::set<std::string> shown;
    long repeats = 0;
};

DrawBoxes& State() {
    static DrawBoxes state;
    return state;
}

void ShowOnce(const std::string& title, const std::string& text) {
    DrawBoxes& state = State();
    if (state.drawing && !state.shown.insert(title + '\0' + text).second) {
        ++state.repeats;
        return;
    }
    Machine().boxes->Ask(title, text, BoxButtons::Ok, BoxIcon::Exclamation);
}

} // namespace

void ShowErrorBox(std::string_view routine, const RunTimeError& error) {
    ShowOnce("Error in " + std::string(routine), "Error: " + error.Description());
}

void ShowApiErrorBox(std::string_view text) { ShowOnce("Windows API Error", std::string(text)); }

void ShowDrawBox(std::string_view title, std::string_view text) {
    ShowOnce(std::string(title), std::string(text));
}

void BeginDrawBoxes() { State() = DrawBoxes{true, {}, 0}; }

void EndDrawBoxes() {
    const long repeats = State().repeats;
    ResetDrawBoxes();
    if (repeats > 0) {
        Machine().boxes->Ask("Errors while drawing",
                             "The messages shown while this map was drawn occurred " +
                                 std::to_string(repeats) + (repeats == 1 ? " more time." : " more times."),
                             BoxButtons::Ok, BoxIcon::Exclamation);
    }
}

bool DrawBoxesShown() { return !State().shown.empty(); }

void ResetDrawBoxes() { State() = DrawBoxes{}; }

} // namespace quelmont
