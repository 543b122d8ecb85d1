#include "core/replaced_file.h"
#include "core/run_time_error.h"
#include "support/run_time_errors.h"
#include "support/temporary_folder.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <string>

#include <sys/stat.h>
#include <unistd.h>

namespace quelmont {
namespace {

using std::filesystem::create_directory;
using std::filesystem::create_symlink;
using std::filesystem::perms;

TEST(SameFile, IsTheSameUnderEachNameThatLeadsThere) {
    const TemporaryFolder folder;
    WriteWholeFile(folder / "a", "");
    create_directory(folder / "real");
    create_symlink("real", folder / "link");
    create_symlink(folder / "a", folder / "real/to-a");
    EXPECT_TRUE(IsSameFile(folder / "a", folder / "real/../a"));
    EXPECT_TRUE(IsSameFile(folder / "a", folder / "link/to-a"));
    EXPECT_FALSE(IsSameFile(folder / "a", folder / "real"));
}

TEST(SameFile, NeedNotExist) {
    const TemporaryFolder folder;
    create_directory(folder / "real");
    create_symlink("real", folder / "link");
    create_symlink("new", folder / "real/to-new");
    EXPECT_TRUE(IsSameFile(folder / "real/new", folder / "link/new"));
    EXPECT_TRUE(IsSameFile(folder / "real/new", folder / "link/to-new"));
    EXPECT_FALSE(IsSameFile(folder / "real/new", folder / "link/other"));
    EXPECT_TRUE(IsSameFile("", ""));
}

TEST(ReplacedFile, LinkThatLeadsNowhereYetStaysALink) {
    const TemporaryFolder folder;
    create_symlink("far", folder / "near");
    create_symlink(folder / "near", folder / "nearest");
    EXPECT_EQ(ReplacedFileName(folder / "near"), folder / "far");
    EXPECT_EQ(ReplacedFileName(folder / "nearest"), folder / "far");
}

TEST(ReplacedFile, LinkThatLeadsToItselfIsItself) {
    const TemporaryFolder folder;
    create_symlink("round", folder / "round");
    EXPECT_EQ(ReplacedFileName(folder / "round"), folder / "round");
}

TEST(ReplacedFile, NameThatNoFolderCanHoldIsRefused) {
    const TemporaryFolder folder;
    EXPECT_EQ(ReplacedFileName(folder / std::string(255, 'a')), folder / std::string(255, 'a'));
    EXPECT_EQ(ErrorOf([&] { ReplacedFileName(folder / std::string(256, 'a')); }), ErrorBadFileNumber);
}

TEST(TemporaryFile, TakesTheModeOfTheFileThatItReplaces) {
    const TemporaryFolder folder;
    WriteWholeFile(folder / "private", "earlier");
    std::filesystem::permissions(folder / "private", perms::owner_read | perms::owner_write);
    TemporaryFile file(folder / "private");
    WriteWholeFile(file.Name(), "whole");
    std::filesystem::permissions(file.Name(), perms::owner_read | perms::owner_write | perms::others_read);
    file.MoveTo(folder / "private");
    EXPECT_EQ(ReadWholeFile(folder / "private"), "whole");
    EXPECT_EQ(std::filesystem::status(folder / "private").permissions(),
              perms::owner_read | perms::owner_write);
}

TEST(TemporaryFile, TakesTheOwnerToo) {
    const TemporaryFolder folder;
    WriteWholeFile(folder / "other", "earlier");
    constexpr uid_t nobody = 65534;
    if (chown((folder / "other").c_str(), nobody, nobody) != 0) {
        GTEST_SKIP() << "just root gives files away";
    }
    TemporaryFile file(folder / "other");
    WriteWholeFile(file.Name(), "whole");
    file.MoveTo(folder / "other");
    struct stat facts = {};
    ASSERT_EQ(stat((folder / "other").c_str(), &facts), 0);
    EXPECT_EQ(facts.st_uid, nobody);
    EXPECT_EQ(facts.st_gid, nobody);
}

} // namespace
} // namespace quelmont
