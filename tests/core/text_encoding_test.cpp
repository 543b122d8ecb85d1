#include "core/text_encoding.h"

#include <gtest/gtest.h>

namespace quelmont {
namespace {

TEST(TextEncoding, Utf8StaysAsItIs) {
    for (const std::string_view text :
         {"", "Oslo", "S\xC3\xA3o Paulo", "\xE6\x9D\xB1\xE4\xBA\xAC", "\xF0\x9F\x97\xBA"}) {
        EXPECT_TRUE(IsUtf8(text));
        EXPECT_EQ(ToUtf8(text), text);
    }
}

TEST(TextEncoding, AnythingElseIsWindows1252) {
    EXPECT_EQ(ToUtf8("K\xF6ln"), "K\xC3\xB6ln");
    EXPECT_EQ(ToUtf8("\x80\x96\x8A\xFF"), "\xE2\x82\xAC\xE2\x80\x93\xC5\xA0\xC3\xBF") << "Euro, dash, S, y";
    EXPECT_EQ(ToUtf8("S\xC3\xA3o \xE3"), "S\xC3\x83\xC2\xA3o \xC3\xA3")
        << "one wrong byte and all are read so";
}

TEST(TextEncoding, BytesWithoutACharacterBecomeControlCharacters) {
    EXPECT_EQ(ToUtf8("\x81"), "\xC2\x81");
    EXPECT_EQ(ToUtf8("\x9D"), "\xC2\x9D");
}

TEST(TextEncoding, MalformedSequencesAreNoUtf8) {
    // Cut off, without a lead, overlong, surrogate, above U+10FFFF, and bytes that never occur.
    for (const std::string_view text :
         {"\xC3", "a\xE6\x9D", "\xF0\x9F\x97", "\xA3", "\xC0\xAF", "\xC1\xBF", "\xE0\x9F\xBF",
          "\xF0\x8F\xBF\xBF", "\xED\xA0\x80", "\xF4\x90\x80\x80", "\xF5\x80\x80\x80", "\xFF", "\xC3(",
          "\xE6\x9D(", "\xF0\x9F\x97("}) {
        EXPECT_FALSE(IsUtf8(text)) << ToUtf8(text);
    }
    for (const std::string_view text : {"\xC2\x80", "\xE0\xA0\x80", "\xED\x9F\xBF", "\xEE\x80\x80",
                                        "\xF0\x90\x80\x80", "\xF4\x8F\xBF\xBF"}) {
        EXPECT_TRUE(IsUtf8(text)) << "the first and last of each form";
    }
}

} // namespace
} // namespace quelmont
