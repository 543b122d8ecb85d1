#include <QApplication>

#include <gtest/gtest.h>

/// The tests run on a screen that nobody sees; one screen of a usual size unless a test asks for
/// others.
int main(int argc, char** argv) {
    if (!qEnvironmentVariableIsSet("QT_QPA_PLATFORM")) {
        qputenv("QT_QPA_PLATFORM", "offscreen:configfile=" QUELMONT_SCREENS);
    }
    testing::InitGoogleTest(&argc, argv);
    const QApplication application(argc, argv);
    return RUN_ALL_TESTS();
}
