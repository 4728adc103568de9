#include "elevation/GdalWriters.h"

#include <cpl_error.h>
#include <cpl_string.h>
#include <gdal_alg.h>
#include <gdal_priv.h>
#include <ogr_spatialref.h>
#include <ogrsf_frmts.h>

#include <limits>

#include "elevation/GdalRasters.h"
#include "terrain/Elevations.h"

namespace vardel::elevation {

namespace {

using Dataset = std::unique_ptr<GDALDataset>;

[[noreturn]] void Fail() { throw ElevationError(LastMessage("cannot be written")); }

// GDAL writes some of a file only when it closes it, and reports a fault of that nowhere else.
void Close(Dataset& dataset) {
    if (!dataset) return;
    dataset->FlushCache(true);
    dataset.reset();
    if (CPLGetLastErrorType() >= CE_Failure) Fail();
}

GDALDriver& DriverOf(const char* name) {
    GDALDriver* const driver = GetGDALDriverManager()->GetDriverByName(name);
    if (driver == nullptr) throw ElevationError(std::string("GDAL has no format ") + name);
    return *driver;
}

OGRSpatialReference SystemOfText(const std::string& text) {
    OGRSpatialReference system;
    if (system.SetFromUserInput(text.c_str()) != OGRERR_NONE) Fail();
    system.SetAxisMappingStrategy(OAMS_TRADITIONAL_GIS_ORDER);
    return system;
}

GDALDataType TypeOf(CellType type) {
    if (type == CellType::Byte) return GDT_Byte;
    return type == CellType::Float ? GDT_Float32 : GDT_Float64;
}

class Writer : public RasterWriter {
public:
    Writer(const std::string& file, const RasterLayout& layout) : columns_(layout.grid.columns) {
        CPLErrorReset();
        CPLStringList options;
        options.SetNameValue("INTERLEAVE", "BAND");
        options.SetNameValue("BIGTIFF", "IF_SAFER");
        if (layout.type == CellType::Byte && layout.bands.size() == 4) {
            options.SetNameValue("PHOTOMETRIC", "RGB");
            options.SetNameValue("ALPHA", "YES");
        }
        dataset_.reset(DriverOf("GTiff").Create(file.c_str(), columns_, layout.grid.rows,
                                                static_cast<int>(layout.bands.size()),
                                                TypeOf(layout.type), options.List()));
        if (!dataset_) Fail();
        const OGRSpatialReference system = SystemOfText(layout.system);
        dataset_->SetSpatialRef(&system);
        auto toMap = layout.grid.toMap;
        dataset_->SetGeoTransform(toMap.data());
        for (const auto& [name, value] : layout.metadata)
            dataset_->SetMetadataItem(name.c_str(), value.c_str());
        for (std::size_t i = 0; i < layout.bands.size(); ++i) {
            GDALRasterBand& band = BandOf(i);
            band.SetDescription(layout.bands[i].c_str());
            if (layout.noDataIsNan) band.SetNoDataValue(std::numeric_limits<double>::quiet_NaN());
        }
    }

    void Write(std::size_t band, int row, int rows, const double* cells) override {
        // GDAL does not change what it writes.
        if (BandOf(band).RasterIO(GF_Write, 0, row, columns_, rows, const_cast<double*>(cells),
                                  columns_, rows, GDT_Float64, 0, 0, nullptr) != CE_None ||
            CPLGetLastErrorType() >= CE_Failure)
            Fail();
    }

    void Finish() override { Close(dataset_); }

private:
    GDALRasterBand& BandOf(std::size_t band) {
        return *dataset_->GetRasterBand(static_cast<int>(band) + 1);
    }

    Dataset dataset_;
    int columns_;
};

Dataset Reopen(const std::string& file) {
    CPLErrorReset();
    Dataset dataset(GDALDataset::Open(file.c_str(), GDAL_OF_RASTER | GDAL_OF_READONLY));
    if (!dataset) Fail();
    return dataset;
}

OGRLayer& NewLayer(GDALDataset& dataset, const OGRSpatialReference& system, char** options) {
    OGRSpatialReference ofLayer(system);
    OGRLayer* const layer = dataset.CreateLayer("coverage", &ofLayer, wkbLineString, options);
    if (layer == nullptr) Fail();
    OGRFieldDefn value("value", OFTReal), model("model", OFTString);
    if (layer->CreateField(&value) != OGRERR_NONE || layer->CreateField(&model) != OGRERR_NONE)
        Fail();
    return *layer;
}

// The generator knows neither other coordinates nor names, so its lines go through a layer.
void AddLinesOf(GDALRasterBand& band, const std::vector<double>& values,
                const OGRSpatialReference& earth, OGRLayer& lines) {
    GDALDataset& raster = *band.GetDataset();
    const Dataset scratch(DriverOf("Memory").Create("", 0, 0, 0, GDT_Unknown, nullptr));
    OGRLayer& layer = NewLayer(*scratch, *raster.GetSpatialRef(), nullptr);
    CPLString levels = "FIXED_LEVELS=";
    for (const double value : values) levels += CPLSPrintf("%.15g,", value);
    levels.pop_back();
    CPLStringList options;
    options.AddString(levels);
    options.AddString("ELEV_FIELD=0");
    options.AddString("NODATA=nan");
    if (GDALContourGenerateEx(&band, &layer, options.List(), nullptr, nullptr) != CE_None) Fail();
    std::unique_ptr<OGRCoordinateTransformation> toEarth(
        OGRCreateCoordinateTransformation(raster.GetSpatialRef(), &earth));
    if (!toEarth) Fail();
    for (const auto& feature : layer) {
        OGRFeature line(lines.GetLayerDefn());
        line.SetField("value", feature->GetFieldAsDouble("value"));
        line.SetField("model", band.GetDescription());
        std::unique_ptr<OGRGeometry> shape(feature->StealGeometry());
        if (!shape || shape->transform(toEarth.get()) != OGRERR_NONE) Fail();
        line.SetGeometryDirectly(shape.release());
        if (lines.CreateFeature(&line) != OGRERR_NONE) Fail();
    }
}

}  // namespace

std::unique_ptr<RasterWriter> CreateRaster(const std::string& file, const RasterLayout& layout) {
    SetGdalUp();
    return std::make_unique<Writer>(file, layout);
}

void ConvertRaster(const std::string& from, const std::string& to, RasterFormat format,
                   unsigned threads) {
    SetGdalUp();
    const Dataset source = Reopen(from);
    const bool isTiff = format == RasterFormat::CloudOptimizedTiff;
    CPLStringList options;
    if (isTiff) {
        options.SetNameValue("COMPRESS", "DEFLATE");
        options.SetNameValue("PREDICTOR", "YES");
        options.SetNameValue("BIGTIFF", "IF_SAFER");
        // A pixel of an overview has the value of one place, as the marks of range need it.
        options.SetNameValue("OVERVIEW_RESAMPLING", "NEAREST");
        options.SetNameValue("NUM_THREADS", std::to_string(threads).c_str());
    }
    Dataset copy(
        DriverOf(isTiff ? "COG" : "PNG")
            .CreateCopy(to.c_str(), source.get(), FALSE, options.List(), nullptr, nullptr));
    if (!copy) Fail();
    Close(copy);
}

void WriteLines(const std::string& raster, std::size_t bands, const std::vector<double>& values,
                const std::string& to) {
    SetGdalUp();
    const Dataset source = Reopen(raster);
    OGRSpatialReference earth;
    earth.SetWellKnownGeogCS("WGS84");
    earth.SetAxisMappingStrategy(OAMS_TRADITIONAL_GIS_ORDER);
    Dataset made(DriverOf("GeoJSON").Create(to.c_str(), 0, 0, 0, GDT_Unknown, nullptr));
    if (!made) Fail();
    CPLStringList options;
    options.SetNameValue("RFC7946", "YES");
    OGRLayer& layer = NewLayer(*made, earth, options.List());
    for (std::size_t i = 0; i < bands; ++i)
        AddLinesOf(*source->GetRasterBand(static_cast<int>(i) + 1), values, earth, layer);
    Close(made);
}

}  // namespace vardel::elevation
