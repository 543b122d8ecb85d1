#include "core/replaced_file.h"

#include "core/run_time_error.h"
#include "support/hard_times.h"
#include "support/run_time_errors.h"
#include "support/temporary_folder.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cerrno>
#include <filesystem>
#include <memory>
#include <string>
#include <system_error>
#include <utility>
#include <vector>

#include <sys/stat.h>
#include <unistd.h>

namespace {

/// What was brought to the disk in this process, in order: the path of the file, and what its folder held.
std::vector<std::pair<std::string, std::string>> Synced;
int SyncFailure = 0; ///< with which bringing a plain file to the disk fails

} // namespace

/// In the place of the system's.
extern "C" int fsync(int descriptor) {
    std::error_code ignored;
    const std::filesystem::path path =
        std::filesystem::read_symlink("/proc/self/fd/" + std::to_string(descriptor), ignored);
    const bool isFolder = std::filesystem::is_directory(path, ignored);
    std::string names;
    for (const auto& entry :
         std::filesystem::directory_iterator(isFolder ? path : path.parent_path(), ignored)) {
        names += entry.path().filename().string() + " ";
    }
    Synced.emplace_back(path.string(), names);
    if (SyncFailure != 0 && !isFolder) {
        errno = SyncFailure;
        return -1;
    }
    return 0;
}

namespace quelmont {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using testing::Pair;

/// What stands behind the target's name.
const std::string Ending = "." + std::to_string(getpid()) + ".tmp";
const std::string SecondEnding = "." + std::to_string(getpid()) + "-2.tmp";

std::string NamesIn(const std::string& folder) {
    std::string names;
    for (const auto& entry : std::filesystem::directory_iterator(folder)) {
        names += entry.path().filename().string() + " ";
    }
    return names;
}

TEST(TemporaryFile, LiesBesideItsTargetUnderTheNumberOfTheProcess) {
    EXPECT_EQ(TemporaryFile("maps/world.map").Name(), "maps/world.map" + Ending);
}

TEST(TemporaryFile, LongNameIsCutUntilItFitsAFolder) {
    // 255 bytes is what a name may have; the folders before it count for nothing.
    const std::string folder = std::string(200, 'd') + "/" + std::string(255, 'e') + "/";
    const std::size_t room = 255 - Ending.size();
    const std::string fitting(room, 'f');
    EXPECT_EQ(TemporaryFile(folder + fitting).Name(), folder + fitting + Ending);
    EXPECT_EQ(TemporaryFile(folder + fitting + "g").Name(), folder + fitting + Ending);
    EXPECT_EQ(TemporaryFile(folder + std::string(255, 'f')).Name(), folder + fitting + Ending);
    EXPECT_EQ(TemporaryFile(std::string(255, 'f')).Name(), fitting + Ending);
}

TEST(TemporaryFile, LongNamesCanBeWrittenAndPutInPlace) {
    const TemporaryFolder folder;
    const std::string target = folder / std::string(255, 'f');
    {
        TemporaryFile file(target);
        WriteWholeFile(file.Name(), "whole");
        file.MoveTo(target);
    }
    EXPECT_EQ(ReadWholeFile(target), "whole");
    EXPECT_EQ(NamesIn(folder.Path()), std::string(255, 'f') + " ");
}

TEST(TemporaryFile, NameThatIsTakenIsPassedOver) {
    const TemporaryFolder folder;
    const std::string taken = folder / ("a.map" + Ending);
    const auto passOver = [&] {
        const TemporaryFile file(folder / "a.map");
        EXPECT_EQ(file.Name(), folder / ("a.map" + SecondEnding));
        WriteWholeFile(file.Name(), "half");
    };
    WriteWholeFile(taken, "somebody's");
    passOver();
    EXPECT_EQ(ReadWholeFile(taken), "somebody's");
    std::filesystem::remove(taken);
    std::filesystem::create_directory(taken);
    WriteWholeFile(taken + "/a", "somebody's");
    passOver();
    EXPECT_EQ(ReadWholeFile(taken + "/a"), "somebody's");
    std::filesystem::remove_all(taken);
    std::filesystem::create_symlink(folder / "nowhere", taken);
    passOver();
    EXPECT_EQ(std::filesystem::read_symlink(taken), folder / "nowhere");
    EXPECT_EQ(NamesIn(folder.Path()), "a.map" + Ending + " ") << "nothing came where the link leads";
}

TEST(TemporaryFile, TwoOfOneTargetAreTwoFiles) {
    const TemporaryFolder folder;
    for (const std::string& title : {std::string("a.map"), std::string(255, 'f')}) {
        const std::string target = folder / title;
        auto first = std::make_unique<TemporaryFile>(target);
        WriteWholeFile(first->Name(), "first");
        TemporaryFile second(target);
        WriteWholeFile(second.Name(), "second");
        EXPECT_EQ(second.Name(), folder / (title.substr(0, 255 - SecondEnding.size()) + SecondEnding));
        EXPECT_EQ(ReadWholeFile(first->Name()), "first");
        first.reset();
        second.MoveTo(target);
        EXPECT_EQ(ReadWholeFile(target), "second");
    }
}

TEST(TemporaryFile, IsRemovedUnlessItWasPutInPlace) {
    const TemporaryFolder folder;
    {
        const TemporaryFile file(folder / "a.map");
        WriteWholeFile(file.Name(), "half");
    }
    EXPECT_THAT(NamesIn(folder.Path()), IsEmpty());
}

TEST(TemporaryFile, FolderIsRemovedWithAllThatIsInIt) {
    const TemporaryFolder folder;
    {
        const TemporaryFile file(folder / "a.shp");
        std::filesystem::create_directory(file.Name());
        WriteWholeFile(file.Name() + "/a.shp", "half");
    }
    EXPECT_THAT(NamesIn(folder.Path()), IsEmpty());
}

TEST(TemporaryFile, ReplacesAnEarlierFile) {
    const TemporaryFolder folder;
    WriteWholeFile(folder / "a.map", "earlier");
    {
        TemporaryFile file(folder / "a.map");
        WriteWholeFile(file.Name(), "whole");
        file.MoveTo(folder / "a.map");
    }
    EXPECT_EQ(ReadWholeFile(folder / "a.map"), "whole");
    EXPECT_EQ(NamesIn(folder.Path()), "a.map ");
}

TEST(TemporaryFile, LeavesNothingWhereItCannotBePut) {
    const TemporaryFolder folder;
    std::filesystem::create_directory(folder / "a.map");
    {
        TemporaryFile file(folder / "a.map");
        WriteWholeFile(file.Name(), "whole");
        EXPECT_EQ(ErrorOf([&] { file.MoveTo(folder / "a.map"); }), ErrorPathFileAccess);
    }
    EXPECT_EQ(NamesIn(folder.Path()), "a.map ");
}

TEST(TemporaryFile, LiesOnTheDiskBeforeItTakesItsPlaceAndTheFolderBehindThat) {
    const TemporaryFolder folder;
    const std::string path = std::filesystem::canonical(folder.Path()).string();
    TemporaryFile file(folder / "a.map");
    WriteWholeFile(file.Name(), "whole");
    Synced.clear();
    file.MoveTo(folder / "a.map");
    EXPECT_THAT(Synced,
                ElementsAre(Pair(path + "/a.map" + Ending, "a.map" + Ending + " "), Pair(path, "a.map ")));
}

TEST(TemporaryFile, ThatCannotBeBroughtToTheDiskTakesNoPlace) {
    const TemporaryFolder folder;
    for (const auto& [failure, error] : {std::pair{ENOSPC, ErrorDiskFull}, {EIO, ErrorDeviceIo}}) {
        WriteWholeFile(folder / "a.map", "earlier");
        TemporaryFile file(folder / "a.map");
        WriteWholeFile(file.Name(), "whole");
        SyncFailure = failure;
        EXPECT_EQ(ErrorOf([&] { file.MoveTo(folder / "a.map"); }), error);
        SyncFailure = 0;
        EXPECT_EQ(ReadWholeFile(folder / "a.map"), "earlier");
    }
    EXPECT_EQ(NamesIn(folder.Path()), "a.map ");
}

TEST(TemporaryFile, IsPutWhereTheFileSystemCannotTell) {
    const TemporaryFolder folder;
    TemporaryFile file(folder / "a.map");
    WriteWholeFile(file.Name(), "whole");
    SyncFailure = EINVAL;
    file.MoveTo(folder / "a.map");
    SyncFailure = 0;
    EXPECT_EQ(ReadWholeFile(folder / "a.map"), "whole");
}

TEST(ReplacedFile, IsWhereALinkLeads) {
    const TemporaryFolder folder;
    WriteWholeFile(folder / "far.map", "");
    std::filesystem::create_symlink(folder / "far.map", folder / "near.map");
    EXPECT_EQ(ReplacedFileName(folder / "near.map"), std::filesystem::canonical(folder / "far.map").string());
    EXPECT_EQ(ReplacedFileName(folder / "none.map"), folder / "none.map");
}

TEST(ReplacedFile, MustBeOneThatMayBeWritten) {
    const TemporaryFolder folder;
    const std::string locked = folder / "a.map";
    WriteWholeFile(locked, "earlier");
    WriteWholeFile(folder / "b.map", "earlier");
    std::filesystem::create_symlink(locked, folder / "link.map");
    chmod(folder.Path().c_str(), 0777); // where the name could be given to another file
    chmod(locked.c_str(), 0444);
    chmod((folder / "b.map").c_str(), 0666);
    const WithoutPrivilege nobody;
    EXPECT_EQ(ErrorOf([&] { ReplacedFileName(locked); }), ErrorPermissionDenied);
    EXPECT_EQ(ErrorOf([&] { ReplacedFileName(folder / "link.map"); }), ErrorPermissionDenied);
    EXPECT_EQ(ErrorOf([&] { ReplacedFileName(folder / "b.map"); }), 0);
}

TEST(ReplacedFile, MustBeAPlainFile) {
    const TemporaryFolder folder;
    EXPECT_EQ(ErrorOf([&] { ReplacedFileName(folder.Path()); }), ErrorPathFileAccess);
    EXPECT_EQ(ErrorOf([] { ReplacedFileName("/dev/full"); }), ErrorPathFileAccess);
}

} // namespace
} // namespace quelmont
