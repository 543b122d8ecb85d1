#include "commandline/headless_machine.h"

#include "core/map_design.h"
#include "core/stop_signals.h"
#include "mainwindow/map_draw.h"

#include <ostream>

namespace quelmont {

namespace {

/// At 96 pixels an inch.
constexpr double TwipsPerPixel = 15.0;

} // namespace

BoxAnswer HeadlessBoxes::Ask(std::string_view title, std::string_view text, BoxButtons buttons,
                             BoxIcon /*icon*/) {
    ++count;
    stream << title << '\n' << text << '\n';
    return AnswerOfClosed(buttons);
}

double HeadlessWindow::ScaleWidth() const { return surface.Width() * TwipsPerPixel; }
double HeadlessWindow::ScaleHeight() const { return surface.Height() * TwipsPerPixel; }

void HeadlessWindow::Cls() { surface.Clear(ColorBits(Design.BackColor)); }

void HeadlessWindow::PutBackPicture() {
    if (!kept.isNull()) {
        surface.Copy(kept, kept.rect(), ColorBits(Design.BackColor));
    }
}

bool HeadlessWindow::MenuChecked(Menu menu, int index) const {
    const auto found = marks.find({menu, index});
    return found != marks.end() && found->second;
}

float HeadlessScreen::TwipsPerPixelX() const { return static_cast<float>(TwipsPerPixel); }
float HeadlessScreen::TwipsPerPixelY() const { return static_cast<float>(TwipsPerPixel); }

HeadlessMachine::HeadlessMachine(SurfacePoint windowSize, SurfacePoint fullScreen, std::ostream& stream)
    : boxes(stream), window(windowSize), screen(fullScreen), before(Machine()) {
    Machine() = {&boxes, &forms,    &window, &pump,        &screen, &places,
                 &clock, &printers, &help,   &fileDialogs, &fonts};
}

HeadlessMachine::~HeadlessMachine() { Machine() = before; }

void HeadlessPump::DoEvents() {
    if (StopSignals::Came()) {
        EscapeKey();
    }
}

} // namespace quelmont
