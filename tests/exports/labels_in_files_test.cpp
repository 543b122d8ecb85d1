#include "exports/whole_draw.h"
#include "support/cgm_file.h"
#include "support/dxf_file.h"
#include "support/svg_file.h"
#include "support/wmf_file.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cstdint>
#include <ostream>
#include <string>
#include <vector>

namespace quelmont {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::SizeIs;

/// A text of a file with its anchor in logical units, y upward.
struct PlacedText {
    std::string text;
    std::int64_t x = 0, y = 0;
};

std::vector<PlacedText> TextsOfCgm(std::string_view bytes) {
    std::vector<PlacedText> texts;
    for (const CgmElement& element : ReadCgm(bytes)) {
        if (element.name == "TEXT") {
            texts.push_back({element.text, element.numbers.at(0), element.numbers.at(1)});
        }
    }
    return texts;
}

std::vector<PlacedText> TextsOfDxf(std::string_view bytes) {
    std::vector<PlacedText> texts;
    bool inText = false;
    for (const DxfGroup& group : ReadDxf(bytes)) {
        if (group.code == 0) {
            inText = group.value == "TEXT";
            if (inText) {
                texts.emplace_back();
            }
        } else if (inText && group.code == 1) {
            texts.back().text = group.value;
        } else if (inText && (group.code == 10 || group.code == 20)) {
            (group.code == 10 ? texts.back().x : texts.back().y) = std::stoll(group.value);
        }
    }
    return texts;
}

std::vector<PlacedText> TextsOfWmf(std::string_view bytes) {
    std::vector<PlacedText> texts;
    for (const WmfRecord& record : ReadWmf(bytes).records) {
        if (record.name == "TextOut") {
            texts.push_back({record.text, record.numbers.at(1), record.numbers.at(0)});
        }
    }
    return texts;
}

/// A pixel is a twip, 32000 of which are 31999 units; one row of pixels lies below the map.
std::vector<PlacedText> TextsOfSvg(std::string_view bytes) {
    std::vector<PlacedText> texts;
    for (const SvgElement& element : SvgElements(bytes, "text")) {
        texts.push_back({element.text, std::lround(element.Numbers("x").at(0)),
                         std::lround(23100.0 - element.Numbers("y").at(0))});
    }
    return texts;
}

struct TextFormat {
    const char* ending;
    std::vector<PlacedText> (*texts)(std::string_view bytes);
};
void PrintTo(const TextFormat& format, std::ostream* out) { *out << format.ending; }

/// Draws with labels into files of each format that has texts.
class LabelsInFiles : public WholeDraw, public testing::WithParamInterface<TextFormat> {
protected:
    /// A map file of the folder.
    std::string Towns(const std::string& points, const std::string& name = "towns.prn") const {
        WriteWholeFile(folder / name, points);
        return folder / name;
    }
    std::vector<PlacedText> TextsOfFile() const {
        return GetParam().texts(File("map." + std::string(GetParam().ending)));
    }
    std::vector<std::string> WordsOfFile() const {
        std::vector<std::string> words;
        for (const PlacedText& text : TextsOfFile()) {
            words.push_back(text.text);
        }
        return words;
    }
    /// What the window shows, in its order, has the same places in the file.
    void ExpectPlacesOfTheWindow() {
        const std::vector<RecordedText>& shown = machine.window.surface.Texts();
        const std::vector<PlacedText> filed = TextsOfFile();
        ASSERT_GE(shown.size(), filed.size());
        const std::size_t before =
            shown.size() - filed.size(); // drawn with their lobes, and again at the end
        for (std::size_t i = 0; i < filed.size(); ++i) {
            const RecordedText& text = shown[before + i];
            EXPECT_EQ(filed[i].text, text.text);
            // The window's pixels are logical units but for one in 32000.
            EXPECT_NEAR(static_cast<double>(filed[i].x), text.anchor.x, 2.0) << filed[i].text;
            EXPECT_NEAR(static_cast<double>(filed[i].y), 23100.0 - text.anchor.y, 2.0) << filed[i].text;
        }
    }
};

TEST_P(LabelsInFiles, StandWhereTheWindowHasThem) {
    const std::string towns =
        Towns("1 59.9 10.75 \"Oslo\"\n1 -33.86 151.21 \"Sydney\"\n1 64 -21 \"Reykjavik\"\n1 0 180 \"East\"\n"
              "1 0 -180 \"West\"\n1 -90 0 \"South Pole\"\n1 90 0 \"North Pole\"\n");
    for (const char* const projection : {"2", "16", "30"}) {
        Draw({"--projection", projection, "--map", towns, "--symbol", "12", "--label-size", "24"},
             GetParam().ending);
        EXPECT_GE(TextsOfFile().size(), 5U);
        EXPECT_EQ(machine.window.surface.Texts().size(), TextsOfFile().size()) << "each once";
        ExpectPlacesOfTheWindow();
    }
}

TEST_P(LabelsInFiles, OfTheGridStandWhereTheWindowHasThem) {
    for (const char* const place : {"frame", "lines"}) {
        for (const char* const projection : {"1", "8", "16", "30", "42", "17"}) {
            Draw({"--projection", projection, "--no-map", "--grid-labels", place, "--grid-label-style",
                  "letters", "--grid-label-size", "24"},
                 GetParam().ending);
            EXPECT_GE(TextsOfFile().size(), 4U) << projection;
            EXPECT_EQ(machine.window.surface.Texts().size(), TextsOfFile().size()) << "each once";
            ExpectPlacesOfTheWindow();
            EXPECT_THAT(Design.TextItems, IsEmpty()) << "they are no texts of the design";
        }
    }
    EXPECT_THAT(WordsOfFile(), testing::Contains("5900 km N"));
}

TEST_P(LabelsInFiles, EachComesOnceFromAnInterruptedMap) {
    const std::string towns =
        Towns("1 30 60 \"N1\"\n1 30 150 \"N2\"\n1 30 -60 \"N3\"\n1 -30 60 \"S1\"\n1 -30 -150 \"S2\"\n"
              "1 -30 0 \"S3\"\n");
    Draw({"--projection", "42", "--west", "20E", "--east", "20E", "--lobes-north", "100E,100W",
          "--lobes-south", "140E,70W", "--map", towns},
         GetParam().ending);
    EXPECT_THAT(WordsOfFile(), ElementsAre("N1", "N2", "N3", "S1", "S2", "S3"));
    ExpectPlacesOfTheWindow();
}

TEST_P(LabelsInFiles, ThatAreNotShownAreNotThere) {
    Draw({"--no-labels", "--map", Towns("1 10 10 \"Oslo\"\n")}, GetParam().ending);
    EXPECT_THAT(WordsOfFile(), IsEmpty());
    EXPECT_THAT(machine.window.surface.Texts(), IsEmpty());
}

TEST_P(LabelsInFiles, BeyondTheHorizonAreNotThere) {
    Draw({"--projection", "28", "--central-lat", "40N", "--central-lon", "0E", "--map",
          Towns("1 -40 180 \"Antipode\"\n1 40 0 \"Here\"\n1 -60 10 \"Beyond\"\n")},
         GetParam().ending);
    EXPECT_THAT(WordsOfFile(), ElementsAre("Here"));
}

TEST_P(LabelsInFiles, WithOddCharactersLeaveTheFileWhole) {
    Draw({"--map", Towns("1 10 10 \"tab\tbell\x07 del\x7F\"\n1 20 20 \"it's 100% {\\\\P} <b>&amp;\"\n"
                         "1 30 30 \"K\xC3\xB6ln \xE6\x9D\xB1\xE4\xBA\xAC\"\n1 40 40 \" \"\n")},
         GetParam().ending);
    EXPECT_THAT(WordsOfFile(), SizeIs(4));
    EXPECT_THAT(WordsOfFile().at(1), HasSubstr("it's 100%"));
}

INSTANTIATE_TEST_SUITE_P(All, LabelsInFiles,
                         testing::Values(TextFormat{"cgm", TextsOfCgm}, TextFormat{"dxf", TextsOfDxf},
                                         TextFormat{"wmf", TextsOfWmf}, TextFormat{"svg", TextsOfSvg}),
                         [](const auto& test) { return std::string(test.param.ending); });

class LabelDraw : public WholeDraw {
protected:
    std::string Towns(const std::string& points, const std::string& name = "towns.prn") const {
        WriteWholeFile(folder / name, points);
        return folder / name;
    }
};

TEST_F(LabelDraw, TextFilesHaveNoLabels) {
    Draw({"--grid-type", "5", "--map", Towns("1 10 10 \"Oslo\"\n1 20 20 \"Paris\"\n")}, "txt");
    const std::string text = File("map-towns.prn.txt");
    EXPECT_THAT(text, testing::Not(HasSubstr("Oslo")));
    EXPECT_THAT(machine.window.surface.Texts(), SizeIs(2));
}

TEST_F(LabelDraw, UtmLabelsStandBesideTheirSymbols) {
    // A pixel is a twip here, so that a radius of three pixels is three twips.
    const Arguments zone{"--projection", "17", "--utm-central-lon", "9W"};
    Arguments metres = zone;
    metres.insert(metres.end(),
                  {"--map", Towns("1 500000 6000000 \"Here\"\n", "towns.utm"), "--symbol", "12"});
    Draw(metres, "png");
    const std::vector<SurfaceCall> circles = machine.window.surface.CallsOf(SurfaceOp::Ellipse);
    ASSERT_THAT(circles, SizeIs(1));
    ASSERT_THAT(machine.window.surface.Texts(), SizeIs(1));
    EXPECT_NEAR(machine.window.surface.Texts()[0].anchor.x, static_cast<double>(circles[0].numbers[2]), 1.0);
}

TEST_F(LabelDraw, TenThousandCharactersFitWhereAFormatHasNoLimit) {
    const std::string towns = Towns("1 10 10 \"" + std::string(10'000, 'x') + "\"\n");
    for (const char* const ending : {"dxf", "wmf", "svg", "png"}) {
        Draw({"--map", towns}, ending);
        ASSERT_THAT(machine.window.surface.Texts(), SizeIs(1));
        EXPECT_EQ(machine.window.surface.Texts()[0].anchor.x, 0) << "begins at the left edge";
    }
    EXPECT_EQ(TextsOfDxf(File("map.dxf")).at(0).text, std::string(10'000, 'x'));
    EXPECT_EQ(TextsOfWmf(File("map.wmf")).at(0).text, std::string(10'000, 'x'));
    EXPECT_EQ(TextsOfSvg(File("map.svg")).at(0).text, std::string(10'000, 'x'));
    // A string of a CGM has 248 characters at most: the file is given up, and that is reported.
    Prepare({"--map", towns}, folder / "map.cgm");
    MapDraw();
    const std::vector<AskedBox> boxes = machine.boxes.Taken();
    ASSERT_THAT(boxes, SizeIs(2));
    EXPECT_EQ(boxes[0].text, "Error: Overflow");
    EXPECT_EQ(boxes[1].title, "Map Not Saved");
    EXPECT_THAT(Design.TextItems, IsEmpty()) << "the labels of the draw are gone all the same";
}

} // namespace
} // namespace quelmont
