#include "core/number_text.h"
#include "core/print_layer.h"
#include "support/temporary_folder.h"

#include <gtest/gtest.h>

#include <clocale>
#include <cstdlib>
#include <cstring>
#include <locale>
#include <optional>

namespace quelmont {
namespace {

/// Writes "1.234,5" as German does, with no need of an installed locale.
class GermanPunctuation : public std::numpunct<char> {
    char do_decimal_point() const override { return ','; }
    char do_thousands_sep() const override { return '.'; }
    std::string do_grouping() const override { return "\3"; }
};

/// Runs each test with a German C locale, an installed one or one made for the test, and with
/// German punctuation in the streams.
class NumbersInGermany : public testing::Test {
protected:
    void SetUp() override {
        before = std::setlocale(LC_ALL, nullptr);
        streamsBefore = std::locale::global(std::locale(std::locale::classic(), new GermanPunctuation));
        if (std::setlocale(LC_ALL, "de_DE.UTF-8") == nullptr) {
            const std::string make =
                "localedef -i de_DE -f UTF-8 " + (folder / "de_DE.UTF-8") + " 2>/dev/null";
            if (std::system(make.c_str()) == 0) {
                setenv("LOCPATH", folder.Path().c_str(), 1);
                std::setlocale(LC_ALL, "de_DE.UTF-8");
            }
        }
        if (std::strcmp(std::localeconv()->decimal_point, ",") != 0) {
            GTEST_SKIP() << "this system has no German locale and cannot make one";
        }
    }

    void TearDown() override {
        std::locale::global(streamsBefore);
        std::setlocale(LC_ALL, before.c_str());
        unsetenv("LOCPATH");
    }

    TemporaryFolder folder;
    std::string before;
    std::locale streamsBefore;
};

TEST_F(NumbersInGermany, AreReadAndWrittenWithAPoint) {
    ASSERT_EQ(std::strtod("1.5", nullptr), 1.0) << "the C library must follow the locale";
    EXPECT_EQ(ValueOf("1.5"), 1.5);
    EXPECT_EQ(ValueOf("1,5"), 1.0);
    EXPECT_EQ(ValueOf("-122.4333E1"), -1224.333);
    EXPECT_EQ(FormatNumber(1234.5, "0,000.00"), "1,234.50");
    EXPECT_EQ(FormatNumber(0.00012345, "0.0000E+00"), "1.2345E-04");
    EXPECT_EQ(GeneralText(1234.5), " 1234.5");
    EXPECT_EQ(GeneralText(0.25F), " .25");
    std::string line;
    AddItem(line, std::int32_t{1234567});
    EXPECT_EQ(line, " 1234567 ");
}

} // namespace
} // namespace quelmont
