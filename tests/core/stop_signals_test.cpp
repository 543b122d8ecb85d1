#include "core/stop_signals.h"

#include "core/file_numbers.h"
#include "core/run_time_error.h"
#include "support/run_time_errors.h"
#include "support/temporary_folder.h"

#include <gtest/gtest.h>

#include <csignal>
#include <cstdlib>
#include <span>
#include <string>

#include <sys/resource.h>

namespace quelmont {
namespace {

/// A signal that ends a process unless the process does something about it.
class EndingSignal : public testing::TestWithParam<int> {
protected:
    ~EndingSignal() override { std::signal(number, before); }

    /// What the signal does now, which is its default from then on.
    void (*Handler() const)(int) { return std::signal(number, SIG_DFL); }

    const int number = GetParam();
    void (*const before)(int) = std::signal(number, SIG_DFL);
};

TEST_P(EndingSignal, IsRemembered) {
    const StopSignals stopSignals;
    EXPECT_FALSE(StopSignals::Came());
    std::raise(number);
    EXPECT_TRUE(StopSignals::Came());
}

TEST_P(EndingSignal, IsForgottenWhenTheNextWorkBegins) {
    {
        const StopSignals stopSignals;
        std::raise(number);
    }
    EXPECT_TRUE(StopSignals::Came()) << "who did the work may still want to know";
    const StopSignals next;
    EXPECT_FALSE(StopSignals::Came());
    std::raise(number);
    EXPECT_TRUE(StopSignals::Came());
}

TEST_P(EndingSignal, HasItsDefaultWhenTheWorkIsDone) {
    { const StopSignals stopSignals; }
    EXPECT_EQ(Handler(), SIG_DFL);
    {
        const StopSignals stopSignals;
        std::raise(number);
    }
    EXPECT_EQ(Handler(), SIG_DFL);
}

TEST_P(EndingSignal, StaysIgnored) {
    std::signal(number, SIG_IGN);
    {
        const StopSignals stopSignals;
        std::raise(number);
        EXPECT_FALSE(StopSignals::Came());
    }
    EXPECT_EQ(Handler(), SIG_IGN);
}

TEST_P(EndingSignal, EndsTheProcessWhenItComesTwice) {
    EXPECT_EXIT(
        {
            const StopSignals stopSignals;
            std::raise(number);
            std::raise(number);
        },
        testing::KilledBySignal(number), "");
}

int calls = 0;
void Count(int /*number*/) { ++calls; }

TEST_P(EndingSignal, HandlerThatWasThereIsCalledAndComesBack) {
    calls = 0;
    std::signal(number, Count);
    {
        const StopSignals stopSignals;
        std::raise(number);
        EXPECT_TRUE(StopSignals::Came());
        EXPECT_EQ(calls, 1);
    }
    EXPECT_EQ(Handler(), SIG_DFL) << "after a signal the next one ends the process";
    std::signal(number, Count);
    { const StopSignals stopSignals; }
    EXPECT_EQ(Handler(), &Count);
}

INSTANTIATE_TEST_SUITE_P(All, EndingSignal, testing::Values(SIGINT, SIGTERM, SIGHUP),
                         [](const auto& test) { return "Number" + std::to_string(test.param); });

/// Ends the process with the run-time error of writing 2000 bytes where 1000 are allowed.
[[noreturn]] void OutgrowTheLimit(const std::string& name) {
    const rlimit limit{1000, RLIM_INFINITY};
    setrlimit(RLIMIT_FSIZE, &limit);
    const rlimit noCore{0, 0};
    setrlimit(RLIMIT_CORE, &noCore);
    const std::string bytes(2000, 'a');
    OpenFile(OutputFileNumber, name, OpenMode::Output);
    std::_Exit(ErrorOf([&] {
        WriteFile(OutputFileNumber, std::as_bytes(std::span(bytes)));
        CloseFile(OutputFileNumber);
    }));
}

TEST(FileLimit, IsAFullDisk) {
    const TemporaryFolder folder;
    EXPECT_EXIT(
        {
            TakeFailedWritesAsErrors();
            OutgrowTheLimit(folder / "file");
        },
        testing::ExitedWithCode(ErrorDiskFull), "");
}

TEST(FileLimit, EndsTheProcessWhereItIsNotTakenAsAnError) {
    const TemporaryFolder folder;
    EXPECT_EXIT(
        {
            std::signal(SIGXFSZ, SIG_DFL);
            OutgrowTheLimit(folder / "file");
        },
        testing::KilledBySignal(SIGXFSZ), "");
}

} // namespace
} // namespace quelmont
