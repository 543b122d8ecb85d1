#include "convert/vector_source.h"

#include "convert/huge_text.h"
#include "convert/line_steps.h"
#include "convert/point_transform.h"
#include "convert/projected_line.h"

#include <cpl_string.h>
#include <ogr_geometry.h>
#include <ogr_spatialref.h>

#include <algorithm>
#include <utility>

namespace quelmont {

namespace {

/// Takes geometries without curves apart into lines on WGS84.
class GeometryLines {
public:
    GeometryLines(const WayToWgs84& way_, LineReceiver& receiver_, SourceLosses& losses_)
        : way(way_), receiver(receiver_), losses(losses_) {}

    void Take(std::unique_ptr<OGRGeometry> geometry) {
        if (wkbFlatten(geometry->getGeometryType()) == wkbLineString) {
            MapLine line = PointsOf(*geometry->toLineString());
            geometry.reset(); // so that a long line is not held twice
            Pass(line);
        } else {
            Take(*geometry);
        }
    }

private:
    void Take(OGRGeometry& geometry) {
        const OGRwkbGeometryType type = wkbFlatten(geometry.getGeometryType());
        if (geometry.IsEmpty()) {
            return;
        }
        if (type == wkbPoint) {
            const OGRPoint& point = *geometry.toPoint();
            MapLine line{{point.getX(), point.getY()}};
            Pass(line);
        } else if (OGR_GT_IsSubClassOf(type, wkbPolygon) || type == wkbTriangle) {
            TakePolygon(*geometry.toPolygon());
        } else if (OGR_GT_IsSubClassOf(type, wkbLineString)) {
            MapLine line = PointsOf(*geometry.toLineString());
            Pass(line);
        } else if (OGR_GT_IsSubClassOf(type, wkbPolyhedralSurface)) {
            for (OGRPolygon* face : *geometry.toPolyhedralSurface()) {
                TakePolygon(*face);
            }
        } else if (OGR_GT_IsSubClassOf(type, wkbGeometryCollection)) {
            for (OGRGeometry* part : *geometry.toGeometryCollection()) {
                Take(*part);
            }
        }
    }

    void TakePolygon(OGRPolygon& polygon) {
        polygon.closeRings();
        losses.polygons += polygon.IsEmpty() ? 0 : 1;
        for (const OGRLinearRing* ring : polygon) {
            MapLine line = PointsOf(*ring);
            Pass(line);
        }
    }

    /// Without heights and measures.
    static MapLine PointsOf(const OGRSimpleCurve& curve) {
        MapLine line;
        const int count = curve.getNumPoints();
        line.reserve(static_cast<std::size_t>(count));
        for (int i = 0; i < count; ++i) {
            line.push_back({curve.getX(i), curve.getY(i)});
        }
        return line;
    }

    void Pass(MapLine& line) {
        if (const std::optional<LonLat> bad = Turn(line)) {
            throw BadFeature("a point lies outside the earth, at x " + NumberWords(bad->Lon) + ", y " +
                             NumberWords(bad->Lat));
        }
        if (!line.empty()) {
            receiver.TakeLine(line);
        }
    }

    /// To WGS84. Gives the first point without a place there.
    std::optional<LonLat> Turn(MapLine& line) {
        if (!way.transformation) {
            return std::nullopt;
        }
        if (way.bends) {
            return TurnProjectedLine(*way.transformation, line, losses.curvePoints);
        }
        const std::vector<bool> good = TransformPoints(*way.transformation, line);
        const auto bad = std::find(good.begin(), good.end(), false);
        return bad == good.end() ? std::nullopt
                                 : std::optional(line[static_cast<std::size_t>(bad - good.begin())]);
    }

    const WayToWgs84& way;
    LineReceiver& receiver;
    SourceLosses& losses;
};

std::string LayerNames(const std::vector<OGRLayer*>& layers) {
    std::string names;
    for (OGRLayer* layer : layers) {
        names += (names.empty() ? "\"" : ", \"") + std::string(layer->GetName()) + "\"";
    }
    return names;
}

} // namespace

VectorSource::VectorSource(const std::string& name_, const std::optional<std::string>& wanted,
                           const std::optional<std::string>& where, GdalErrors& errors_)
    : name(name_), errors(errors_) {
    GDALAllRegister();
    RefuseHugeText(name);
    errors.Forget();
    dataset.reset(GDALDataset::Open(name.c_str(), GDAL_OF_VECTOR | GDAL_OF_READONLY | GDAL_OF_VERBOSE_ERROR));
    if (!dataset) {
        errors.Throw(name);
    }
    ChooseLayer(wanted);
    if (where && layer->SetAttributeFilter(where->c_str()) != OGRERR_NONE) {
        Fail("--where: " + errors.Reason());
    }
    FindWayToWgs84();
    features = layer->GetFeatureCount(FALSE);
    errors.ThrowIfFailed(name);
}

void VectorSource::Fail(const std::string& why) const { throw ConvertError(name + ": " + why); }

void VectorSource::ChooseLayer(const std::optional<std::string>& wanted) {
    std::vector<OGRLayer*> all;
    std::vector<OGRLayer*> filled;
    for (OGRLayer* each : dataset->GetLayers()) {
        all.push_back(each);
        if (!wanted && each->GetFeatureCount() != 0) {
            filled.push_back(each);
        }
    }
    errors.ThrowIfFailed(name);
    if (all.empty()) {
        Fail("there is no layer in it");
    }
    if (wanted) {
        layer = dataset->GetLayerByName(wanted->c_str());
        if (layer == nullptr) {
            Fail("there is no layer \"" + *wanted + "\" in it; there are " + LayerNames(all));
        }
        return;
    }
    if (filled.size() > 1) {
        Fail("choose one of its layers by --layer: " + LayerNames(filled));
    }
    layer = filled.empty() ? all.front() : filled.front();
}

void VectorSource::FindWayToWgs84() {
    const OGRSpatialReference* const from = layer->GetSpatialRef();
    if (from == nullptr) {
        return;
    }
    OGRSpatialReference wgs84;
    wgs84.importFromEPSG(4326);
    // Longitude before latitude, as the layer's own system has it for its data.
    wgs84.SetAxisMappingStrategy(OAMS_TRADITIONAL_GIS_ORDER);
    if (from->IsSame(&wgs84) != 0) {
        return;
    }
    way.transformation.reset(OGRCreateCoordinateTransformation(from, &wgs84));
    way.bends = from->IsGeographic() == 0 || from->IsDerivedGeographic() != 0;
    if (!way.transformation) {
        Fail("no way leads from its reference system to longitude and latitude: " + errors.Reason());
    }
}

void VectorSource::Read(LineReceiver& receiver) {
    read = 0;
    losses = {};
    layer->ResetReading();
    errors.Forget();
    while (const OGRFeatureUniquePtr feature{layer->GetNextFeature()}) {
        ReadFeature(*feature, receiver);
        ++read;
    }
    errors.ThrowIfFailed(name);
}

void VectorSource::ReadFeature(OGRFeature& feature, LineReceiver& receiver) {
    std::unique_ptr<OGRGeometry> geometry(feature.StealGeometry());
    errors.ThrowIfFailed(name);
    if (!geometry || geometry->IsEmpty()) {
        ++losses.emptyFeatures;
        return;
    }
    losses.heights += geometry->Is3D() != 0 ? 1 : 0;
    losses.measures += geometry->IsMeasured() != 0 ? 1 : 0;
    if (geometry->hasCurveGeometry() != 0) {
        geometry.reset(geometry->getLinearGeometry());
    }
    try {
        receiver.BeginFeature(feature);
        GeometryLines(way, receiver, losses).Take(std::move(geometry));
    } catch (const BadFeature& bad) {
        Fail("feature " + std::to_string(feature.GetFID()) + ": " + bad.what());
    }
}

double VectorSource::Share() const {
    return features > 0 ? static_cast<double>(read) / static_cast<double>(features) : -1.0;
}

std::vector<std::string> VectorSource::Files() const {
    std::vector<std::string> files{name};
    const CPLStringList list(dataset->GetFileList());
    for (int i = 0; i < list.size(); ++i) {
        files.emplace_back(list[i]);
    }
    return files;
}

} // namespace quelmont
