#include "convert/append_lock.h"

#include "convert/map_line.h"
#include "core/stop_signals.h"
#include "support/temporary_folder.h"

#include <gtest/gtest.h>

#include <csignal>
#include <filesystem>
#include <string>

#include <fcntl.h>
#include <sys/file.h>
#include <unistd.h>

namespace quelmont {
namespace {

/// A lock as another process has it: locks belong to the open file, not to the process.
class OtherLock {
public:
    explicit OtherLock(const std::string& path) : descriptor(open(path.c_str(), O_RDONLY | O_CLOEXEC)) {
        taken = flock(descriptor, LOCK_EX | LOCK_NB) == 0;
    }
    ~OtherLock() { Release(); }
    OtherLock(const OtherLock&) = delete;
    OtherLock& operator=(const OtherLock&) = delete;

    bool Taken() const { return taken; }
    void Release() {
        if (descriptor >= 0) {
            close(descriptor);
        }
        descriptor = -1;
    }

private:
    int descriptor;
    bool taken = false;
};

class AppendLocks : public testing::Test {
protected:
    AppendLocks() { WriteWholeFile(file, "earlier"); }

    TemporaryFolder folder;
    std::string file = folder / "a.map";
    int waited = 0;
};

TEST_F(AppendLocks, KeepOthersOutAsLongAsTheyLive) {
    {
        const AppendLock lock(file, [this] { ++waited; });
        EXPECT_FALSE(OtherLock(file).Taken());
    }
    EXPECT_TRUE(OtherLock(file).Taken());
    EXPECT_EQ(waited, 0);
}

TEST_F(AppendLocks, WaitForOthersAndTellItOnce) {
    OtherLock other(file);
    ASSERT_TRUE(other.Taken());
    const AppendLock lock(file, [&] {
        ++waited;
        other.Release();
    });
    EXPECT_EQ(waited, 1);
    EXPECT_FALSE(OtherLock(file).Taken());
}

TEST_F(AppendLocks, FollowAFileThatWasReplacedWhileTheyWaited) {
    OtherLock other(file);
    const AppendLock lock(file, [&] {
        WriteWholeFile(folder / "b.map", "earlier and more");
        std::filesystem::rename(folder / "b.map", file);
        other.Release();
    });
    EXPECT_FALSE(OtherLock(file).Taken()) << "the file that is there now is locked";
}

TEST_F(AppendLocks, LockTheFolderOfAFileThatIsNotThere) {
    const std::string none = folder / "none.map";
    {
        const AppendLock lock(none, [this] { ++waited; });
        EXPECT_FALSE(OtherLock(folder.Path()).Taken());
    }
    OtherLock other(folder.Path());
    ASSERT_TRUE(other.Taken());
    const AppendLock lock(none, [&] {
        ++waited;
        WriteWholeFile(none, "made meanwhile");
        other.Release();
    });
    EXPECT_EQ(waited, 1);
    EXPECT_FALSE(OtherLock(none).Taken()) << "the file that is there now is locked";
    EXPECT_TRUE(OtherLock(folder.Path()).Taken());
}

TEST_F(AppendLocks, WaitNoLongerWhenTheProcessIsReportedToEnd) {
    const StopSignals signals;
    const OtherLock other(file);
    EXPECT_THROW(AppendLock(file, [] { std::raise(SIGTERM); }), ConvertError);
}

TEST_F(AppendLocks, AreNoneForWhatCannotBeOpened) {
    const AppendLock lock(folder / "none" + std::string("/a.map"), [this] { ++waited; });
    EXPECT_EQ(waited, 0);
}

} // namespace
} // namespace quelmont
