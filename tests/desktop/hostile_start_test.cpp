#include "support/temporary_folder.h"

#include <QProcess>
#include <QProcessEnvironment>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>
#include <map>
#include <optional>
#include <string>
#include <unistd.h>

namespace quelmont {
namespace {

namespace fs = std::filesystem;

using testing::HasSubstr;
using testing::IsEmpty;
using testing::Not;

constexpr int Milliseconds = 60000;
constexpr unsigned Nobody = 65534;

struct Ended {
    int exitCode = -1;
    std::string output;
    std::string errors;
};

/// Starts a program in a folder of its own.
class HostileStart : public testing::Test {
protected:
    HostileStart() {
        fs::create_directory(Folder());
        fs::copy_file(QUELMONT_START_PROBE, Folder() / "probe");
        fs::copy_file(QUELMONT_WORLD_MAP, Folder() / "Qmnt4.map");
        // Beside the program: the folder of the tests may be out of reach for somebody else.
        fs::copy_file(QUELMONT_SCREENS, folder / "screens.json");
        environment = QProcessEnvironment::systemEnvironment();
        environment.insert("QT_QPA_PLATFORM",
                           QString::fromStdString("offscreen:configfile=" + (folder / "screens.json")));
        environment.insert("HOME", QString::fromStdString(folder / "home"));
        environment.remove("XDG_CONFIG_HOME");
    }

    fs::path Folder() const { return folder / "program"; }
    fs::path Ini() const { return Folder() / "Qmnt.ini"; }
    fs::path UserIni() const { return folder / "home/.config/quelmont/Qmnt.ini"; }

    Ended Run(const std::string& program, const QStringList& arguments = {}) {
        QProcess process;
        process.setProcessEnvironment(environment);
        process.setWorkingDirectory("/");
        if (asNobody) {
            process.setChildProcessModifier([] {
                if (setgid(Nobody) != 0 || setuid(Nobody) != 0) {
                    _exit(127);
                }
            });
        }
        process.start(QString::fromStdString(program), arguments);
        if (!process.waitForFinished(Milliseconds) || process.exitStatus() != QProcess::NormalExit) {
            process.kill();
            process.waitForFinished();
            return {-1, process.readAllStandardOutput().toStdString(),
                    process.readAllStandardError().toStdString()};
        }
        return {process.exitCode(), process.readAllStandardOutput().toStdString(),
                process.readAllStandardError().toStdString()};
    }

    /// The program comes up, says nothing until it is idle, and closes.
    Ended ExpectQuietStart() {
        const Ended ended = Run(Folder() / "probe");
        EXPECT_EQ(ended.exitCode, 0) << ended.errors;
        EXPECT_THAT(ended.output, HasSubstr("caption Quelmont: Equirectangular projection\nvisible 1\n"));
        EXPECT_THAT(ended.output, HasSubstr("closed 1\n"));
        EXPECT_THAT(ended.output.substr(0, ended.output.find("idle 1")), Not(HasSubstr("box ")));
        return ended;
    }

    /// Root may write anywhere: the program is then run as somebody who may not.
    void LockFolder() {
        fs::permissions(folder.Path(), fs::perms::all);
        fs::permissions(Folder(), fs::perms::owner_read | fs::perms::owner_exec | fs::perms::group_read |
                                      fs::perms::group_exec | fs::perms::others_read |
                                      fs::perms::others_exec);
        asNobody = geteuid() == 0;
    }
    void UnlockFolder() { fs::permissions(Folder(), fs::perms::all); }

    TemporaryFolder folder;
    QProcessEnvironment environment;
    bool asNobody = false;
};

TEST_F(HostileStart, OrdinaryStartLeavesItsSettingsBesideTheProgram) {
    const Ended ended = ExpectQuietStart();
    EXPECT_THAT(ended.output, HasSubstr("size 1024 740\n"));
    EXPECT_TRUE(fs::exists(Ini()));
    EXPECT_FALSE(fs::exists(UserIni()));
}

TEST_F(HostileStart, ProgramThatIsReplacedWhileItRunsKeepsItsFolder) {
    const Ended ended = Run(Folder() / "probe", {"upgraded"});
    EXPECT_EQ(ended.exitCode, 0) << ended.errors;
    EXPECT_FALSE(fs::exists(Folder() / "probe"));
    EXPECT_THAT(ended.output, HasSubstr("program " + fs::canonical(Folder()).string() + "/\n"));
    EXPECT_TRUE(fs::exists(Ini())) << "and not in the folder that it was started from";
}

TEST_F(HostileStart, WithoutHome) {
    environment.remove("HOME");
    const Ended ended = ExpectQuietStart();
    EXPECT_THAT(ended.output, HasSubstr("settings \n"));
    EXPECT_TRUE(fs::exists(Ini()));
}

TEST_F(HostileStart, ConfigurationFolderOfTheUserIsTaken) {
    environment.insert("XDG_CONFIG_HOME", QString::fromStdString(folder / "config"));
    EXPECT_THAT(ExpectQuietStart().output, HasSubstr("settings " + folder / "config/quelmont/\n"));
    environment.insert("XDG_CONFIG_HOME", "relative");
    EXPECT_THAT(ExpectQuietStart().output, HasSubstr("settings " + folder / "home/.config/quelmont/\n"));
}

TEST_F(HostileStart, FoldersWhoseNamesAreNoUtf8AreTakenAsTheyAre) {
    const std::string odd = folder / "caf\xE9";
    fs::copy(Folder(), odd);
    const Ended ended =
        Run("/bin/sh", {"-c", QString::fromStdString("cd '" + folder.Path() +
                                                     "' && cd caf* && XDG_CONFIG_HOME=$PWD exec ./probe")});
    EXPECT_EQ(ended.exitCode, 0) << ended.errors;
    EXPECT_THAT(ended.output, HasSubstr("program " + fs::canonical(folder.Path()).string() + "/caf\xE9/\n"));
    EXPECT_THAT(ended.output, HasSubstr("settings " + odd + "/quelmont/\n"));
    EXPECT_TRUE(fs::exists(odd + "/Qmnt.ini"));
}

TEST_F(HostileStart, WithoutTheWorldMap) {
    fs::remove(Folder() / "Qmnt4.map");
    ExpectQuietStart();
}

TEST_F(HostileStart, WithoutFonts) {
    environment.insert("FONTCONFIG_FILE", "/dev/null");
    environment.insert("QT_QPA_FONTDIR", QString::fromStdString(folder / "nowhere"));
    ExpectQuietStart();
}

TEST_F(HostileStart, InAFolderThatCannotBeWritten) {
    LockFolder();
    ExpectQuietStart();
    EXPECT_FALSE(fs::exists(Ini()));
    EXPECT_TRUE(fs::exists(UserIni()));
    const Ended again = ExpectQuietStart();
    EXPECT_THAT(again.output, HasSubstr("size 1024 740\n"));
    UnlockFolder();
}

TEST_F(HostileStart, InAFolderThatCannotBeWrittenWithoutHome) {
    LockFolder();
    environment.remove("HOME");
    const Ended ended = ExpectQuietStart();
    EXPECT_THAT(ended.output, HasSubstr("WritePrivateProfileString(1) error in Quelmont: Form_Unload"));
    UnlockFolder();
}

TEST_F(HostileStart, WithDamagedSettings) {
    const std::string junk("\0\xFF[Quelmont\n=\nMainWindow=\xFF\xFE", 27);
    for (const std::string& damaged :
         {std::string(), junk,
          std::string("[Quelmont]\nMainWindow=1 2\nScreenSize=x\nWindowMaximized=\x01\n"),
          std::string("[Quelmont]\nMainWindow=99999999999 1e308 -1 nan\nPrinterUnits=1e400\n")}) {
        WriteWholeFile(Ini(), damaged);
        EXPECT_THAT(ExpectQuietStart().output, HasSubstr("size 1024 740\n"));
    }
}

TEST_F(HostileStart, WithAFolderInThePlaceOfTheSettings) {
    fs::create_directory(Ini());
    ExpectQuietStart();
    EXPECT_TRUE(fs::exists(UserIni()));
}

TEST_F(HostileStart, ThroughALinkTheProgramIsWhereItLies) {
    fs::create_directory(folder / "bin");
    fs::create_symlink(Folder() / "probe", folder / "bin/quelmont");
    const Ended ended = Run(folder / "bin/quelmont");
    EXPECT_EQ(ended.exitCode, 0);
    EXPECT_THAT(ended.output, HasSubstr("program " + fs::canonical(Folder()).string() + "/\n"));
    EXPECT_TRUE(fs::exists(Ini()));
}

TEST_F(HostileStart, HelpAndVersionNeedNoDisplay) {
    environment.remove("QT_QPA_PLATFORM");
    environment.remove("DISPLAY");
    environment.remove("WAYLAND_DISPLAY");
    for (const char* const option : {"-h", "--help"}) {
        const Ended help = Run(QUELMONT_PROGRAM, {option});
        EXPECT_EQ(help.exitCode, 0);
        EXPECT_EQ(help.errors, "");
        for (const char* const text : {"Usage: quelmont [OPTIONS] [DESIGN.cnf]\n", "--help ", "--version ",
                                       "Alt+D", "quelmont-draw", "quelmont-convert"}) {
            EXPECT_THAT(help.output, HasSubstr(text));
        }
    }
    const Ended version = Run(QUELMONT_PROGRAM, {"--version"});
    EXPECT_EQ(version.exitCode, 0);
    EXPECT_EQ(version.output, "quelmont 3.00\n");
}

TEST_F(HostileStart, ArgumentThatMeansNothingIsRefused) {
    const Ended ended = Run(QUELMONT_PROGRAM, {"-platform", "offscreen", "--hlep"});
    EXPECT_EQ(ended.exitCode, 2);
    EXPECT_EQ(ended.errors, "quelmont: \"--hlep\" means nothing here\nquelmont --help tells the options.\n");
    EXPECT_THAT(ended.output, IsEmpty());
}

TEST_F(HostileStart, WithoutADisplayTheProgramSaysSoInOneLine) {
    environment.remove("QT_QPA_PLATFORM");
    environment.remove("DISPLAY");
    environment.remove("WAYLAND_DISPLAY");
    const Ended none = Run(QUELMONT_PROGRAM);
    EXPECT_EQ(none.exitCode, 1);
    EXPECT_EQ(none.errors, "quelmont: there is no display to open a window on\n");
    EXPECT_THAT(none.output, IsEmpty());
    environment.insert("DISPLAY", ":4321");
    const Ended unreachable = Run(QUELMONT_PROGRAM);
    EXPECT_EQ(unreachable.exitCode, 1);
    EXPECT_EQ(unreachable.errors, "quelmont: there is no display to open a window on\n");
}

} // namespace
} // namespace quelmont
