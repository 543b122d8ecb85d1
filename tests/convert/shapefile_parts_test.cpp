// A Shapefile takes the place of another, part by part, and the process is killed in between.

#include "convert/convert_command.h"
#include "convert_fixture.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cpl_error.h>
#include <gdal_priv.h>

#include <cerrno>
#include <filesystem>
#include <sstream>

#include <fcntl.h>
#include <sys/wait.h>
#include <unistd.h>

namespace {

/// Renames that are still done in this process before what comes in their place; below 0 for all.
int RenamesLeft = -1;
bool Killed = true; ///< otherwise that rename fails

constexpr int KilledStatus = 99;

} // namespace

/// In the place of the system's. Nothing of a killed process runs any more, neither.
extern "C" int rename(const char* from, const char* to) noexcept {
    if (RenamesLeft == 0) {
        if (Killed) {
            _exit(KilledStatus);
        }
        RenamesLeft = -1; // what follows is done
        errno = EACCES;
        return -1;
    }
    RenamesLeft -= RenamesLeft > 0 ? 1 : 0;
    return renameat(AT_FDCWD, from, AT_FDCWD, to);
}

namespace quelmont {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;

class ShapefileParts : public ConvertTest {
protected:
    /// Rank 1 is Coastlines, 7 Rivers.
    ShapefileParts() {
        Put("old.map", Bytes("E8 03 3C 00 3C 00 00 00 78 00 78 00"));
        Put("new.map", Bytes("58 1B 00 00 00 00 00 00 01 00 01 00 58 1B 3C 00 3C 00 00 00 78 00 78 00"));
    }

    /// What GDAL reads of out.shp; nothing when it refuses it.
    std::vector<std::string> Shapes() const {
        GDALAllRegister();
        const CPLErrorHandlerPusher quiet(CPLQuietErrorHandler);
        const GDALDatasetUniquePtr dataset(
            GDALDataset::Open((folder / "out.shp").c_str(), GDAL_OF_VECTOR | GDAL_OF_READONLY));
        return dataset ? Features("out.shp") : std::vector<std::string>{};
    }

    void PutOld() const {
        Convert({"old.map", "out.shp"});
        Put("out.qix", "an index");
        Put("out.SBN", "another one");
    }
};

TEST_F(ShapefileParts, AreNeverReadAsAMixture) {
    PutOld();
    const std::vector<std::string> old = Shapes();
    Convert({"new.map", "fresh.shp"});
    const std::vector<std::string> fresh = Features("fresh.shp");
    ASSERT_NE(old, fresh);
    int kills = 0;
    for (int status = KilledStatus; status == KilledStatus; ++kills) {
        for (const auto& entry : std::filesystem::directory_iterator(folder.Path())) {
            if (entry.path().string().ends_with(".tmp")) {
                std::filesystem::remove_all(entry.path());
            }
        }
        PutOld();
        const pid_t child = fork();
        if (child == 0) {
            RenamesLeft = kills;
            std::ostringstream ignored;
            _exit(ConvertCommand({"new.map", "out.shp"}, ignored, ignored, false));
        }
        int ended = 0;
        ASSERT_EQ(waitpid(child, &ended, 0), child);
        ASSERT_TRUE(WIFEXITED(ended));
        status = WEXITSTATUS(ended);
        const std::vector<std::string> shapes = Shapes();
        EXPECT_TRUE(shapes.empty() || shapes == old || shapes == fresh) << "killed after rename " << kills;
        if (kills == 0) {
            EXPECT_EQ(shapes, old);
        }
    }
    EXPECT_EQ(Shapes(), fresh);
    // Seven earlier parts go, five come.
    EXPECT_EQ(kills, 13);
}

TEST_F(ShapefileParts, AreAllAsTheyWereWhenOneCannotBePut) {
    PutOld();
    const std::vector<std::string> before = Names();
    const std::string index = Get("out.shx");
    const std::string table = Get("out.dbf");
    for (int renames = 0; renames < 12; ++renames) {
        RenamesLeft = renames;
        Killed = false;
        const Outcome outcome = Run({"new.map", "out.shp"});
        Killed = true;
        ASSERT_EQ(RenamesLeft, -1);
        EXPECT_EQ(outcome.code, ConvertFailed);
        EXPECT_THAT(outcome.errors, HasSubstr(": Permission denied\n"));
        EXPECT_EQ(Names(), before) << renames;
        EXPECT_EQ(Get("out.shx"), index) << renames;
        EXPECT_EQ(Get("out.dbf"), table) << renames;
    }
}

TEST_F(ShapefileParts, OfTheEarlierOneGoInLettersOfAnyCase) {
    PutOld();
    for (const char* part : {"out.SHX", "out.Dbf", "out.qpj"}) {
        Put(part, "of the earlier one");
    }
    Put("outside.qix", "of another one");
    Convert({"new.map", "out.shp"});
    EXPECT_THAT(Names(), ElementsAre("new.map", "old.map", "out.cpg", "out.dbf", "out.prj", "out.shp",
                                     "out.shx", "outside.qix"));
}

} // namespace
} // namespace quelmont
