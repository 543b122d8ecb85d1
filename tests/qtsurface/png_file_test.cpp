#include "core/file_numbers.h"
#include "core/run_time_error.h"
#include "qtsurface/picture.h"
#include "qtsurface/png_file.h"
#include "support/failing_file.h"
#include "support/temporary_folder.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <iterator>

#include <sys/stat.h>

namespace quelmont {
namespace {

/// The error of a picture saved under a name, 0 when there was none.
int ErrorOfSaving(const ImageSurface& surface, const std::string& path) {
    try {
        SavePng(surface.Image(), path);
        return 0;
    } catch (const RunTimeError& error) {
        return error.Number();
    }
}

class PngFile : public testing::Test {
protected:
    PngFile() { sheet.Line({0, 1}, {4, 1}); }

    auto FilesInFolder() const {
        const std::filesystem::directory_iterator files(folder.Path());
        return std::distance(begin(files), end(files));
    }

    Sheet sheet{4, 3};
    TemporaryFolder folder;
};

TEST_F(PngFile, HoldsThePicture) {
    SavePng(sheet.surface.Image(), folder / "a.png");
    const QImage read(QString::fromStdString(folder / "a.png"));
    ASSERT_EQ(read.size(), QSize(4, 3));
    for (int y = 0; y < 3; ++y) {
        for (int x = 0; x < 4; ++x) {
            EXPECT_EQ(read.pixel(x, y), sheet.surface.Image().pixel(x, y));
        }
    }
    EXPECT_EQ(FilesInFolder(), 1);
    EXPECT_FALSE(IsFileOpen(OutputFileNumber));
}

TEST_F(PngFile, HasItsResolutionAndTextsInAnyLetters) {
    const std::string title = "K\xC3\xB8ge \xE6\x9D\xB1 <&> \x01\n\xF8"; // the last is no UTF-8
    SavePng(sheet.surface.Image(), folder / "a.png", {3780.4, 7559.0, title, "Quelmont 3.00"});
    const QImage read(QString::fromStdString(folder / "a.png"));
    EXPECT_EQ(read.dotsPerMeterX(), 3780);
    EXPECT_EQ(read.dotsPerMeterY(), 7559);
    // Then all of it is taken for Windows-1252, whose 0x9D has no character.
    EXPECT_EQ(read.text(QStringLiteral("Title")).toStdString(), "KÃ¸ge æ ± <&>   ø");
    EXPECT_EQ(read.text(QStringLiteral("Software")), QStringLiteral("Quelmont 3.00"));
    SavePng(sheet.surface.Image(), folder / "b.png", {0.0, 0.0, "K\xC3\xB8ge \xE6\x9D\xB1", ""});
    const QImage other(QString::fromStdString(folder / "b.png"));
    EXPECT_EQ(other.text(QStringLiteral("Title")).toStdString(), "K\xC3\xB8ge \xE6\x9D\xB1");
    EXPECT_EQ(other.text(QStringLiteral("Software")), QString());
}

TEST_F(PngFile, PixelsAreTheImage) {
    const QImage image = ImageOf({2, 1, {0x0000FFU, 0xFF8000U}});
    EXPECT_EQ(image.pixel(0, 0), qRgb(255, 0, 0));
    EXPECT_EQ(image.pixel(1, 0), qRgb(0, 128, 255));
    EXPECT_EQ(EncodePng(image).left(8), QByteArray("\x89PNG\r\n\x1A\n", 8));
}

TEST_F(PngFile, ReplacesAnEarlierOne) {
    WriteWholeFile(folder / "a.png", "earlier");
    SavePng(sheet.surface.Image(), folder / "a.png");
    EXPECT_EQ(ReadWholeFile(folder / "a.png").substr(1, 3), "PNG");
    EXPECT_EQ(FilesInFolder(), 1);
}

TEST_F(PngFile, IsTheSameForTheSamePicture) {
    SavePng(sheet.surface.Image(), folder / "a.png");
    SavePng(sheet.surface.Image(), folder / "b.png");
    EXPECT_EQ(ReadWholeFile(folder / "a.png"), ReadWholeFile(folder / "b.png"));
}

TEST_F(PngFile, LinkStaysALink) {
    WriteWholeFile(folder / "real.png", "earlier");
    std::filesystem::create_symlink("real.png", folder / "link.png");
    SavePng(sheet.surface.Image(), folder / "link.png");
    EXPECT_TRUE(std::filesystem::is_symlink(folder / "link.png"));
    EXPECT_EQ(ReadWholeFile(folder / "real.png").substr(1, 3), "PNG");
}

TEST_F(PngFile, NeedsItsFolder) {
    EXPECT_EQ(ErrorOfSaving(sheet.surface, folder / "missing/a.png"), ErrorPathNotFound);
    WriteWholeFile(folder / "file", "");
    EXPECT_EQ(ErrorOfSaving(sheet.surface, folder / "file/a.png"), ErrorPathNotFound);
}

TEST_F(PngFile, DoesNotReplaceAFolder) {
    std::filesystem::create_directory(folder / "a.png");
    EXPECT_EQ(ErrorOfSaving(sheet.surface, folder / "a.png"), ErrorPathFileAccess);
    EXPECT_TRUE(std::filesystem::is_directory(folder / "a.png"));
    EXPECT_EQ(FilesInFolder(), 1);
}

TEST_F(PngFile, DoesNotReplaceADevice) {
    ASSERT_EQ(mkfifo((folder / "pipe.png").c_str(), 0600), 0);
    EXPECT_EQ(ErrorOfSaving(sheet.surface, folder / "pipe.png"), ErrorPathFileAccess);
    std::filesystem::create_symlink("/dev/full", folder / "full.png");
    EXPECT_EQ(ErrorOfSaving(sheet.surface, folder / "full.png"), ErrorPathFileAccess);
    EXPECT_TRUE(std::filesystem::is_character_file("/dev/full"));
    EXPECT_EQ(FilesInFolder(), 2);
}

TEST_F(PngFile, EarlierOneOutlivesAFullDisk) {
    WriteWholeFile(folder / "a.png", "earlier");
    FailingFiles files;
    files.FailWritingAfter(20, ErrorDiskFull);
    EXPECT_EQ(ErrorOfSaving(sheet.surface, folder / "a.png"), ErrorDiskFull);
    EXPECT_FALSE(IsFileOpen(OutputFileNumber));
    EXPECT_EQ(ReadWholeFile(folder / "a.png"), "earlier");
}

TEST_F(PngFile, EarlierOneOutlivesAFailureAtTheVeryEnd) {
    WriteWholeFile(folder / "a.png", "earlier");
    FailingFiles files;
    files.FailClosing(ErrorDeviceIo);
    EXPECT_EQ(ErrorOfSaving(sheet.surface, folder / "a.png"), ErrorDeviceIo);
    EXPECT_FALSE(IsFileOpen(OutputFileNumber));
    EXPECT_EQ(ReadWholeFile(folder / "a.png"), "earlier");
}

TEST_F(PngFile, LeavesAFileAloneThatIsOpenUnderItsNumber) {
    OpenFile(OutputFileNumber, folder / "other", OpenMode::Output);
    EXPECT_EQ(ErrorOfSaving(sheet.surface, folder / "a.png"), ErrorFileAlreadyOpen);
    EXPECT_TRUE(IsFileOpen(OutputFileNumber));
    CloseFile(OutputFileNumber);
}

/// A picture of 32 columns and rows with as many colours, each a little redder or bluer.
ImageSurface Colourful(int colors) {
    ImageSurface surface(32, 32);
    for (int i = 0; i < 1024; ++i) {
        const auto shade = static_cast<std::uint32_t>(i % colors);
        surface.SetPixel(i % 32, i / 32, (shade & 0xFFU) | (shade >> 8U << 16U));
    }
    return surface;
}

TEST(ColourfulPicture, KeepsItsColours) {
    const TemporaryFolder folder;
    for (const int colors : {1, 2, 255, 256, 257, 600}) {
        const ImageSurface surface = Colourful(colors);
        SavePng(surface.Image(), folder / "a.png");
        const QImage read = QImage(QString::fromStdString(folder / "a.png"));
        ASSERT_EQ(read.convertToFormat(QImage::Format_RGB32), surface.Image()) << colors;
        EXPECT_EQ(read.format() == QImage::Format_RGB32, colors > 256) << colors;
    }
}

TEST(EmptyPicture, IsNotSaved) {
    const TemporaryFolder folder;
    EXPECT_EQ(ErrorOfSaving(ImageSurface(0, 5), folder / "a.png"), ErrorInvalidCall);
    EXPECT_FALSE(std::filesystem::exists(folder / "a.png"));
}

} // namespace
} // namespace quelmont
