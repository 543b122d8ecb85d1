#include "designfile/cnf_save.h"

#include "designfile/designs.h"
#include "designfile/record_forms.h"
#include "mainwindow/map_draw.h"
#include "support/hard_times.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <csignal>
#include <filesystem>

#include <sys/wait.h>

namespace quelmont {
namespace {

using testing::Contains;
using testing::ElementsAre;
using testing::UnorderedElementsAre;

using SavingDesigns = DesignFiles;

TEST_F(SavingDesigns, DefaultDesignHasTheLinesOfTheExamples) {
    window.scaleWidth = 19200.0;
    window.scaleHeight = 13860.0;
    window.place = {0.0, 0.0, 19200.0, 14370.0};
    Drawn(); // the fit to this window
    const std::map<int, std::string> examples = RecordExamples();
    const std::vector<std::string> lines = LinesOf(Saved());
    const std::map<int, std::size_t> places = RecordPlaces(lines);
    // The other examples tell of other designs.
    for (const int number :
         {1,  2,  3,  4,  5,  6,  7,  8,  9,  10, 11, 12, 13, 14, 15, 17, 18, 19, 20, 23, 26, 29,
          30, 31, 33, 34, 35, 36, 37, 38, 39, 40, 41, 42, 43, 44, 45, 46, 47, 48, 49, 50, 51}) {
        EXPECT_EQ(lines[places.at(number)], examples.at(number)) << "record " << number;
    }
    EXPECT_EQ(lines.size(), places.at(53) + 1) << "there is no text, and nothing behind it";
}

TEST_F(SavingDesigns, CaptionTellsOfIt) {
    Saved();
    EXPECT_THAT(window.captions, Contains("Quelmont: printing configuration file"));
    EXPECT_EQ(window.caption, "Quelmont: Equirectangular projection");
}

TEST_F(SavingDesigns, InterruptedMapIsSavedAsAWhole) {
    AcceptProjection(ProjInterruptedMollweide);
    const std::string before = ComparableDesignText();
    MapDraw();
    EXPECT_NE(Design.LonSpanSec, SecPerCircle) << "the last lobe's";
    EXPECT_EQ(ComparableDesignText(), before);
    const std::vector<std::string> lines = LinesOf(Saved());
    EXPECT_EQ(lines[RecordPlaces(lines).at(41)], " 1296000  0  36000 ");
    EXPECT_NE(Design.LonSpanSec, SecPerCircle) << "saving changes nothing";
}

TEST_F(SavingDesigns, TextWithALineEndKeepsTheEarlierFile) {
    const std::string earlier = Saved();
    for (const std::string& text : {std::string("two\nlines"), std::string("two\rlines"),
                                    std::string("nul\0", 4), std::string("end\x1A")}) {
        Design.TextItems.assign(1, TextOf(text));
        EXPECT_FALSE(CnfSave());
        EXPECT_THAT(Told(machine.boxes.Taken()),
                    ElementsAre("Error in CnfSave: Error: Invalid procedure call or argument"));
        EXPECT_EQ(ReadWholeFile(name), earlier);
    }
}

TEST_F(SavingDesigns, NameOfAMapFileThatIsNoUtf8IsRefused) {
    const std::string earlier = Saved();
    Design.InputFiles.at(0).MapFileName = "/maps/caf\xE9.prn";
    EXPECT_FALSE(CnfSave());
    // Written as UTF-8 it would be the name of another file.
    ASSERT_EQ(machine.boxes.asked.size(), 1U);
    EXPECT_EQ(machine.boxes.asked[0].title, "Error in CnfSave: name of a map file");
    EXPECT_NE(machine.boxes.asked[0].text.find("/maps/caf\u00E9.prn"), std::string::npos);
    EXPECT_EQ(ReadWholeFile(name), earlier);
    machine.boxes.Taken();
    Design.InputFiles.at(0).MapFileName = "/maps/caf\u00E9.prn";
    EXPECT_TRUE(CnfSave());
}

TEST_F(SavingDesigns, FullDiskKeepsTheEarlierFile) {
    const std::string earlier = Saved();
    Design.InputFiles.resize(200);
    for (const rlim_t bytes : {rlim_t{0}, rlim_t{1000}, rlim_t{70000}}) {
        {
            const FullDisk full(bytes);
            EXPECT_FALSE(CnfSave());
        }
        EXPECT_THAT(Told(machine.boxes.Taken()), ElementsAre("Error in CnfSave: Error: Disk full"));
        EXPECT_EQ(ReadWholeFile(name), earlier);
        EXPECT_THAT(folder.Names(), UnorderedElementsAre("map.cnf", "program"))
            << "no temporary file is left";
    }
}

TEST_F(SavingDesigns, FolderAndMissingFolderAreReported) {
    std::filesystem::create_directory(folder / "folder.cnf");
    Design.CnfFileName = folder / "folder.cnf";
    EXPECT_FALSE(CnfSave());
    Design.CnfFileName = folder / "missing/map.cnf";
    EXPECT_FALSE(CnfSave());
    EXPECT_THAT(Told(machine.boxes.Taken()), ElementsAre("Error in CnfSave: Error: Path/File access error",
                                                         "Error in CnfSave: Error: Path not found"));
}

TEST_F(SavingDesigns, FileWithoutPermissionIsReported) {
    const std::string earlier = Saved();
    std::filesystem::permissions(folder.Path(), std::filesystem::perms::all);
    std::filesystem::permissions(name,
                                 std::filesystem::perms::owner_read | std::filesystem::perms::others_read);
    {
        const WithoutPrivilege nobody;
        EXPECT_FALSE(CnfSave());
    }
    EXPECT_THAT(Told(machine.boxes.Taken()), ElementsAre("Error in CnfSave: Error: Permission denied"));
    EXPECT_EQ(ReadWholeFile(name), earlier);
}

/// Kills the process when so many bytes have been written, in pieces as small as a line.
int BytesToLive = 0;

class DyingFile final : public FileDevice {
public:
    std::size_t Read(std::span<std::byte> /*bytes*/) override { return 0; }
    void Write(std::span<const std::byte> bytes) override {
        BytesToLive -= static_cast<int>(bytes.size());
        if (BytesToLive < 0) {
            kill(getpid(), SIGKILL);
        }
    }
    void Seek(std::int64_t /*position*/) override {}
    std::int64_t Length() override { return 0; }
    void Close() override {
        if (BytesToLive < 1'000'000) {
            kill(getpid(), SIGKILL);
        }
    }
};

TEST_F(SavingDesigns, ProcessKilledInASaveLeavesTheEarlierFile) {
    const std::string earlier = Saved();
    Design.MapReduce = 0.5;
    for (const int bytes : {0, 999'999}) {
        const pid_t child = fork();
        if (child == 0) {
            BytesToLive = bytes;
            SetFileDeviceMaker([](const std::string&, OpenMode) -> std::unique_ptr<FileDevice> {
                return std::make_unique<DyingFile>();
            });
            CnfSave();
            _exit(0);
        }
        int status = 0;
        waitpid(child, &status, 0);
        EXPECT_TRUE(WIFSIGNALED(status) && WTERMSIG(status) == SIGKILL);
        EXPECT_EQ(ReadWholeFile(name), earlier);
    }
}

TEST_F(SavingDesigns, NamesOfTextOutputsAreAsManyAsTheirCount) {
    Design.AsciiFileName = {"grid.txt", "map.txt", "of an earlier list"};
    const std::vector<std::string> lines = LinesOf(Saved());
    const std::size_t place = RecordPlaces(lines).at(24);
    EXPECT_EQ(lines[place], "grid.txt");
    EXPECT_EQ(lines[place + 1], "map.txt");
    EXPECT_EQ(RecordPlaces(lines).at(25), place + 2);
}

} // namespace
} // namespace quelmont
