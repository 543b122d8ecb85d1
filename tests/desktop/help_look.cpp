// Leaves pictures of every page of the help in a folder, as the window shows them at a width, in light or in
// dark:
//
//   help_look HELP_FILE FOLDER WIDTH [dark]

#include "desktop/help_browser.h"
#include "desktop/help_collection.h"
#include "desktop/help_window.h"

#include <QApplication>
#include <QDir>
#include <QHelpEngine>
#include <QTest>

#include <cstdio>

namespace {

QPalette Dark() {
    QPalette palette(QColor(45, 45, 48));
    palette.setColor(QPalette::Base, QColor(30, 30, 32));
    return palette;
}

} // namespace

int main(int argc, char** argv) {
    const QApplication application(argc, argv);
    const QStringList arguments = QApplication::arguments();
    if (arguments.size() < 4) {
        std::fputs("usage: help_look HELP_FILE FOLDER WIDTH [dark]\n", stderr);
        return 1;
    }
    if (arguments.contains(QStringLiteral("dark"))) {
        QApplication::setPalette(Dark());
    }
    quelmont::HelpCollection collection(arguments[1]);
    if (!collection.IsOpen()) {
        std::fputs("help_look: no help file\n", stderr);
        return 1;
    }
    quelmont::HelpWindow window(collection);
    window.resize(arguments[3].toInt(), 900);
    for (const QUrl& file : collection.Engine().files(QStringLiteral("org.quelmont.help"), QStringList())) {
        const QString name = QFileInfo(file.path()).completeBaseName();
        if (!file.path().endsWith(QLatin1String(".html"))) {
            continue;
        }
        window.ShowPlace({name.toStdString(), {}});
        QTest::qWait(200);
        if (!window.grab().save(QDir(arguments[2]).filePath(name + QStringLiteral(".png")))) {
            std::fprintf(stderr, "help_look: cannot write %s\n", qPrintable(name));
            return 1;
        }
    }
    return 0;
}
