// What GDAL opens, written as .prn: its text shows the lines that came out.

#include "convert_fixture.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cpl_error.h>
#include <ogrsf_frmts.h>

namespace quelmont {
namespace {

using testing::EndsWith;
using testing::HasSubstr;
using testing::StartsWith;

class Geometries : public ConvertTest {
protected:
    /// Of one feature whose geometry this is, in GeoJSON.
    std::string Prn(const std::string& geometry, const std::vector<std::string>& notes = {}) const {
        Put("in.geojson", Collection(Feature("", geometry)));
        ConvertWith(notes, {"in.geojson", "out.prn"});
        return Get("out.prn");
    }

    /// Of a layer that GDAL writes from a geometry in WKT, in degrees.
    std::string PrnOfWkt(const std::string& wkt, const std::vector<std::string>& notes = {}) const {
        GDALAllRegister();
        const CPLErrorHandlerPusher quiet(CPLQuietErrorHandler); // some are no standard for it
        GDALDriver* const driver = GetGDALDriverManager()->GetDriverByName("GPKG");
        GDALDatasetUniquePtr dataset(
            driver->Create((folder / "in.gpkg").c_str(), 0, 0, 0, GDT_Unknown, nullptr));
        OGRSpatialReference wgs84;
        wgs84.importFromEPSG(4326);
        wgs84.SetAxisMappingStrategy(OAMS_TRADITIONAL_GIS_ORDER);
        OGRLayer* const layer = dataset->CreateLayer("in", &wgs84, wkbUnknown, nullptr);
        OGRFeature feature(layer->GetLayerDefn());
        OGRGeometry* geometry = nullptr;
        EXPECT_EQ(OGRGeometryFactory::createFromWkt(wkt.c_str(), nullptr, &geometry), OGRERR_NONE) << wkt;
        feature.SetGeometryDirectly(geometry);
        EXPECT_EQ(layer->CreateFeature(&feature), OGRERR_NONE);
        dataset.reset();
        ConvertWith(notes, {"in.gpkg", "out.prn"});
        return Get("out.prn");
    }
};

TEST_F(Geometries, PolygonBecomesAClosedLineForEachRing) {
    EXPECT_EQ(Prn(R"("type":"Polygon","coordinates":[[[0,0],[9,0],[9,9],[0,0]],[[4,2],[5,3],[5,2],[4,2]]])",
                  {"1 polygon became closed lines"}),
              "1,0.000000,0.000000\r\n0,0.000000,9.000000\r\n0,9.000000,9.000000\r\n0,0.000000,0.000000\r\n"
              "1,2.000000,4.000000\r\n0,3.000000,5.000000\r\n0,2.000000,5.000000\r\n0,2.000000,4.000000\r\n");
}

TEST_F(Geometries, OpenRingIsClosedAndReported) {
    Put("in.geojson", Collection(Feature("", R"("type":"Polygon","coordinates":[[[0,0],[9,0],[9,9]]])")));
    const Outcome outcome = Run({"in.geojson", "out.prn"});
    EXPECT_EQ(Get("out.prn"),
              "1,0.000000,0.000000\r\n0,0.000000,9.000000\r\n0,9.000000,9.000000\r\n0,0.000000,0.000000\r\n");
    EXPECT_THAT(outcome.errors, StartsWith("quelmont-convert: Non closed ring detected."));
}

TEST_F(Geometries, MultiPolygonGivesTheRingsOfAll) {
    EXPECT_EQ(
        Prn(R"("type":"MultiPolygon","coordinates":[[[[0,0],[1,0],[1,1],[0,0]]],[[[5,5],[6,5],[6,6],[5,5]]]])",
            {"2 polygons became closed lines"}),
        "1,0.000000,0.000000\r\n0,0.000000,1.000000\r\n0,1.000000,1.000000\r\n0,0.000000,0.000000\r\n"
        "1,5.000000,5.000000\r\n0,5.000000,6.000000\r\n0,6.000000,6.000000\r\n0,5.000000,5.000000\r\n");
}

TEST_F(Geometries, MultiLineStringGivesItsLines) {
    EXPECT_EQ(Prn(R"("type":"MultiLineString","coordinates":[[[0,0],[1,0]],[[2,2],[3,3]]])"),
              "1,0.000000,0.000000\r\n0,0.000000,1.000000\r\n1,2.000000,2.000000\r\n0,3.000000,3.000000\r\n");
}

TEST_F(Geometries, CollectionGivesAllItsParts) {
    EXPECT_EQ(
        Prn(R"("type":"GeometryCollection","geometries":[{"type":"Point","coordinates":[1,2]},)"
            R"({"type":"GeometryCollection","geometries":[{"type":"LineString","coordinates":[[3,4],[5,6]]}]}])"),
        "1,2.000000,1.000000\r\n1,4.000000,3.000000\r\n0,6.000000,5.000000\r\n");
}

TEST_F(Geometries, HeightsAndMeasuresGoAndAreReported) {
    const std::string heights = "1 feature lost the heights of the points";
    const std::string measures = "1 feature lost the measures of the points";
    EXPECT_EQ(Prn(R"("type":"LineString","coordinates":[[1,2,300],[3,4,500]])", {heights}),
              "1,2.000000,1.000000\r\n0,4.000000,3.000000\r\n");
    EXPECT_EQ(PrnOfWkt("LINESTRING ZM (1 2 300 7,3 4 500 8)", {heights, measures}),
              "1,2.000000,1.000000\r\n0,4.000000,3.000000\r\n");
    EXPECT_EQ(PrnOfWkt("POINT M (1 2 7)", {measures}), "1,2.000000,1.000000\r\n");
}

TEST_F(Geometries, CurvesBecomeChords) {
    const std::string arc = PrnOfWkt("CIRCULARSTRING (0 0,1 1,2 0)");
    EXPECT_THAT(arc, StartsWith("1,0.000000,0.000000\r\n0,"));
    EXPECT_THAT(arc, EndsWith("\r\n0,0.000000,2.000000\r\n"));
    // The circle of radius 1 around 1, 0, half of it in steps of 4 degrees: one is at 60 degrees.
    EXPECT_THAT(arc, HasSubstr("\r\n0,0.866025,0.500000\r\n"));
    EXPECT_GT(arc.size(), 10U * 24U);
}

TEST_F(Geometries, FacesOfSurfacesArePolygons) {
    const std::string triangle =
        "1,0.000000,0.000000\r\n0,0.000000,1.000000\r\n0,1.000000,0.000000\r\n0,0.000000,0.000000\r\n";
    EXPECT_EQ(PrnOfWkt("TIN (((0 0,1 0,0 1,0 0)),((0 0,1 0,0 1,0 0)))", {"2 polygons became closed lines"}),
              triangle + triangle);
    EXPECT_EQ(PrnOfWkt("POLYHEDRALSURFACE (((0 0,1 0,0 1,0 0)))", {"1 polygon became closed lines"}),
              triangle);
    EXPECT_EQ(PrnOfWkt("TRIANGLE ((0 0,1 0,0 1,0 0))", {"1 polygon became closed lines"}), triangle);
}

TEST_F(Geometries, EmptyOnesAreReportedAndGiveNothing) {
    Put("in.geojson",
        Collection(R"({"type":"Feature","properties":{},"geometry":null},)" +
                   Feature("", R"("type":"LineString","coordinates":[])") + "," + PointFeature("", "[1,2]")));
    const Outcome outcome = Run({"in.geojson", "out.prn"});
    EXPECT_EQ(outcome.code, 0);
    EXPECT_EQ(Get("out.prn"), "1,2.000000,1.000000\r\n");
    EXPECT_EQ(outcome.errors, "quelmont-convert: 2 features without a geometry\n");
}

TEST_F(Geometries, SourceWithoutFeaturesGivesAnEmptyMapAndIsReported) {
    Put("in.geojson", Collection(""));
    const Outcome outcome = Run({"in.geojson", "out.map", "--feature", "1"});
    EXPECT_EQ(outcome.code, 0);
    EXPECT_EQ(Get("out.map"), "");
    EXPECT_EQ(outcome.errors,
              "quelmont-convert: there was nothing to write, and what was written is empty\n");
}

TEST_F(Geometries, LineAcross180EndsOnBothItsSides) {
    EXPECT_EQ(Prn(R"("type":"LineString","coordinates":[[179,10],[-177,18]])"),
              "1,10.000000,179.000000\r\n0,12.000000,180.000000\r\n"
              "1,12.000000,-180.000000\r\n0,18.000000,-177.000000\r\n");
}

TEST_F(Geometries, RingAcross180IsCutTwice) {
    EXPECT_EQ(Prn(R"("type":"Polygon","coordinates":[[[178,0],[-178,0],[-178,4],[178,4],[178,0]]])",
                  {"1 polygon became closed lines"}),
              "1,0.000000,178.000000\r\n0,0.000000,180.000000\r\n"
              "1,0.000000,-180.000000\r\n0,0.000000,-178.000000\r\n0,4.000000,-178.000000\r\n0,4.000000,-180."
              "000000\r\n"
              "1,4.000000,180.000000\r\n0,4.000000,178.000000\r\n0,0.000000,178.000000\r\n");
}

class Selections : public ConvertTest {
protected:
    Selections() {
        Put("in.geojson", Collection(PointFeature(R"("pop":5,"n":"A")", "[1,1]") + "," +
                                     PointFeature(R"("pop":50,"n":"B")", "[20,20]") + "," +
                                     PointFeature(R"("pop":500,"n":"C")", "[30,-30]")));
    }
};

TEST_F(Selections, WhereKeepsWhatFits) {
    Convert({"in.geojson", "out.prn", "--where", "pop > 10 AND n <> 'C'"});
    EXPECT_EQ(Get("out.prn"), "1,20.000000,20.000000\r\n");
}

TEST_F(Selections, BoundsKeepWhatIsInside) {
    Convert({"in.geojson", "out.prn", "--bounds", "0,0,20,20"});
    EXPECT_EQ(Get("out.prn"), "1,1.000000,1.000000\r\n1,20.000000,20.000000\r\n");
}

TEST_F(Selections, BoundsCutLinesAndAreExact) {
    Put("line.geojson", Collection(LineFeature(R"("n":"L")", "[-10,5],[30,5]")));
    Convert({"line.geojson", "out.prn", "--bounds", "0,0,20,20", "--label", "n"});
    EXPECT_EQ(Get("out.prn"), "1,5.000000,0.000000,\"L\"\r\n0,5.000000,20.000000\r\n");
}

TEST_F(Selections, SimplifyDropsPoints) {
    Put("line.geojson", Collection(LineFeature("", "[0,0],[1,0.001],[2,0]")));
    Convert({"line.geojson", "out.prn", "--simplify", "3.7"}); // 0.001 degrees are 3.6 seconds
    EXPECT_EQ(Get("out.prn"), "1,0.000000,0.000000\r\n0,0.000000,2.000000\r\n");
    Convert({"line.geojson", "out.prn", "--simplify", "3.5"});
    EXPECT_EQ(Get("out.prn"), "1,0.000000,0.000000\r\n0,0.001000,1.000000\r\n0,0.000000,2.000000\r\n");
}

TEST_F(Selections, LayerIsChosenByName) {
    // Tracks and their points are layers of their own in GPX.
    Put("in.gpx",
        R"(<?xml version="1.0"?><gpx version="1.1" creator="t" xmlns="http://www.topografix.com/GPX/1/1">)"
        R"(<wpt lat="3" lon="4"><name>W</name></wpt><trk><name>T</name><trkseg>)"
        R"(<trkpt lat="1" lon="2"/><trkpt lat="5" lon="6"/></trkseg></trk></gpx>)");
    Convert({"in.gpx", "out.prn", "--layer", "tracks", "--label", "name"});
    EXPECT_EQ(Get("out.prn"), "1,1.000000,2.000000,\"T\"\r\n0,5.000000,6.000000\r\n");
    Convert({"in.gpx", "out.prn", "--layer", "waypoints", "--label", "name"});
    EXPECT_EQ(Get("out.prn"), "1,3.000000,4.000000,\"W\"\r\n");
    EXPECT_EQ(Refusal({"in.gpx", "new.prn"}),
              "in.gpx: choose one of its layers by --layer: \"waypoints\", \"tracks\", \"track_points\"");
}

TEST_F(Selections, OnlyLayerWithFeaturesNeedsNoName) {
    Put("in.gpx",
        R"(<?xml version="1.0"?><gpx version="1.1" creator="t" xmlns="http://www.topografix.com/GPX/1/1">)"
        R"(<wpt lat="3" lon="4"/></gpx>)");
    Convert({"in.gpx", "out.prn"});
    EXPECT_EQ(Get("out.prn"), "1,3.000000,4.000000\r\n");
}

TEST_F(Selections, FormatsOfTheDayAreRead) {
    Put("in.kml",
        R"(<?xml version="1.0"?><kml xmlns="http://www.opengis.net/kml/2.2"><Placemark><name>K</name>)"
        R"(<LineString><coordinates>1,2 3,4</coordinates></LineString></Placemark></kml>)");
    Convert({"in.kml", "out.prn", "--label", "Name"});
    EXPECT_EQ(Get("out.prn"), "1,2.000000,1.000000,\"K\"\r\n0,4.000000,3.000000\r\n");
}

TEST_F(Selections, LabelsOfWindows1252BecomeUtf8) {
    GDALAllRegister();
    GDALDriver* const driver = GetGDALDriverManager()->GetDriverByName("ESRI Shapefile");
    GDALDatasetUniquePtr dataset(driver->Create((folder / "in.shp").c_str(), 0, 0, 0, GDT_Unknown, nullptr));
    OGRSpatialReference wgs84;
    wgs84.importFromEPSG(4326);
    const char* const options[] = {"ENCODING=CP1252", nullptr};
    OGRLayer* const layer = dataset->CreateLayer("in", &wgs84, wkbPoint, const_cast<char**>(options));
    OGRFieldDefn column("n", OFTString);
    layer->CreateField(&column);
    OGRFeature feature(layer->GetLayerDefn());
    feature.SetField("n", "Köln €");
    feature.SetGeometryDirectly(new OGRPoint(6.95, 50.94));
    ASSERT_EQ(layer->CreateFeature(&feature), OGRERR_NONE);
    dataset.reset();
    // Windows-1252 in the file: o with two dots F6, the euro sign 80.
    ASSERT_THAT(Get("in.dbf"), HasSubstr("K\xF6ln \x80"));
    Convert({"in.shp", "out.prn", "--label", "n"});
    EXPECT_EQ(Get("out.prn"), "1,50.940000,6.950000,\"Köln €\"\r\n");
}

} // namespace
} // namespace quelmont
