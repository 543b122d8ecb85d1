#include "convert/line_pipeline.h"

#include <gtest/gtest.h>

#include <csignal>
#include <functional>
#include <sstream>

namespace quelmont {
namespace {

/// A source of no lines, which sees when it is asked how far it is.
class AskedSource : public LineSource {
public:
    explicit AskedSource(std::function<void()> asked_) : asked(std::move(asked_)) { columns->Reference(); }
    ~AskedSource() override { columns->Release(); }

    OGRFeatureDefn& Columns() override { return *columns; }
    void Read(LineReceiver& /*receiver*/) override {}
    double Share() const override {
        asked();
        return 0.5;
    }

private:
    OGRFeatureDefn* columns = new OGRFeatureDefn("none");
    std::function<void()> asked;
};

TEST(LinePipeline, HeedsASignalToEndWhileItSimplifies) {
    int asked = 0;
    AskedSource source([&] {
        if (++asked == 5) { // the first time at the line's beginning, and then within it
            std::raise(SIGTERM);
        }
    });
    ConvertOptions options;
    options.output = "out.geojson";
    options.simplify = 0.001;
    std::ostringstream errors;
    Progress progress(errors, false);
    ConvertTally tally;
    LinePipeline pipeline(options, source, nullptr, tally, progress);
    LineLook look;
    pipeline.SetTarget(look);
    MapLine ripples;
    for (int i = 0; i < 100000; ++i) {
        ripples.push_back({i / 1e4, 0.0001 * (i % 7)});
    }
    EXPECT_THROW(pipeline.TakeLine(ripples), ConvertError);
    EXPECT_EQ(asked, 5);
    EXPECT_FALSE(look.mix.lines) << "nothing was written";
}

} // namespace
} // namespace quelmont
