#include "core/replaced_file.h"

#include "core/run_time_error.h"
#include "support/run_time_errors.h"
#include "support/temporary_folder.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>

#include <unistd.h>

namespace quelmont {
namespace {

using testing::IsEmpty;

std::string NamesIn(const std::string& folder) {
    std::string names;
    for (const auto& entry : std::filesystem::directory_iterator(folder)) {
        names += entry.path().filename().string() + " ";
    }
    return names;
}

TEST(TemporaryFile, LiesBesideItsTargetUnderTheNumberOfTheProcess) {
    EXPECT_EQ(TemporaryFile("maps/world.map").Name(), "maps/world.map." + std::to_string(getpid()) + ".tmp");
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

TEST(ReplacedFile, IsWhereALinkLeads) {
    const TemporaryFolder folder;
    WriteWholeFile(folder / "far.map", "");
    std::filesystem::create_symlink(folder / "far.map", folder / "near.map");
    EXPECT_EQ(ReplacedFileName(folder / "near.map"), std::filesystem::canonical(folder / "far.map").string());
    EXPECT_EQ(ReplacedFileName(folder / "none.map"), folder / "none.map");
}

TEST(ReplacedFile, MustBeAPlainFile) {
    const TemporaryFolder folder;
    EXPECT_EQ(ErrorOf([&] { ReplacedFileName(folder.Path()); }), ErrorPathFileAccess);
    EXPECT_EQ(ErrorOf([] { ReplacedFileName("/dev/full"); }), ErrorPathFileAccess);
}

} // namespace
} // namespace quelmont
