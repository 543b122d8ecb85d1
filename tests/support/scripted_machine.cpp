#include "support/scripted_machine.h"

#include "core/run_time_error.h"

#include <cmath>
#include <gtest/gtest.h>

#include <algorithm>
#include <ostream>

namespace quelmont {

namespace {

std::vector<BoxAnswer> AnswersOf(BoxButtons buttons) {
    switch (buttons) {
    case BoxButtons::RetryCancel:
        return {BoxAnswer::Retry, BoxAnswer::Cancel};
    case BoxButtons::YesNo:
        return {BoxAnswer::Yes, BoxAnswer::No};
    case BoxButtons::SaveDiscardCancel:
        return {BoxAnswer::Save, BoxAnswer::Discard, BoxAnswer::Cancel};
    case BoxButtons::RecallDiscard:
        return {BoxAnswer::Recall, BoxAnswer::Discard};
    case BoxButtons::AbortRetryIgnore:
        return {BoxAnswer::Abort, BoxAnswer::Retry, BoxAnswer::Ignore};
    case BoxButtons::Ok:
        break;
    }
    return {BoxAnswer::Ok};
}

std::string Name(BoxAnswer answer) {
    switch (answer) {
    case BoxAnswer::Ok:
        return "Ok";
    case BoxAnswer::Retry:
        return "Retry";
    case BoxAnswer::Cancel:
        return "Cancel";
    case BoxAnswer::Yes:
        return "Yes";
    case BoxAnswer::No:
        return "No";
    case BoxAnswer::Save:
        return "Save";
    case BoxAnswer::Discard:
        return "Discard";
    case BoxAnswer::Recall:
        return "Recall";
    case BoxAnswer::Abort:
        return "Abort";
    case BoxAnswer::Ignore:
        return "Ignore";
    }
    return "?";
}

} // namespace

std::ostream& operator<<(std::ostream& stream, const AskedBox& box) {
    stream << '"' << box.title << "\": \"" << box.text << "\" [";
    const std::vector<BoxAnswer> answers = AnswersOf(box.buttons);
    for (std::size_t i = 0; i < answers.size(); ++i) {
        stream << (i == 0 ? "" : " ") << Name(answers[i]);
    }
    return stream << (box.icon == BoxIcon::Exclamation ? "] exclamation" : "] information") << ", answered "
                  << Name(box.answer);
}

ScriptedBoxes::~ScriptedBoxes() {
    if (!answers.empty()) {
        ADD_FAILURE() << answers.size() << " answers were scripted for boxes that never came";
    }
}

BoxAnswer ScriptedBoxes::Ask(std::string_view title, std::string_view text, BoxButtons buttons,
                             BoxIcon icon) {
    const std::vector<BoxAnswer> possible = AnswersOf(buttons);
    BoxAnswer answer = AnswerOfClosed(buttons);
    if (!answers.empty()) {
        answer = answers.front();
        answers.pop_front();
        if (std::find(possible.begin(), possible.end(), answer) == possible.end()) {
            ADD_FAILURE() << "the box \"" << title << "\" has no button " << Name(answer);
            answer = AnswerOfClosed(buttons);
        }
    }
    asked.push_back(AskedBox{std::string(title), std::string(text), buttons, icon, answer});
    return answer;
}

ScriptedForms::~ScriptedForms() {
    for (const auto& [className, waiting] : scripts) {
        if (!waiting.empty()) {
            ADD_FAILURE() << waiting.size() << " scripts for " << className << " were never used";
        }
    }
}

void ScriptedForms::Show(Form& form) {
    shown.push_back(form.ClassName());
    std::deque<Steps>& waiting = scripts[form.ClassName()];
    if (waiting.empty()) {
        ADD_FAILURE() << form.ClassName() << " was shown without a script";
        form.PressCancel();
        return;
    }
    const Steps steps = std::move(waiting.front());
    waiting.pop_front();
    steps(form);
    if (!form.Closed()) {
        ADD_FAILURE() << "the script left " << form.ClassName() << " open";
        form.PressCancel();
    }
}

void ScriptedWindow::SetCaption(std::string_view text) {
    caption = text;
    captions.emplace_back(text);
}

void ScriptedWindow::SetStatusText(std::string_view text) {
    statusText = text;
    statusTexts.emplace_back(text);
}

void ScriptedWindow::SetMousePointer(MousePointer shape) {
    pointer = shape;
    pointers.push_back(shape);
}

void ScriptedWindow::SetAutoRedraw(bool on) {
    if (on && autoRedrawError != 0) {
        throw RunTimeError(autoRedrawError);
    }
    autoRedraw = on;
}

void ScriptedWindow::Refresh() {
    ++refreshes;
    surface.Note(SurfaceOp::Refresh);
}

void ScriptedWindow::Cls() {
    ++clears;
    surface.Note(SurfaceOp::Cls);
}

void ScriptedWindow::KeepPicture() { surface.Note(SurfaceOp::KeepPicture); }

void ScriptedWindow::PutBackPicture() { surface.Note(SurfaceOp::PutBackPicture); }

void ScriptedWindow::ShowPreview(const PixelBox& box, const std::function<void(DrawSurface&)>& paint) {
    ++previews;
    previewShown = true;
    previewBox = box;
    preview.Forget();
    paint(preview);
}

void ScriptedWindow::SetAreaSize(std::int32_t width, std::int32_t height) {
    zoomed = false;
    place.left = 0.0;
    place.top = 0.0;
    scaleWidth = width * static_cast<double>(Machine().screen->TwipsPerPixelX());
    scaleHeight = height * static_cast<double>(Machine().screen->TwipsPerPixelY());
    place.width = scaleWidth;
    place.height = scaleHeight + menuBarTwips;
}

void ScriptedWindow::Maximise() {
    zoomed = true;
    if (maximisedWidth > 0.0) {
        scaleWidth = maximisedWidth;
        scaleHeight = maximisedHeight;
    }
}

bool ScriptedWindow::MenuChecked(Menu menu, int index) const {
    const auto found = menusChecked.find({menu, index});
    return found != menusChecked.end() && found->second;
}

bool ScriptedWindow::MenuEnabled(Menu menu, int index) const {
    const auto found = menusEnabled.find({menu, index});
    return found == menusEnabled.end() || found->second;
}

void ScriptedPump::DoEvents() {
    ++calls;
    const auto [first, last] = actions.equal_range(calls);
    std::vector<std::function<void()>> now;
    std::for_each(first, last, [&](const auto& entry) { now.push_back(entry.second); });
    for (const auto& action : now) {
        action();
    }
}

double ScriptedClock::SecondsSinceMidnight() const {
    const double reading = seconds;
    seconds += secondsPerReading;
    return reading;
}

ScriptedFileDialogs::~ScriptedFileDialogs() {
    if (!answers.empty()) {
        ADD_FAILURE() << answers.size() << " answers were scripted for file dialogs that never came";
    }
}

FileDialogAnswer ScriptedFileDialogs::Open(const FileDialogRequest& request) {
    asked.push_back(request);
    if (answers.empty()) {
        return {FileDialogCancelled};
    }
    FileDialogAnswer answer = std::move(answers.front());
    answers.pop_front();
    return answer;
}

std::string RecordingPictures::Png(const PixelImage& picture, const PictureNotes& notes) {
    return "PNG " + std::to_string(picture.width) + "x" + std::to_string(picture.height) + ", " +
           std::to_string(std::lround(notes.pixelsPerMetreX)) + "x" +
           std::to_string(std::lround(notes.pixelsPerMetreY)) + " in a metre, " + notes.title + ", " +
           notes.software;
}

ScriptedMachine::ScriptedMachine() : before(Machine()) {
    Machine() = MachineInterfaces{&boxes, &forms,    &window, &pump,        &screen, &places,
                                  &clock, &printers, &help,   &fileDialogs, &fonts};
    Machine().changes = &changes;
    Machine().pictures = &pictures;
}

ScriptedMachine::~ScriptedMachine() { Machine() = before; }

} // namespace quelmont
