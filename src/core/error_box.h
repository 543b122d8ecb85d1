#pragma once

#include "core/run_time_error.h"

#include <string_view>
#include <utility>

namespace quelmont {

/// Message box of a routine's error handler: "Error in " and the routine's name, "Error: " and the
/// description.
void ShowErrorBox(std::string_view routine, const RunTimeError& error);

/// Message box of a failed surface or system operation, under the title "Windows API Error".
void ShowApiErrorBox(std::string_view text);

/// The same if the operation has failed.
inline void ReportUnless(bool done, std::string_view text) {
    if (!done) {
        ShowApiErrorBox(text);
    }
}

/// Any other message box that a draw may show more than once.
void ShowDrawBox(std::string_view title, std::string_view text);

/// Between the two calls, which enclose a draw, each of these message boxes is shown once: a
/// failing point would otherwise show as many as the map has points. Repeats are counted, and
/// EndDrawBoxes tells their number in one last message box.
void BeginDrawBoxes();
void EndDrawBoxes();
/// Whether any was shown since BeginDrawBoxes.
bool DrawBoxesShown();
/// Forgets a draw's message boxes and their repeats; shows nothing.
void ResetDrawBoxes();

/// Runs a routine that has an error handler. Returns false after a failure, whose message box was shown.
template <typename Body>
bool Guarded(std::string_view routine, Body&& body) {
    try {
        std::forward<Body>(body)();
        return true;
    } catch (const RunTimeError& error) {
        ShowErrorBox(routine, error);
        return false;
    }
}

} // namespace quelmont
