#include "qtsurface/gui_application.h"

#include <QGuiApplication>

#include <array>

namespace quelmont {

void NeedGuiApplication() {
    if (QCoreApplication::instance() != nullptr) {
        return;
    }
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
