#include "mapinput/byte_reader.h"

#include "core/file_numbers.h"
#include "map_fixture.h"
#include "support/run_time_errors.h"

#include <gtest/gtest.h>

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

TEST_F(ByteReaderTest, FileThatIsNotOpenIsAnError) {
    EXPECT_EQ(ErrorOf([] { ByteReader(); }), ErrorBadFileNumber);
}

TEST(LittleInt16, LowByteComesFirst) {
    EXPECT_EQ(LittleInt16(std::byte{0x34}, std::byte{0x12}), 0x1234);
    EXPECT_EQ(LittleInt16(std::byte{0xFF}, std::byte{0xFF}), -1);
    EXPECT_EQ(LittleInt16(std::byte{0x00}, std::byte{0x80}), -32768);
}

} // namespace
} // namespace quelmont
