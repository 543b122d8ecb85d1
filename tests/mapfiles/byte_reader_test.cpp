#include "mapfiles/byte_reader.h"

#include "core/file_numbers.h"
#include "support/byte_text.h"
#include "support/failing_file.h"
#include "support/fresh_program.h"
#include "support/run_time_errors.h"

#include <gtest/gtest.h>

#include <limits>

namespace quelmont {
namespace {

class ByteReaderTest : public FreshProgramTest {
protected:
    void Open(const std::string& contents) {
        files.Put("input", contents);
        OpenFile(InputFileNumber, "input", OpenMode::Input);
    }
    FailingFiles files;
};

TEST_F(ByteReaderTest, GivesTheBytesInOrder) {
    Open("abcdef");
    ByteReader bytes;
    EXPECT_EQ(bytes.Take<1>()[0], std::byte{'a'});
    const auto three = bytes.Take<3>();
    EXPECT_EQ(three[0], std::byte{'b'});
    EXPECT_EQ(three[2], std::byte{'d'});
    EXPECT_TRUE(bytes.Has(2));
    EXPECT_FALSE(bytes.Has(3));
}

TEST_F(ByteReaderTest, LengthThatAFileTellsMeansNothing) {
    for (const std::int64_t told : {0, 1, 5, 1'000'000}) {
        files.TellLength(told);
        Open("abcdef");
        ByteReader bytes;
        EXPECT_TRUE(bytes.Has(6)) << told;
        EXPECT_EQ(Text(bytes.Ahead(100)), "abcdef") << told;
        EXPECT_EQ(Text(bytes.Take<6>()), "abcdef") << told;
        EXPECT_FALSE(bytes.Has(1)) << told;
        CloseFile(InputFileNumber);
    }
}

TEST_F(ByteReaderTest, ReadThatGivesFewerBytesIsNotTheEnd) {
    std::string contents;
    for (int i = 0; i < 300'000; ++i) {
        contents += static_cast<char>(i % 251);
    }
    files.ReadAtMost(7);
    Open(contents);
    ByteReader bytes;
    std::string read;
    while (bytes.Has(5)) {
        read += Text(bytes.Take<5>());
    }
    EXPECT_EQ(read, contents);
    EXPECT_FALSE(bytes.Has(1));
}

TEST_F(ByteReaderTest, FileThatGrowsIsReadAsLongAsItIsThen) {
    Open("abc");
    ByteReader bytes;
    files.Put("input", "abcdef");
    EXPECT_TRUE(bytes.Has(6));
    files.Put("input", "abcdefghi");
    EXPECT_EQ(Text(bytes.Take<6>()), "abcdef");
    EXPECT_TRUE(bytes.Has(3));
    EXPECT_FALSE(bytes.Has(4));
    files.Put("input", "abcdefghijkl");
    EXPECT_FALSE(bytes.Has(4)) << "an end that was seen stays";
}

TEST_F(ByteReaderTest, FileThatShrinksEnds) {
    Open(std::string(3 * ByteReader::BlockSize, 'x'));
    ByteReader bytes;
    EXPECT_TRUE(bytes.Has(1));
    files.Put("input", "xyz");
    bytes.Skip(static_cast<std::int64_t>(ByteReader::BlockSize));
    EXPECT_FALSE(bytes.Has(1));
}

TEST_F(ByteReaderTest, EmptyFileHasNothing) {
    Open("");
    ByteReader bytes;
    EXPECT_FALSE(bytes.Has(1));
    EXPECT_TRUE(bytes.Has(0));
}

TEST_F(ByteReaderTest, TakingTooManyIsAnErrorAndTakesNone) {
    Open("abc");
    ByteReader bytes;
    EXPECT_EQ(ErrorOf([&] { bytes.Take<4>(); }), ErrorInputPastEnd);
    EXPECT_EQ(bytes.Take<3>()[0], std::byte{'a'});
}

TEST_F(ByteReaderTest, PiecesReachAcrossBlocks) {
    // 7 does not divide the block: each boundary falls inside a piece.
    std::string contents;
    const std::size_t pieces = 3 * ByteReader::BlockSize / 7;
    for (std::size_t i = 0; i < pieces * 7; ++i) {
        contents += static_cast<char>(i % 251);
    }
    Open(contents);
    ByteReader bytes;
    std::size_t place = 0;
    for (std::size_t piece = 0; piece < pieces; ++piece) {
        for (const std::byte byte : bytes.Take<7>()) {
            ASSERT_EQ(byte, static_cast<std::byte>(contents[place])) << place;
            ++place;
        }
    }
    EXPECT_FALSE(bytes.Has(1));
}

TEST_F(ByteReaderTest, FileOfOneWholeBlockEnds) {
    Open(std::string(ByteReader::BlockSize, 'x'));
    ByteReader bytes;
    EXPECT_TRUE(bytes.Has(ByteReader::BlockSize));
    for (std::size_t i = 0; i < ByteReader::BlockSize / 4; ++i) {
        bytes.Take<4>();
    }
    EXPECT_FALSE(bytes.Has(1));
    EXPECT_FALSE(bytes.Has(1)) << "also when asked again";
}

TEST_F(ByteReaderTest, NeverHasMoreThanABlock) {
    Open(std::string(2 * ByteReader::BlockSize, 'x'));
    ByteReader bytes;
    EXPECT_FALSE(bytes.Has(ByteReader::BlockSize + 1));
    EXPECT_TRUE(bytes.Has(ByteReader::BlockSize));
}

TEST_F(ByteReaderTest, FailureOfTheFileComesThrough) {
    Open(std::string(2 * ByteReader::BlockSize, 'x'));
    files.FailReadingAfter(static_cast<std::int64_t>(ByteReader::BlockSize), ErrorDeviceIo);
    ByteReader bytes;
    EXPECT_TRUE(bytes.Has(1));
    for (std::size_t i = 0; i < ByteReader::BlockSize / 4; ++i) {
        bytes.Take<4>();
    }
    EXPECT_EQ(ErrorOf([&] { bytes.Has(1); }), ErrorDeviceIo);
}

TEST_F(ByteReaderTest, AheadShowsWhatIsNotTakenYet) {
    Open("abcdef");
    ByteReader bytes;
    EXPECT_EQ(Text(bytes.Ahead(100)), "abcdef") << "a file that is smaller than what is asked for";
    EXPECT_EQ(Text(bytes.Ahead(2)), "abcdef") << "all that is there";
    bytes.Take<2>();
    EXPECT_EQ(Text(bytes.Ahead(100)), "cdef");
    EXPECT_EQ(Text(bytes.Take<4>()), "cdef");
    EXPECT_EQ(Text(bytes.Ahead(1)), "");
}

TEST_F(ByteReaderTest, SkipStepsOverBytesNearAndFar) {
    std::string contents(4 * ByteReader::BlockSize, 'x');
    const std::size_t far = 3 * ByteReader::BlockSize + 5;
    contents[10] = 'n';
    contents[far] = 'f';
    Open(contents);
    ByteReader bytes;
    bytes.Skip(10);
    EXPECT_EQ(bytes.Take<1>()[0], std::byte{'n'});
    bytes.Skip(static_cast<std::int64_t>(far) - 11);
    EXPECT_EQ(bytes.Take<1>()[0], std::byte{'f'});
    bytes.Skip(static_cast<std::int64_t>(contents.size() - far) - 2);
    EXPECT_EQ(bytes.Take<1>()[0], std::byte{'x'});
    EXPECT_FALSE(bytes.Has(1));
}

TEST_F(ByteReaderTest, WhatIsSteppedOverIsNotRead) {
    // Two blocks in all may be read of a file of a hundred.
    Open(std::string(100 * ByteReader::BlockSize, 'x'));
    files.FailReadingAfter(static_cast<std::int64_t>(2 * ByteReader::BlockSize), ErrorDeviceIo);
    ByteReader bytes;
    EXPECT_TRUE(bytes.Has(1));
    bytes.Skip(static_cast<std::int64_t>(99 * ByteReader::BlockSize));
    EXPECT_TRUE(bytes.Has(1));
}

TEST_F(ByteReaderTest, EndOfTheFileIsSteppedOverToo) {
    Open("abc");
    ByteReader bytes;
    bytes.Take<1>();
    bytes.Skip(1000);
    EXPECT_FALSE(bytes.Has(1));
    EXPECT_EQ(ErrorOf([&] { bytes.Take<1>(); }), ErrorInputPastEnd);
    bytes.Skip(std::int64_t{1} << 40U);
    EXPECT_FALSE(bytes.Has(1));
}

TEST_F(ByteReaderTest, SkipGoesForwardOnlyAndNoFurtherThanNumbersReach) {
    Open("abc");
    ByteReader bytes;
    bytes.Take<2>();
    EXPECT_EQ(ErrorOf([&] { bytes.Skip(-1); }), ErrorInvalidCall);
    EXPECT_EQ(Text(bytes.Take<1>()), "c") << "a refused step changes nothing";
    bytes.Skip(1000);
    EXPECT_EQ(ErrorOf([&] { bytes.Skip(std::numeric_limits<std::int64_t>::max()); }), ErrorInvalidCall);
}

TEST_F(ByteReaderTest, FailureOfASeekComesThrough) {
    Open("abc");
    files.FailSeeking(ErrorDeviceIo);
    ByteReader bytes;
    EXPECT_EQ(ErrorOf([&] { bytes.Skip(4); }), ErrorDeviceIo);
}

TEST_F(ByteReaderTest, FileThatIsNotOpenIsAnError) {
    EXPECT_EQ(ErrorOf([] { ByteReader(); }), ErrorBadFileNumber);
}

TEST(LittleInt16, BytesAreTakenApartLowFirst) {
    EXPECT_EQ(LittleBytes(0x1234), (std::array{std::byte{0x34}, std::byte{0x12}}));
    EXPECT_EQ(LittleBytes(-2), (std::array{std::byte{0xFE}, std::byte{0xFF}}));
}

TEST(LittleInt16, LowByteComesFirst) {
    EXPECT_EQ(LittleInt16(std::byte{0x34}, std::byte{0x12}), 0x1234);
    EXPECT_EQ(LittleInt16(std::byte{0xFF}, std::byte{0xFF}), -1);
    EXPECT_EQ(LittleInt16(std::byte{0x00}, std::byte{0x80}), -32768);
}

} // namespace
} // namespace quelmont
