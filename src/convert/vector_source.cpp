#include "convert/vector_source.h"

#include "convert/line_steps.h"
#include "convert/point_transform.h"

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
    GeometryLines(OGRCoordinateTransformation* toWgs84_, LineReceiver& receiver_)
        : toWgs84(toWgs84_), receiver(receiver_) {}

    void Take(std::unique_ptr<OGRGeometry> geometry) {
        if (wkbFlatten(geometry->getGeometryType()) == wkbLineString) {
            MapLine line = PointsOf(*geometry->toLineString());
            geometry.reset(); // nothing holds a long line twice
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
        if (toWgs84 != nullptr) {
            const std::vector<bool> good = TransformPoints(*toWgs84, line);
            const auto bad = std::find(good.begin(), good.end(), false);
            if (bad != good.end()) {
                const LonLat& point = line[static_cast<std::size_t>(bad - good.begin())];
                throw BadFeature("a point lies outside the earth, at x " + NumberWords(point.Lon) + ", y " +
                                 NumberWords(point.Lat));
            }
        }
        if (!line.empty()) {
            receiver.TakeLine(line);
        }
    }

    OGRCoordinateTransformation* toWgs84; ///< none when they are on it
    LineReceiver& receiver;
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
    toWgs84.reset(OGRCreateCoordinateTransformation(from, &wgs84));
    if (!toWgs84) {
        Fail("no way leads from its reference system to longitude and latitude: " + errors.Reason());
    }
}

void VectorSource::Read(LineReceiver& receiver) {
    read = 0;
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
        ++emptyFeatures;
        return;
    }
    if (geometry->hasCurveGeometry() != 0) {
        geometry.reset(geometry->getLinearGeometry());
    }
    try {
        receiver.BeginFeature(feature);
        GeometryLines(toWgs84.get(), receiver).Take(std::move(geometry));
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
