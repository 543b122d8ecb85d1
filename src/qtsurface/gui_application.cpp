#include "qtsurface/gui_application.h"

#include <QGuiApplication>

#include <array>
#include <cstdio>

namespace quelmont {

namespace {

/// What Qt finds odd about a display that nobody has, or about a font that it passes over, does not concern
/// a program without a window. After a fatal message Qt ends the process.
void OnlyFatal(QtMsgType type, const QMessageLogContext& /*context*/, const QString& text) {
    if (type == QtFatalMsg) {
        std::fputs((text.toStdString() + "\n").c_str(), stderr);
    }
}

} // namespace

void NeedGuiApplication() {
    if (QCoreApplication::instance() != nullptr) {
        return;
    }
    qInstallMessageHandler(OnlyFatal);
    static std::array<char, 9> program = {"quelmont"};
    static std::array<char, 10> platform = {"-platform"};
    static std::array<char, 10> offscreen = {"offscreen"};
    static std::array<char*, 4> arguments = {program.data(), platform.data(), offscreen.data(), nullptr};
    static int count = 3;
    // Never deleted: at the program's end Qt's own statics may be gone before one of ours.
    static const QGuiApplication* const application = new QGuiApplication(count, arguments.data());
    static_cast<void>(application);
}

} // namespace quelmont
