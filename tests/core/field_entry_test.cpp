#include "core/field_entry.h"
#include "support/field_masks.h"

#include <gtest/gtest.h>

#include <random>
#include <string>
#include <string_view>
#include <vector>

namespace quelmont {
namespace {

/// A field just entered.
FieldEntry Entered(std::string_view mask, std::string_view text) {
    FieldEntry entry(mask);
    entry.Show(text);
    entry.Enter();
    return entry;
}

/// The field when it has been left after those keys.
std::string Left(std::string_view mask, std::string_view text, std::string_view typed) {
    FieldEntry entry = Entered(mask, text);
    EXPECT_TRUE(entry.Type(typed)) << typed;
    entry.Leave();
    return entry.Text();
}

void SelectAll(FieldEntry& entry) { entry.Select(0, entry.Text().size()); }

TEST(FieldEntry, TakesWhatPeopleType) {
    EXPECT_EQ(Left(LongitudeMask, "180    30    00    W", "70 w"), "070    00    00    W");
    EXPECT_EQ(Left(LatitudeMask, "20    30    00    N", "5 n"), "05    00    00    N");
    EXPECT_EQ(Left(LongitudeMask, "180    30    00    W", "12.5 W"), "012    30    00    W");
    EXPECT_EQ(Left(ArcMask, "030    00    00", "15"), "015    00    00");
    EXPECT_EQ(Left(MillionMask, "0,300,000", "500000"), "0,500,000");
    EXPECT_EQ(Left(ScaleMask, "0.9996", "1"), "1.0000");
}

TEST(FieldEntry, LeavingTwiceOrUntouchedChangesNothing) {
    FieldEntry entry = Entered(ArcMask, "030    00    00");
    entry.Leave();
    EXPECT_EQ(entry.Text(), "030    00    00");
    entry.Enter();
    entry.Type("1");
    entry.Leave();
    entry.Leave();
    EXPECT_EQ(entry.Text(), "001    00    00");
}

TEST(FieldEntry, EnteringAgainTypesAnew) {
    FieldEntry entry = Entered(ArcMask, "030    00    00");
    entry.Type("0153000");
    EXPECT_FALSE(entry.Type("1")) << "it is full";
    entry.Enter();
    EXPECT_EQ(entry.Cursor(), 0U);
    EXPECT_TRUE(entry.Type("7"));
    entry.Leave();
    EXPECT_EQ(entry.Text(), "007    30    00");
}

TEST(FieldEntry, AfterACursorKeyDigitsReplaceOneColumnEach) {
    FieldEntry entry = Entered(LongitudeMask, "180    30    00    W");
    entry.MoveRight();
    EXPECT_TRUE(entry.Type("2"));
    EXPECT_EQ(entry.Text(), "120    30    00    W");
    EXPECT_TRUE(entry.Type(" 4"));
    EXPECT_EQ(entry.Text(), "120    40    00    W");
    EXPECT_TRUE(entry.Type("e"));
    entry.Leave();
    EXPECT_EQ(entry.Text(), "120    40    00    E") << "nothing is moved, and nothing becomes 00";
}

TEST(FieldEntry, CursorKeyEndsFreshDigitsWhereTheyStand) {
    FieldEntry entry = Entered(ArcMask, "030    00    00");
    entry.Type("15");
    entry.MoveRight();
    entry.Leave();
    EXPECT_EQ(entry.Text(), "150    00    00");
}

TEST(FieldEntry, CursorKeyThatCannotMoveCountsToo) {
    FieldEntry entry = Entered(ArcMask, "030    00    00");
    entry.MoveLeft();
    entry.Type("1");
    entry.Leave();
    EXPECT_EQ(entry.Text(), "130    00    00");
}

TEST(FieldEntry, CursorThatStandsElsewhereWasMoved) {
    FieldEntry entry = Entered(LongitudeMask, "180    30    00    W");
    entry.Select(7, 7);
    EXPECT_TRUE(entry.Type("1"));
    entry.Leave();
    EXPECT_EQ(entry.Text(), "180    10    00    W");
}

TEST(FieldEntry, TypingReplacesTheWholeWhenAllIsSelected) {
    FieldEntry entry = Entered(LongitudeMask, "180    30    15    W");
    SelectAll(entry);
    EXPECT_TRUE(entry.Type("7"));
    EXPECT_EQ(entry.Text(), "700    00    00    W");
    entry.Leave();
    EXPECT_EQ(entry.Text(), "007    00    00    W");
    SelectAll(entry);
    EXPECT_FALSE(entry.Type("/"));
    EXPECT_EQ(entry.Text(), "007    00    00    W") << "a key without a meaning replaces nothing";
}

TEST(FieldEntry, PartlySelectedIsTypedOverFromItsBeginning) {
    FieldEntry entry = Entered(LongitudeMask, "180    30    15    W");
    entry.Select(7, 15);
    EXPECT_TRUE(entry.Type("4"));
    EXPECT_EQ(entry.Text(), "180    40    15    W");
}

TEST(FieldEntry, ErasesWhatWasTypedLast) {
    FieldEntry entry = Entered(LongitudeMask, "180    30    00    W");
    entry.Type("75");
    entry.Backspace();
    EXPECT_EQ(entry.Text(), "700    30    00    W") << "an erased digit becomes 0";
    entry.Type(" w");
    EXPECT_EQ(entry.Text(), "007    00    00    W");
    entry.Backspace();
    entry.Backspace();
    entry.Type("2e");
    EXPECT_EQ(entry.Text(), "072    00    00    E");
}

TEST(FieldEntry, ErasesDigitsAtTheCursor) {
    FieldEntry entry = Entered(LongitudeMask, "180    30    00    W");
    entry.Backspace();
    EXPECT_EQ(entry.Text(), "180    30    00    W") << "nothing stands before the first column";
    entry.Select(8, 8);
    entry.Backspace();
    EXPECT_EQ(entry.Text(), "180    00    00    W");
    EXPECT_EQ(entry.Cursor(), 7U);
    entry.MoveCursor(0);
    entry.Delete();
    EXPECT_EQ(entry.Text(), "080    00    00    W");
    EXPECT_EQ(entry.Cursor(), 1U);
}

TEST(FieldEntry, ErasedWholeTakesANewValue) {
    FieldEntry entry = Entered(LongitudeMask, "180    30    00    W");
    SelectAll(entry);
    entry.Delete();
    EXPECT_EQ(entry.Text(), "000    00    00    W");
    entry.Type("70");
    entry.Leave();
    EXPECT_EQ(entry.Text(), "070    00    00    W");
}

TEST(FieldEntry, LetterTypedAgainCorrectsTheFirst) {
    FieldEntry entry = Entered(LongitudeMask, "180    30    00    W");
    EXPECT_TRUE(entry.Type("70 w"));
    EXPECT_TRUE(entry.Type("e"));
    EXPECT_EQ(entry.Text(), "070    00    00    E");
    entry.MoveCursor(entry.Text().size());
    EXPECT_TRUE(entry.Type("w"));
    EXPECT_EQ(entry.Text(), "070    00    00    W");
}

TEST(FieldEntry, LetterWithoutAPlaceEndsItsGroupAndIsRefused) {
    FieldEntry entry = Entered(ArcMask, "030    00    00");
    EXPECT_FALSE(entry.Type("15n"));
    EXPECT_EQ(entry.Text(), "015    00    00");
}

TEST(FieldEntry, TypesUpToTheFirstRefusedCharacter) {
    FieldEntry entry = Entered(LongitudeMask, "180    30    00    W");
    EXPECT_FALSE(entry.Type("70 /w"));
    EXPECT_EQ(entry.Text(), "070    30    00    W");
}

struct Pasted {
    std::string_view mask;
    std::string_view before;
    std::string_view pasted;
    std::string_view after; ///< empty: refused
};

TEST(FieldEntry, PasteIsTakenWholeOrRefused) {
    constexpr std::string_view e1 = "001    02    03    E";
    constexpr std::string_view n1 = "01    02    03    N";
    constexpr std::string_view arc = "030    15    00";
    const std::vector<Pasted> table = {
        {LongitudeMask, e1, "122    26    00    W", "122    26    00    W"},
        {LongitudeMask, e1, "122 26 0 W", "122    26    00    W"},
        {LongitudeMask, e1, " 122 26 00 w\r\n", "122    26    00    W"},
        {LongitudeMask, e1, "122\t26\t00\tW", "122    26    00    W"},
        {LongitudeMask, e1, "122:26:00W", "122    26    00    W"},
        {LongitudeMask, e1, "122:26:00:W", "122    26    00    W"},
        {LongitudeMask, e1, "1222600W", "122    26    00    W"},
        {LongitudeMask, e1, "122\u00B026\u203200\u2033 W", "122    26    00    W"},
        {LongitudeMask, e1, "-122.4333", "122    26    00    W"},
        {LongitudeMask, e1, "70", "070    00    00    E"},
        {LongitudeMask, e1, "999 W", "999    00    00    W"},
        {LatitudeMask, n1, "-37.5", "37    30    00    S"},
        {LatitudeMask, n1, "40N", "40    00    00    N"},
        {LatitudeMask, n1, "37\u00B046'30.12\"N", "37    46    30    N"},
        {ArcMask, arc, "22.5", "022    30    00"},
        {ArcMask, arc, "15", "015    00    00"},
        {MillionMask, "0300000", "500,000", "0,500,000"},
        {MillionMask, "0300000", "500000.00", "0,500,000"},
        {MillionMask, "0300000", "500000", "0,500,000"},
        {ScaleMask, "0.9996", "1", "1.0000"},
        {LongitudeMask, e1, "1234 W", ""}, // 123 4 or 12 34
        {LongitudeMask, e1, "1000 W", ""},
        {LongitudeMask, e1, "somewhere else", ""},
        {LongitudeMask, e1, "W", ""},
        {LongitudeMask, e1, "12 W E", ""},
        {LongitudeMask, e1, "12 30 15 10 W", ""},
        {LongitudeMask, e1, "122 W\n37 N", ""},
        {LongitudeMask, e1, "12\n30", ""},
        {LongitudeMask, e1, "\u00B012", ""},
        {LongitudeMask, e1, "", ""},
        {LongitudeMask, e1, "   ", ""},
        {LongitudeMask, e1, "\xC3\x28\xFF", ""},
        {LatitudeMask, n1, "-37 N", ""},
        {LatitudeMask, n1, "1e5", ""},
        {ArcMask, arc, "15 N", ""},
        {ArcMask, arc, "-15", ""},
        {MillionMask, "0300000", "12345678", ""},
        {MillionMask, "0300000", "no number", ""},
        {MillionMask, "0300000", "5,00", ""},
        {MillionMask, "0300000", "500.000", ""}, // thousands or decimals
        {ScaleMask, "0.9996", "0.99987742", ""},
    };
    for (const Pasted& row : table) {
        FieldEntry entry = Entered(row.mask, row.before);
        const std::string before = entry.Text();
        EXPECT_EQ(entry.Paste(row.pasted), !row.after.empty()) << row.pasted;
        EXPECT_EQ(entry.Text(), row.after.empty() ? before : row.after) << row.pasted;
        if (row.after.empty()) {
            EXPECT_EQ(entry.Cursor(), 0U) << row.pasted;
        }
    }
}

TEST(FieldEntry, PasteOfAnyLengthIsAnswered) {
    FieldEntry entry = Entered(LongitudeMask, "001    02    03    E");
    EXPECT_FALSE(entry.Paste(std::string(10000, '1')));
    EXPECT_FALSE(entry.Paste("12." + std::string(10000, '5')));
    EXPECT_FALSE(entry.Paste("12" + std::string(10000, ' ') + "W"));
    EXPECT_EQ(entry.Text(), "001    02    03    E");
}

TEST(FieldEntry, PastedDigitsReplaceColumnsAfterAMove) {
    FieldEntry entry = Entered(LongitudeMask, "122    26    00    W");
    entry.MoveCursor(7);
    EXPECT_TRUE(entry.Paste("3045"));
    EXPECT_EQ(entry.Text(), "122    30    45    W");
    entry.MoveCursor(14);
    EXPECT_FALSE(entry.Paste("123")) << "only two columns are left";
    EXPECT_EQ(entry.Text(), "122    30    45    W");
    entry.MoveCursor(20);
    EXPECT_TRUE(entry.Paste("7")) << "behind the last column it is a value";
    EXPECT_EQ(entry.Text(), "007    00    00    W");
}

TEST(FieldEntry, PasteReplacesWhatIsSelected) {
    FieldEntry entry = Entered(LongitudeMask, "122    26    00    W");
    SelectAll(entry);
    EXPECT_TRUE(entry.Paste("70"));
    EXPECT_EQ(entry.Text(), "070    00    00    W");
}

TEST(FieldEntry, UndoGivesTheLastTextBack) {
    FieldEntry entry = Entered(LongitudeMask, "180    30    00    W");
    EXPECT_FALSE(entry.CanUndo());
    EXPECT_FALSE(entry.Undo());
    entry.Type("70 w");
    EXPECT_TRUE(entry.Undo()) << "a value is undone whole";
    EXPECT_EQ(entry.Text(), "180    30    00    W");
    EXPECT_TRUE(entry.Redo());
    EXPECT_EQ(entry.Text(), "070    00    00    W");
    EXPECT_FALSE(entry.Redo());
    entry.Paste("12 E");
    entry.MoveCursor(0);
    entry.Type("34");
    SelectAll(entry);
    entry.Delete();
    EXPECT_EQ(entry.Text(), "000    00    00    E");
    std::vector<std::string> texts;
    while (entry.Undo()) {
        texts.push_back(entry.Text());
    }
    EXPECT_EQ(texts, (std::vector<std::string>{"342    00    00    E", "012    00    00    E",
                                               "070    00    00    W", "180    30    00    W"}));
    EXPECT_FALSE(entry.CanUndo());
}

TEST(FieldEntry, UndoOutlivesLeavingTheField) {
    FieldEntry entry = Entered(ArcMask, "030    00    00");
    entry.Type("15");
    entry.Leave();
    entry.Enter();
    EXPECT_TRUE(entry.Undo());
    EXPECT_EQ(entry.Text(), "030    00    00");
    EXPECT_TRUE(entry.Type("7"));
    entry.Leave();
    EXPECT_EQ(entry.Text(), "007    00    00") << "what is typed then is fresh";
}

TEST(FieldEntry, TextOfTheProgramForgetsWhatWasTyped) {
    FieldEntry entry = Entered(ArcMask, "030    00    00");
    entry.Type("99");
    entry.Show("045    00    00");
    entry.Leave();
    EXPECT_EQ(entry.Text(), "045    00    00");
    EXPECT_FALSE(entry.CanUndo());
}

/// Whether a text has the columns of a mask.
bool HasShape(std::string_view mask, std::string_view text) {
    if (text.size() != mask.size()) {
        return false;
    }
    for (std::size_t k = 0; k < mask.size(); ++k) {
        const char c = text[k];
        const bool fits = mask[k] == '%'   ? c >= '0' && c <= '9'
                          : mask[k] == '?' ? c == ' ' || (c >= 'A' && c <= 'Z')
                                           : c == mask[k];
        if (!fits) {
            return false;
        }
    }
    return true;
}

TEST(FieldEntry, KeepsItsColumnsWhateverIsDone) {
    const std::vector<std::string> pieces = {
        "0",      "1",      "5",      "9",      "12",         "180",  "w",      "E",     "n",    "S", "x",
        " ",      "  ",     ".",      ",",      ":",          "'",    "\"",     "-",     "+",    "/", "\n",
        "\u00B0", "\u2032", "\u2033", "\u0663", "\U0001F30D", "\xFF", "12.5 W", "1 2 3", "6,200"};
    std::mt19937 random(20260401);
    const auto below = [&](std::size_t n) { return random() % n; };
    for (const std::string_view mask : {LatitudeMask, LongitudeMask, ArcMask, MillionMask, ScaleMask}) {
        FieldEntry entry(mask);
        for (int step = 0; step < 20000; ++step) {
            const std::string before = entry.Text();
            switch (below(11)) {
            case 0:
                entry.Enter();
                break;
            case 1:
                entry.Leave();
                break;
            case 2:
                entry.MoveCursor(below(mask.size() + 3));
                break;
            case 3: {
                const std::size_t first = below(mask.size() + 1);
                entry.Select(first, first + below(mask.size() + 1 - first));
                break;
            }
            case 4:
                SelectAll(entry);
                break;
            case 5:
                entry.Backspace();
                break;
            case 6:
                entry.Delete();
                break;
            case 7: {
                std::string pasted;
                for (std::size_t n = below(5); n > 0; --n) {
                    pasted += pieces[below(pieces.size())];
                }
                if (!entry.Paste(pasted)) {
                    ASSERT_EQ(entry.Text(), before) << "half taken: " << pasted;
                }
                break;
            }
            case 8:
                if (below(4) == 0) {
                    entry.Undo();
                } else if (below(2) == 0) {
                    entry.Redo();
                }
                break;
            default:
                entry.Type(pieces[below(pieces.size())]);
            }
            ASSERT_TRUE(HasShape(mask, entry.Text())) << entry.Text();
            ASSERT_LE(entry.Cursor(), mask.size());
        }
    }
}

} // namespace
} // namespace quelmont
