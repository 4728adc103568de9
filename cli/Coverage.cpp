#include "cli/Coverage.h"

#include <algorithm>
#include <cmath>
#include <filesystem>

#include "cli/Records.h"
#include "cli/Results.h"
#include "coverage/CoverageColors.h"
#include "coverage/CoverageRun.h"
#include "services/Files.h"
#include "terrain/Contours.h"
#include "text/NumberText.h"

namespace vardel::cli {

namespace {

namespace fs = std::filesystem;

constexpr const char* Raster = "raster.tif";
constexpr const char* Made = "made";

CoverageQuantity QuantityOf(const Options& options) {
    if (!options.wantedGiven)
        return options.coverage.quantity.value_or(CoverageQuantity::FieldStrength);
    switch (options.wanted.kind) {
        case Wanted::Kind::PathLoss:
            return CoverageQuantity::PathLoss;
        case Wanted::Kind::ReceivedPower:
            return CoverageQuantity::ReceivedPower;
        case Wanted::Kind::FieldStrength:
            break;
    }
    return CoverageQuantity::FieldStrength;
}

AzimuthHeights HeightsFor(const Options& options, Elevations* elevations, const NoteSink& notes) {
    if (elevations == nullptr) return AzimuthHeights(MetricInputs(options.path).hb);
    const EffectiveHeightTable table = HeightsOf(options, *elevations, UsualContourAzimuths);
    for (const std::string& note : NotesOn(table)) notes(note);
    std::vector<double> metres;
    for (const RadialHeight& radial : table.radials) metres.push_back(radial.effectiveHeight);
    return AzimuthHeights(std::move(metres));
}

CoverageStation StationOf(const Options& options, Elevations* elevations, const NoteSink& notes) {
    CoverageStation station{
        options.terrain.site.value(),
        MetricInputs(options.path),
        options.path.powerWatts,
        HeightsFor(options, elevations, notes),
        QuantityOf(options),
        {options.path.frequency, options.wanted.antennaGainDbi, options.wanted.cableLossDb}};
    if (options.coverage.model) station.models = {*options.coverage.model};
    if (!options.coverage.extent.bounds) station.farthestKm = options.coverage.extent.radiusKm;
    return station;
}

CoverageGrid GridOf(const Options& options, const CoverageWorld& world) {
    const CoverageOptions& coverage = options.coverage;
    const Place& site = *options.terrain.site;
    std::shared_ptr<const GridSystem> system;
    std::optional<CellPattern> pattern;
    switch (coverage.grid) {
        case CoverageSystem::Site:
            system = GridSystemAround(site);
            break;
        case CoverageSystem::Utm:
            system = UtmSystemOf(site);
            break;
        case CoverageSystem::Elevation: {
            const ElevationSystem data = world.module().systemOf(options.terrain.files);
            const auto& toMap = data.cells.toMap;
            system = data.system;
            if (!coverage.resolution)
                pattern = {std::hypot(toMap[1], toMap[4]), std::hypot(toMap[2], toMap[5]), toMap[0],
                           toMap[3]};
            break;
        }
    }
    if (!pattern) pattern = PatternOf(*system, site, coverage.resolution.value_or(UsualResolution));
    try {
        return MakeCoverageGrid(site, system, *pattern, coverage.extent);
    } catch (const CoverageError& error) {
        throw UsageError(error.what());
    }
}

std::vector<std::pair<std::string, std::string>> MetadataOf(const Options& options,
                                                            const CoverageStation& station) {
    const auto number = [](double x) { return ShortestText(x); };
    const TerrainOptions& terrain = options.terrain;
    std::vector<std::pair<std::string, std::string>> all = {
        {"QUANTITY", std::string(NameOf(station.quantity)) + " in " + UnitOf(station.quantity)},
        {"STATION_LATITUDE", number(station.site.latitude)},
        {"STATION_LONGITUDE", number(station.site.longitude)},
        {"FREQUENCY_MHZ", number(station.path.f)},
        {"MOBILE_HEIGHT_M", number(station.path.hm)},
        {"AREA", station.path.area},
        {"CITY", station.path.city},
        {"PERCENT_TIME", number(station.path.pctTime)},
        {"PERCENT_LOCATIONS", number(station.path.pctLoc)},
        {"FARTHEST_KM", number(station.farthestKm)}};
    if (station.quantity != CoverageQuantity::PathLoss)
        all.emplace_back("POWER_W_ERP", number(station.powerWatts));
    if (station.quantity == CoverageQuantity::ReceivedPower) {
        all.emplace_back("ANTENNA_GAIN_DBI", number(station.receiver.antennaGainDbi));
        all.emplace_back("CABLE_LOSS_DB", number(station.receiver.cableLossDb));
    }
    if (options.wantedGiven) all.emplace_back("WANTED", number(options.wanted.value));
    if (terrain.files.empty()) {
        all.emplace_back("BASE_HEIGHT_M", number(station.path.hb));
        return all;
    }
    const HeightDefinition definition = terrain.definition.value_or(HeightDefinitions.front());
    all.emplace_back("ANTENNA_ABOVE_GROUND_M", number(*terrain.antenna));
    all.emplace_back("HEIGHT_DEFINITION", definition.name);
    all.emplace_back("AVERAGE_FROM_KM", number(definition.fromKm));
    all.emplace_back("AVERAGE_TO_KM", number(definition.toKm));
    all.emplace_back("AZIMUTHS",
                     number(static_cast<double>(terrain.azimuths.value_or(UsualContourAzimuths))));
    return all;
}

RasterLayout LayoutOf(const Options& options, const CoverageStation& station,
                      const CoverageGrid& grid) {
    RasterLayout layout{grid.cells, grid.system->Definition(),    options.coverage.type,
                        {},         MetadataOf(options, station), true};
    for (const ModelNumber model : station.models) layout.bands.emplace_back(ModelOf(model).name);
    for (const ModelNumber model : station.models)
        layout.bands.push_back(std::string(ModelOf(model).name) + " in range");
    layout.bands.emplace_back("Effective height of base antenna in m");
    return layout;
}

// Runs what may fail for a file, with its name before the reason.
template <class Function>
auto For(const std::string& file, Function function) {
    try {
        return function();
    } catch (const ElevationError& error) {
        throw ElevationError(file + ": " + error.what());
    }
}

void CheckRoom(const std::string& file, const CoverageGrid& grid, std::size_t bytesOfCell) {
    constexpr double Megabyte = 1e6;
    std::error_code none;
    const fs::path folder = fs::path(file).parent_path();
    const auto space = fs::space(folder.empty() ? fs::path(".") : folder, none);
    const double wanted = grid.Cells() * static_cast<double>(bytesOfCell);
    if (none || wanted <= static_cast<double>(space.available)) return;
    throw ElevationError(file + ": the raster needs " + ShortestText(std::ceil(wanted / Megabyte)) +
                         " MB while it is made, and the disk has " +
                         ShortestText(std::floor(static_cast<double>(space.available) / Megabyte)) +
                         " MB left");
}

// The raster beside a file that is made of it.
class RasterFile {
public:
    RasterFile(const std::string& file, const ElevationModule& module, const CoverageGrid& grid,
               const RasterLayout& layout)
        : file_(file), module_(module), bands_(layout.bands.size()), folder_(file) {
        const std::size_t size = layout.type == CellType::Byte    ? 1
                                 : layout.type == CellType::Float ? 4
                                                                  : 8;
        CheckRoom(file, grid, size * bands_);
        writer_ = For(file_, [&] { return module_.create(folder_.Path(Raster), layout); });
    }

    // A band's rows.
    void Write(std::size_t band, int row, int rows, const double* cells) {
        For(file_, [&] { writer_->Write(band, row, rows, cells); });
    }
    void Finish() {
        For(file_, [&] { writer_->Finish(); });
    }
    PartFolder& Folder() { return folder_; }
    std::string Path() const { return folder_.Path(Raster); }

    void ConvertAndReplace(RasterFormat format, unsigned threads) {
        For(file_, [&] { module_.convert(Path(), folder_.Path(Made), format, threads); });
        folder_.Replace(Made);
    }

private:
    std::string file_;
    const ElevationModule& module_;
    std::size_t bands_;
    PartFolder folder_;
    std::unique_ptr<RasterWriter> writer_;
};

// The files that are asked for, while the strips come.
class Files {
public:
    Files(const Options& options, const CoverageWorld& world, const CoverageStation& station,
          const CoverageGrid& grid)
        : options_(options.coverage),
          threads_(options.threads),
          grid_(grid),
          models_(station.models.size()),
          colors_(station.quantity, options.wanted.value, options.coverage.interval),
          title_(ModelOf(station.models.front()).name) {
        const RasterLayout layout = LayoutOf(options, station, grid);
        const std::string& raster = options_.output.empty() ? options_.lines : options_.output;
        if (!raster.empty()) raster_.emplace(raster, world.module(), grid, layout);
        if (!options_.picture.empty())
            picture_.emplace(options_.picture, world.module(), grid,
                             RasterLayout{grid.cells,
                                          layout.system,
                                          CellType::Byte,
                                          {"Red", "Green", "Blue", "Alpha"},
                                          {},
                                          false});
        if (!raster.empty()) module_ = &world.module();
    }

    void Take(int row, int rows, const CoverageBuffers& strip) {
        if (raster_) TakeRaster(row, rows, strip);
        if (picture_) TakePicture(row, rows, strip.values[0]);
    }

    void Finish() {
        if (raster_) raster_->Finish();
        if (picture_) picture_->Finish();
        if (!options_.lines.empty()) FinishLines();
        if (!options_.output.empty())
            raster_->ConvertAndReplace(RasterFormat::CloudOptimizedTiff, threads_);
        if (picture_) FinishPicture();
    }

private:
    std::size_t CellsOf(int rows) const {
        return static_cast<std::size_t>(rows) * static_cast<std::size_t>(grid_.cells.columns);
    }

    void TakeRaster(int row, int rows, const CoverageBuffers& strip) {
        scratch_.resize(CellsOf(rows));
        for (std::size_t i = 0; i < models_; ++i) {
            raster_->Write(i, row, rows, strip.values[i]);
            std::copy_n(strip.inRange[i], scratch_.size(), scratch_.begin());
            raster_->Write(models_ + i, row, rows, scratch_.data());
        }
        raster_->Write(2 * models_, row, rows, strip.heights);
    }

    void TakePicture(int row, int rows, const double* values) {
        const std::size_t count = CellsOf(rows);
        scratch_.resize(4 * count);
        for (std::size_t i = 0; i < count; ++i) {
            const PixelColor color = colors_.Of(values[i]);
            scratch_[i] = color.red;
            scratch_[count + i] = color.green;
            scratch_[2 * count + i] = color.blue;
            scratch_[3 * count + i] = color.alpha;
        }
        for (std::size_t band = 0; band < 4; ++band)
            picture_->Write(band, row, rows, scratch_.data() + band * count);
    }

    void FinishLines() {
        PartFolder folder(options_.lines);
        For(options_.lines,
            [&] { module_->lines(raster_->Path(), models_, colors_.Breaks(), folder.Path(Made)); });
        folder.Replace(Made);
    }

    // With its place beside it, as GIS look for it: the world file has the centre of the first
    // cell.
    void FinishPicture() {
        const fs::path picture = options_.picture;
        picture_->ConvertAndReplace(RasterFormat::Png, threads_);
        if (FileExists(picture_->Folder().Path("made.aux.xml")))
            picture_->Folder().Replace("made.aux.xml", options_.picture + ".aux.xml");
        const auto& toMap = grid_.cells.toMap;
        std::string world;
        for (const double number :
             {toMap[1], 0.0, 0.0, toMap[5], toMap[0] + 0.5 * toMap[1], toMap[3] + 0.5 * toMap[5]})
            world += ShortestText(number) + '\n';
        ReplaceFile(fs::path(picture).replace_extension(".pgw").string(), world);
        ReplaceFile(fs::path(picture).replace_extension(".legend.svg").string(),
                    colors_.Legend(title_));
    }

    const CoverageOptions& options_;
    unsigned threads_;
    const CoverageGrid& grid_;
    std::size_t models_;
    CoverageColors colors_;
    std::string title_;
    std::optional<RasterFile> raster_, picture_;
    const ElevationModule* module_ = nullptr;
    std::vector<double> scratch_;
};

Record AreaRecord(ModelNumber model, const CoveredArea& area, bool hasGoal) {
    const auto percent = [&](double part) {
        return area.calculated > 0.0 ? Cell(100.0 * part / area.calculated) : Cell();
    };
    return {{"model", ColumnName(ModelOf(model))},
            {"area_km2", area.calculated},
            {"covered_km2", hasGoal ? Cell(area.covered) : Cell()},
            {"covered_percent", hasGoal ? percent(area.covered) : Cell()},
            {"in_range_percent", percent(area.inRange)}};
}

}  // namespace

void WriteCoverage(const Options& options, const CoverageWorld& world, const Sink& output,
                   const NoteSink& notes) {
    const CoverageGrid grid = GridOf(options, world);
    const CoverageStation station = StationOf(options, world.elevations, notes);
    Files files(options, world, station, grid);
    const auto areas = RunCoverage(
        station, grid, options.wantedGiven ? std::optional(options.wanted.value) : std::nullopt,
        options.threads,
        [&](int row, int rows, const CoverageBuffers& strip) { files.Take(row, rows, strip); });
    files.Finish();
    std::vector<Record> records;
    for (std::size_t i = 0; i < areas.size(); ++i)
        records.push_back(AreaRecord(station.models[i], areas[i], options.wantedGiven));
    output(options.json ? JsonOf(records) : CsvOf(records));
}

}  // namespace vardel::cli
