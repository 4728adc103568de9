#include "elevation/GdalRasters.h"

#include <cpl_error.h>
#include <gdal_priv.h>
#include <ogr_spatialref.h>

#include <algorithm>
#include <filesystem>
#include <limits>
#include <list>
#include <mutex>
#include <optional>

#include "elevation/HeightUnits.h"

namespace vardel::elevation {

namespace {

namespace fs = std::filesystem;

constexpr GIntBig GdalCache = GIntBig{32} << 20U;     // bytes, besides the mosaic's own blocks
constexpr double LargestBlock = 256.0 * 1024 * 1024;  // bytes of a block that GDAL reads at once
constexpr std::size_t MostOpen = 32;                  // files

using Dataset = std::unique_ptr<GDALDataset>;

Dataset Open(const std::string& file) {
    CPLErrorReset();
    return Dataset(GDALDataset::Open(file.c_str(), GDAL_OF_RASTER | GDAL_OF_READONLY));
}

// Files that are read again and again, of which only some are open.
class OpenFiles {
public:
    GDALDataset& Of(const std::string& file) {
        const auto found = std::find_if(open_.begin(), open_.end(),
                                        [&](const auto& one) { return one.first == file; });
        if (found != open_.end()) {
            open_.splice(open_.begin(), open_, found);
        } else {
            Dataset dataset = Open(file);
            if (!dataset) throw ElevationError(file + ": " + LastMessage());
            if (open_.size() == MostOpen) open_.pop_back();
            open_.emplace_front(file, std::move(dataset));
        }
        return *open_.front().second;
    }

private:
    std::list<std::pair<std::string, Dataset>> open_;  // the one used last comes first
};

// From WGS 84 into another system of coordinates.
class Projected : public MapProjection {
public:
    explicit Projected(const OGRSpatialReference& system) : geographic_(system.IsGeographic()) {
        OGRSpatialReference earth;
        earth.SetWellKnownGeogCS("WGS84");
        earth.SetAxisMappingStrategy(OAMS_TRADITIONAL_GIS_ORDER);
        transform_.reset(OGRCreateCoordinateTransformation(&earth, &system));
        if (!transform_) throw ElevationError("has an unknown coordinate system");
    }

    void ToMap(const Place* places, std::size_t count, double* x, double* y) override {
        Geographic().ToMap(places, count, x, y);
        // What cannot be transformed becomes infinite.
        transform_->Transform(static_cast<int>(count), x, y);
    }
    bool IsGeographic() const override { return geographic_; }

private:
    std::unique_ptr<OGRCoordinateTransformation> transform_;
    bool geographic_;
};

// The same both ways for any thread: GDAL's transformations are of one thread at a time.
class DataSystem : public GridSystem {
public:
    explicit DataSystem(const OGRSpatialReference& system)
        : system_(system), geographic_(system.IsGeographic() != FALSE) {
        earth_.SetWellKnownGeogCS("WGS84");
        earth_.SetAxisMappingStrategy(OAMS_TRADITIONAL_GIS_ORDER);
    }

    std::string Definition() const override {
        char* text = nullptr;
        const char* const options[] = {"FORMAT=WKT2", nullptr};
        system_.exportToWkt(&text, options);
        std::string wkt = text == nullptr ? "" : text;
        CPLFree(text);
        return wkt;
    }
    bool IsGeographic() const override { return geographic_; }

    void ToMap(const Place* places, std::size_t count, double* x, double* y) const override {
        for (std::size_t i = 0; i < count; ++i) {
            x[i] = places[i].longitude;
            y[i] = places[i].latitude;
        }
        Transform(toMap_, earth_, system_, count, x, y);
    }
    void ToPlaces(const double* x, const double* y, std::size_t count,
                  Place* places) const override {
        std::vector<double> longitudes(x, x + count), latitudes(y, y + count);
        Transform(toEarth_, system_, earth_, count, longitudes.data(), latitudes.data());
        for (std::size_t i = 0; i < count; ++i) places[i] = {latitudes[i], longitudes[i]};
    }

private:
    using Transformation = std::unique_ptr<OGRCoordinateTransformation>;

    // Those that no thread uses just now.
    struct Spare {
        std::mutex mutex;
        std::vector<Transformation> transformations;
    };

    static void Transform(Spare& spare, const OGRSpatialReference& from,
                          const OGRSpatialReference& to, std::size_t count, double* x, double* y) {
        Transformation transformation;
        {
            const std::lock_guard lock(spare.mutex);
            if (!spare.transformations.empty()) {
                transformation = std::move(spare.transformations.back());
                spare.transformations.pop_back();
            }
        }
        if (!transformation) transformation.reset(OGRCreateCoordinateTransformation(&from, &to));
        if (!transformation) throw ElevationError("has an unknown coordinate system");
        transformation->Transform(static_cast<int>(count), x, y);
        const std::lock_guard lock(spare.mutex);
        spare.transformations.push_back(std::move(transformation));
    }

    OGRSpatialReference system_, earth_;
    bool geographic_;
    mutable Spare toMap_, toEarth_;
};

// A projection for each system of coordinates that differs from all before.
class Projections {
public:
    std::shared_ptr<MapProjection> Of(const OGRSpatialReference& system) {
        for (const auto& [known, projection] : known_)
            if (known.IsSame(&system)) return projection;
        OGRSpatialReference earth;
        earth.SetWellKnownGeogCS("WGS84");
        earth.SetAxisMappingStrategy(OAMS_TRADITIONAL_GIS_ORDER);
        std::shared_ptr<MapProjection> projection;
        if (system.IsSame(&earth))
            projection = std::make_shared<Geographic>();
        else
            projection = std::make_shared<Projected>(system);
        known_.emplace_back(system, projection);
        return projection;
    }

private:
    std::vector<std::pair<OGRSpatialReference, std::shared_ptr<MapProjection>>> known_;
};

// What the numbers of a band mean.
struct HeightScale {
    double scale, offset;  // to metres
    std::optional<double> noData;

    float Metres(double value) const {
        constexpr double LowestGround = -12'000.0, HighestGround = 9'000.0;
        constexpr float Unknown = std::numeric_limits<float>::quiet_NaN();
        // Of a file that does not say, the usual mark of no data.
        if (value == noData.value_or(-9999.0)) return Unknown;
        if (noData && static_cast<float>(value) == static_cast<float>(*noData)) return Unknown;
        const double metres = value * scale + offset;
        // Nothing on the earth is as low or as high: another mark of no data.
        if (!(metres >= LowestGround && metres <= HighestGround)) return Unknown;
        return static_cast<float>(metres);
    }
};

HeightScale ScaleOf(GDALRasterBand& band, const OGRSpatialReference& system) {
    std::string unit = band.GetUnitType();
    double metres = 1.0;
    if (unit.empty() && system.IsVertical())
        metres = system.GetTargetLinearUnits("VERT_CS");
    else if (const auto known = MetresPerHeightUnit(unit))
        metres = *known;
    else
        throw ElevationError("has heights in '" + unit + "', a unit that is not known");
    int hasNoData = FALSE;
    const double noData = band.GetNoDataValue(&hasNoData);
    return {band.GetScale() * metres, band.GetOffset() * metres,
            hasNoData != FALSE ? std::optional(noData) : std::nullopt};
}

CellReader ReaderOf(std::shared_ptr<OpenFiles> files, std::string file, const HeightScale& scale) {
    return [files = std::move(files), file = std::move(file), scale](
               int column, int row, int columns, int rows, float* metres) {
        std::vector<double> values(static_cast<std::size_t>(columns) *
                                   static_cast<std::size_t>(rows));
        CPLErrorReset();
        if (files->Of(file).GetRasterBand(1)->RasterIO(GF_Read, column, row, columns, rows,
                                                       values.data(), columns, rows, GDT_Float64, 0,
                                                       0, nullptr) != CE_None)
            throw ElevationError(file + ": " + LastMessage());
        std::transform(values.begin(), values.end(), metres,
                       [&](double value) { return scale.Metres(value); });
    };
}

class Collector {
public:
    void AddPath(const std::string& path) {
        std::error_code none;
        if (fs::is_directory(path, none) && !IsGridFolder(path)) return AddFolder(path);
        try {
            AddFile(path);
        } catch (const ElevationError& error) {
            throw ElevationError(path + ' ' + error.what());
        }
    }

    std::unique_ptr<RasterMosaic> Take() { return std::move(mosaic_); }
    const std::optional<ElevationSystem>& FirstSystem() const { return firstSystem_; }

private:
    // An ESRI grid is a folder of files that are nothing by themselves.
    static bool IsGridFolder(const fs::path& path) {
        std::error_code none;
        return fs::exists(path / "hdr.adf", none);
    }

    void AddFolder(const std::string& folder) {
        std::vector<std::string> files;
        std::error_code fault;
        fs::recursive_directory_iterator it(folder, fault), end;
        while (!fault && it != end) {
            if (it->is_directory(fault) && IsGridFolder(it->path())) {
                files.push_back(it->path().string());
                it.disable_recursion_pending();
            } else if (!fault && it->is_regular_file(fault) &&
                       GDALIdentifyDriver(it->path().c_str(), nullptr) != nullptr) {
                files.push_back(it->path().string());
            }
            it.increment(fault);
        }
        if (fault) throw ElevationError(folder + ": " + fault.message());
        std::sort(files.begin(), files.end());
        const std::size_t before = mosaic_->Count();
        for (const std::string& file : files) {
            try {
                AddFile(file);
            } catch (const ElevationError& error) {
                mosaic_->AddNote("left out: " + file + ' ' + error.what());
            }
        }
        if (mosaic_->Count() == before)
            throw ElevationError(folder + " holds no raster with elevations");
    }

    void AddFile(const std::string& file) {
        std::error_code none;
        if (!fs::exists(file, none) && !file.starts_with("/vsi"))
            throw ElevationError("does not exist");
        const Dataset dataset = Open(file);
        if (!dataset) throw ElevationError("is not a raster, or is damaged: " + LastMessage());
        if (dataset->GetRasterCount() < 1) throw ElevationError("is a raster with no bands");
        GDALRasterBand& band = *dataset->GetRasterBand(1);
        if (GDALDataTypeIsComplex(band.GetRasterDataType()) != FALSE)
            throw ElevationError("has complex numbers in place of heights");
        const OGRSpatialReference* const given = dataset->GetSpatialRef();
        if (given == nullptr || given->IsLocal()) throw ElevationError("has no coordinate system");
        RasterGrid grid{dataset->GetRasterXSize(), dataset->GetRasterYSize(), {}};
        if (dataset->GetGeoTransform(grid.toMap.data()) != CE_None)
            throw ElevationError("does not say where on the map it lies");
        CheckBlocks(band);
        const HeightScale scale = ScaleOf(band, *given);
        OGRSpatialReference system(*given);
        system.DemoteTo2D(nullptr);
        system.SetAxisMappingStrategy(OAMS_TRADITIONAL_GIS_ORDER);
        mosaic_->Add(grid, projections_.Of(system), ReaderOf(files_, file, scale));
        if (!firstSystem_) firstSystem_ = {std::make_shared<DataSystem>(system), grid};
    }

    static void CheckBlocks(GDALRasterBand& band) {
        int columns = 0, rows = 0;
        band.GetBlockSize(&columns, &rows);
        const double bytes = static_cast<double>(columns) * rows *
                             GDALGetDataTypeSizeBytes(band.GetRasterDataType());
        if (!(bytes <= LargestBlock))
            throw ElevationError("can only be read in blocks that are too large");
    }

    std::unique_ptr<RasterMosaic> mosaic_ = std::make_unique<RasterMosaic>();
    std::shared_ptr<OpenFiles> files_ = std::make_shared<OpenFiles>();
    Projections projections_;
    std::optional<ElevationSystem> firstSystem_;
};

}  // namespace

std::string LastMessage(const char* otherwise) {
    std::string message = CPLGetLastErrorMsg();
    std::replace(message.begin(), message.end(), '\n', ' ');
    return message.empty() ? otherwise : message;
}

void SetGdalUp() {
    static const bool IsUp = [] {
        CPLSetErrorHandler(CPLQuietErrorHandler);
        GDALAllRegister();
        GDALSetCacheMax64(GdalCache);
        return true;
    }();
    static_cast<void>(IsUp);
}

ElevationSystem SystemOf(const std::vector<std::string>& paths) {
    SetGdalUp();
    Collector collector;
    collector.AddPath(paths.front());
    return collector.FirstSystem().value();
}

std::unique_ptr<RasterMosaic> OpenRasters(const std::vector<std::string>& paths) {
    SetGdalUp();
    Collector collector;
    for (const std::string& path : paths) collector.AddPath(path);
    return collector.Take();
}

}  // namespace vardel::elevation
