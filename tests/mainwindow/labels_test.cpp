#include "annotation/label_convert.h"
#include "mainwindow/map_draw.h"
#include "mainwindow/started_program.h"
#include "mapfiles/feature_rows.h"
#include "output/export_file.h"
#include "output/fan_out.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>

namespace quelmont {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using testing::SizeIs;

/// A writer that keeps the texts that a file would have.
class TextRecorder : public FileWriter {
public:
    void Point() override {}
    void LineBreak() override {}
    void Finish() override {
        ++finishes;
        for (const TextItem& item : Design.TextItems) {
            texts.push_back(item.TextString);
        }
    }

    int finishes = 0;
    std::vector<std::string> texts;
};

/// Draws of a program whose list has a file of circles with labels behind the world map.
class LabelDraws : public StartedProgram {
protected:
    LabelDraws() {
        AddTowns("/maps/towns.prn", "1 60 10 \"Oslo\"\n1 -34 151 \"Sydney\"\n");
        AddText("title");
    }

    InputFileEntry& AddTowns(const std::string& name, const std::string& points) {
        files.Put(name, points);
        InputFileEntry& towns = Design.InputFiles.emplace_back(NewMapFileEntry(name));
        towns.MapFileType = SymbolFilledCircle;
        Design.MapFileCount = static_cast<std::int16_t>(Design.InputFiles.size());
        return towns;
    }
    static void AddText(const std::string& text) {
        TextItem& item = Design.TextItems.emplace_back();
        item.TextString = text;
        item.TextFont = "Times";
        item.TextSize = 24;
        item.TextPlaced = true;
    }
    /// A draw to a file as well.
    void DrawToFile() {
        Writers().dxf = &recorder;
        Design.OutputDxf = true;
        MapDraw();
    }
    /// The texts that the window shows, and forgets them.
    std::vector<std::string> Drawn() {
        std::vector<std::string> texts;
        for (const RecordedText& text : surface.Texts()) {
            texts.push_back(text.text);
        }
        surface.Forget();
        return texts;
    }
    /// The texts that stand there in the end: the map is put back for labels to be drawn on it anew.
    std::vector<std::string> Shown() const {
        std::vector<std::string> texts;
        for (const SurfaceCall& call : surface.Calls()) {
            if (call.op == SurfaceOp::PutBackPicture) {
                texts.clear();
            } else if (call.op == SurfaceOp::TextOutA) {
                texts.push_back(call.text);
            }
        }
        return texts;
    }
    static std::vector<std::string> Items() {
        std::vector<std::string> texts;
        for (const TextItem& item : Design.TextItems) {
            texts.push_back(item.TextString);
        }
        return texts;
    }
    static std::vector<std::string> Collected() {
        std::vector<std::string> texts;
        for (const MapLabel& label : Design.MapLabels) {
            texts.push_back(label.LabelText);
        }
        return texts;
    }

    TextRecorder recorder;
};

TEST_F(LabelDraws, LabelsLieOverAllFilesAndUnderTheTexts) {
    AddTowns("/maps/more.prn", "1 0 0 \"Null\"\n");
    MapDraw();
    const std::vector<SurfaceCall>& calls = surface.Calls();
    const auto lastCircle = std::find_if(calls.rbegin(), calls.rend(), [](const SurfaceCall& call) {
                                return call.op == SurfaceOp::Ellipse;
                            }).base();
    EXPECT_TRUE(std::none_of(calls.begin(), lastCircle,
                             [](const SurfaceCall& call) { return call.op == SurfaceOp::TextOutA; }));
    EXPECT_THAT(Drawn(), ElementsAre("Oslo", "Sydney", "Null", "title"));
    ExpectIdle();
}

TEST_F(LabelDraws, EachFileHasItsOwnFont) {
    InputFileEntry& more = AddTowns("/maps/more.prn", "1 0 0 \"Null\"\n");
    more.LabelFontName = "Courier";
    more.LabelFontSize = 36;
    MapDraw();
    ASSERT_THAT(surface.Texts(), SizeIs(4));
    EXPECT_EQ(surface.Texts()[1].font.face, "Arial");
    EXPECT_EQ(surface.Texts()[1].font.font.height, -13) << "10 points of 20 twips, 15 twips to a pixel";
    EXPECT_EQ(surface.Texts()[2].font.face, "Courier");
    EXPECT_EQ(surface.Texts()[2].font.font.height, -48);
}

TEST_F(LabelDraws, FileHasTheLabelsBehindTheTexts) {
    DrawToFile();
    EXPECT_THAT(recorder.texts, ElementsAre("title", "Oslo", "Sydney"));
    EXPECT_THAT(Drawn(), ElementsAre("Oslo", "Sydney", "title")) << "each once";
    EXPECT_THAT(Items(), ElementsAre("title")) << "for that draw alone";
    ExpectIdle();
}

TEST_F(LabelDraws, HiddenLabelsArePlacedAndReachNoDevice) {
    Design.LabelsVisible = false;
    DrawToFile();
    EXPECT_THAT(recorder.texts, ElementsAre("title"));
    EXPECT_THAT(Drawn(), ElementsAre("title"));
    ASSERT_THAT(Collected(), ElementsAre("Oslo", "Sydney"));
    EXPECT_NE(Design.MapLabels[0].LabelX, 0);
}

TEST_F(LabelDraws, TextFilesHaveNoTexts) {
    Writers().ascii = &recorder;
    Design.OutputAscii = true;
    MapDraw();
    EXPECT_THAT(Drawn(), ElementsAre("Oslo", "Sydney", "title"));
    EXPECT_THAT(Items(), ElementsAre("title"));
}

TEST_F(LabelDraws, LabelsAreCollectedAnewByEachDraw) {
    MapDraw();
    MapDraw();
    EXPECT_THAT(Collected(), ElementsAre("Oslo", "Sydney"));
    Design.MapFileCount = 1;
    MapDraw();
    EXPECT_THAT(Collected(), IsEmpty());
}

TEST_F(LabelDraws, ConvertedLabelsAreDrawnOnceByTheNextDraw) {
    MapDraw();
    Drawn();
    Design.LabelsVisible = false;
    LabelConvert();
    DrawToFile();
    EXPECT_THAT(Drawn(), ElementsAre("title", "Oslo", "Sydney"));
    EXPECT_THAT(recorder.texts, ElementsAre("title", "Oslo", "Sydney"));
    EXPECT_THAT(Items(), ElementsAre("title", "Oslo", "Sydney"));
}

TEST_F(LabelDraws, FileThatFailsTakesTheLabelsOfAllFilesWithIt) {
    Design.InputFiles.push_back(NewMapFileEntry("/maps/missing.map"));
    Design.MapFileCount = 3;
    DrawToFile();
    EXPECT_THAT(Told(machine.boxes.Taken()), SizeIs(1));
    EXPECT_THAT(Drawn(), ElementsAre("title"));
    EXPECT_EQ(recorder.finishes, 0);
    EXPECT_THAT(Collected(), IsEmpty()) << "they have no places";
    EXPECT_THAT(Items(), ElementsAre("title"));
}

TEST_F(LabelDraws, StopTakesTheLabelsWithIt) {
    std::string points;
    for (int i = 0; i < 2000; ++i) {
        points += "1 " + std::to_string(i % 90) + " 10 \"x\"\n";
    }
    AddTowns("/maps/many.prn", points);
    // Sixteen lines of the grid, then two turns of points.
    machine.pump.At(17, EscapeKey);
    DrawToFile();
    EXPECT_THAT(Drawn(), IsEmpty());
    EXPECT_EQ(recorder.finishes, 0);
    EXPECT_THAT(Collected(), IsEmpty());
    EXPECT_THAT(Items(), ElementsAre("title"));
    ExpectIdle();
}

TEST_F(LabelDraws, StopInTheGridLeavesNoLabelsOfTheDrawBefore) {
    MapDraw();
    machine.pump.At(machine.pump.calls + 3, EscapeKey);
    MapDraw();
    EXPECT_THAT(Collected(), IsEmpty());
}

TEST_F(LabelDraws, StopAmongTheLabelsGivesTheTextsBack) {
    std::string points;
    for (int i = 0; i < 2000; ++i) {
        points += "1 " + std::to_string(i % 90) + " 10 \"x\"\n";
    }
    AddTowns("/maps/many.prn", points);
    machine.pump.At(19, EscapeKey); // the first turn of the labels
    DrawToFile();
    EXPECT_THAT(Drawn(), SizeIs(800));
    EXPECT_EQ(recorder.finishes, 0);
    EXPECT_THAT(Items(), ElementsAre("title"));
    EXPECT_THAT(machine.boxes.Taken(), IsEmpty());
    ExpectIdle();
}

// ---- Labels of an interrupted map: north from 20 E to 100 E, to 100 W and to 20 E; south from 20 E to
// 140 E, to 70 W and to 20 E.

class LobeLabels : public LabelDraws {
protected:
    LobeLabels() {
        AcceptProjection(ProjInterruptedMollweide);
        Design.InputFiles.clear();
        AddTowns("/maps/lobes.prn", "1 30 60 \"N1\"\n1 30 150 \"N2\"\n1 30 -60 \"N3\"\n"
                                    "1 -30 60 \"S1\"\n1 -30 -150 \"S2\"\n1 -30 0 \"S3\"\n");
    }
};

TEST_F(LobeLabels, EachComesWithItsLobeAndTheTextsOnceAtTheEnd) {
    DrawToFile();
    EXPECT_EQ(machine.clock.beeps, 6);
    EXPECT_THAT(Collected(), ElementsAre("N1", "N2", "N3", "S1", "S2", "S3"));
    EXPECT_THAT(Shown(), ElementsAre("N1", "N2", "N3", "S1", "S2", "S3", "title")) << "over all lobes";
    EXPECT_THAT(Drawn(), ElementsAre("N1", "N2", "N3", "S1", "S2", "S3", // each in its pass
                                     "N1", "N2", "N3", "S1", "S2", "S3", "title"));
    EXPECT_THAT(recorder.texts, ElementsAre("title", "N1", "N2", "N3", "S1", "S2", "S3"));
    EXPECT_EQ(recorder.finishes, 1);
    EXPECT_THAT(Items(), ElementsAre("title"));
    MapDraw();
    EXPECT_THAT(Collected(), SizeIs(6)) << "the lists begin anew with the first lobe";
}

TEST_F(LobeLabels, MapIsKeptWithoutTheLabelsOfAnyLobe) {
    MapDraw();
    bool written = false;
    for (const SurfaceCall& call : surface.Calls()) {
        EXPECT_FALSE(written && call.op == SurfaceOp::KeepPicture);
        written = call.op == SurfaceOp::TextOutA || (written && call.op != SurfaceOp::PutBackPicture);
    }
    surface.Forget();
    Design.LabelsVisible = false;
    MapDraw();
    EXPECT_EQ(surface.Count(SurfaceOp::PutBackPicture), 0) << "nothing was to be taken off";
}

TEST_F(LobeLabels, EachStandsBesideItsSymbol) {
    MapDraw();
    const std::vector<SurfaceCall> circles = surface.CallsOf(SurfaceOp::Ellipse);
    ASSERT_THAT(circles, SizeIs(6));
    for (std::size_t i = 0; i < circles.size(); ++i) {
        const MapLabel& label = Design.MapLabels[i];
        const std::int64_t right = circles[i].numbers[2];
        const std::int64_t middle = (circles[i].numbers[1] + circles[i].numbers[3]) / 2;
        EXPECT_NEAR(label.LabelX / 15.0, static_cast<double>(right), 1.0) << i;
        EXPECT_NEAR((label.LabelY - label.LabelAscent) / 15.0, static_cast<double>(middle), 1.0) << i;
    }
}

TEST_F(LobeLabels, StopInALaterLobeGivesTheTextsBack) {
    for (const int turn : {30, 45}) {
        machine.pump.At(machine.pump.calls + turn, EscapeKey);
        DrawToFile();
        EXPECT_GT(Collected().size(), 0U) << "of the lobes that were done";
        EXPECT_LT(Collected().size(), 6U);
        EXPECT_EQ(Shown(), Collected()) << "they stay where they are";
        surface.Forget();
        EXPECT_THAT(Items(), ElementsAre("title"));
        EXPECT_EQ(recorder.finishes, 0);
    }
}

TEST_F(LobeLabels, FileThatIsGoneInALaterLobeGivesTheTextsBack) {
    // Beeps end the passes.
    machine.clock.onBeep = [] { Design.InputFiles[0].MapFileName = "/maps/gone.prn"; };
    DrawToFile();
    machine.clock.onBeep = nullptr;
    EXPECT_THAT(Collected(), ElementsAre("N1"));
    EXPECT_THAT(Items(), ElementsAre("title"));
    EXPECT_FALSE(machine.boxes.Taken().empty());
}

} // namespace
} // namespace quelmont
