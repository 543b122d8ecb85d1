#pragma once

#include <string_view>

namespace quelmont {

enum class BoxButtons { Ok, RetryCancel, YesNo, SaveDiscardCancel, RecallDiscard, AbortRetryIgnore };
enum class BoxIcon { Exclamation, Information };
enum class BoxAnswer { Ok, Retry, Cancel, Yes, No, Save, Discard, Recall, Abort, Ignore };

/// The answer of a message box that was closed without a button, or never shown.
constexpr BoxAnswer AnswerOfClosed(BoxButtons buttons) {
    return buttons == BoxButtons::Ok                 ? BoxAnswer::Ok
           : buttons == BoxButtons::YesNo            ? BoxAnswer::No
           : buttons == BoxButtons::AbortRetryIgnore ? BoxAnswer::Abort
                                                     : BoxAnswer::Cancel;
}

/// Message boxes. The only way in which the program's logic addresses the user.
class Boxes {
public:
    virtual ~Boxes() = default;

    /// Shows a modal message box and returns the button that closed it, else AnswerOfClosed. Texts are UTF-8;
    /// "\n" breaks a line.
    virtual BoxAnswer Ask(std::string_view title, std::string_view text, BoxButtons buttons,
                          BoxIcon icon) = 0;

    /// The same about a control of the dialog in use, which the box does not cover.
    virtual BoxAnswer AskAbout(std::string_view /*control*/, std::string_view title, std::string_view text,
                               BoxButtons buttons, BoxIcon icon) {
        return Ask(title, text, buttons, icon);
    }
};

} // namespace quelmont
