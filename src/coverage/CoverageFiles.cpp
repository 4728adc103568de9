#include "coverage/CoverageFiles.h"

#include <algorithm>
#include <cmath>
#include <filesystem>

#include "coverage/CoverageColors.h"
#include "services/Files.h"
#include "text/NumberText.h"

namespace vardel {

namespace {

namespace fs = std::filesystem;

constexpr const char* Raster = "raster.tif";
constexpr const char* Made = "made";

std::vector<std::pair<std::string, std::string>> MetadataOf(const CoverageOutput& output,
                                                            const CoverageStation& station) {
    const auto number = [](double x) { return ShortestText(x); };
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
    if (station.quantity != ServiceQuantity::PathLoss)
        all.emplace_back("POWER_W_ERP", number(station.powerWatts));
    if (station.quantity == ServiceQuantity::ReceivedPower) {
        all.emplace_back("ANTENNA_GAIN_DBI", number(station.receiver.antennaGainDbi));
        all.emplace_back("CABLE_LOSS_DB", number(station.receiver.cableLossDb));
    }
    if (output.wanted) all.emplace_back("WANTED", number(*output.wanted));
    if (!output.ground) {
        all.emplace_back("BASE_HEIGHT_M", number(station.path.hb));
        return all;
    }
    const auto& [antenna, definition, azimuths] = *output.ground;
    all.emplace_back("ANTENNA_ABOVE_GROUND_M", number(antenna));
    all.emplace_back("HEIGHT_DEFINITION", definition.name);
    all.emplace_back("AVERAGE_FROM_KM", number(definition.fromKm));
    all.emplace_back("AVERAGE_TO_KM", number(definition.toKm));
    all.emplace_back("AZIMUTHS", number(static_cast<double>(azimuths)));
    return all;
}

RasterLayout LayoutOf(const CoverageOutput& output, const CoverageStation& station,
                      const CoverageGrid& grid) {
    RasterLayout layout{grid.cells, grid.system->Definition(),   output.type,
                        {},         MetadataOf(output, station), true};
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
    Files(const CoverageOutput& output, const ElevationModule& module,
          const CoverageStation& station, const CoverageGrid& grid)
        : output_(output),
          module_(module),
          grid_(grid),
          models_(station.models.size()),
          colors_(station.quantity, output.wanted.value_or(0.0), output.interval),
          title_(ModelOf(station.models.front()).name) {
        const RasterLayout layout = LayoutOf(output, station, grid);
        const std::string& raster = output.raster.empty() ? output.lines : output.raster;
        if (!raster.empty()) raster_.emplace(raster, module, grid, layout);
        if (!output.picture.empty())
            picture_.emplace(output.picture, module, grid,
                             RasterLayout{grid.cells,
                                          layout.system,
                                          CellType::Byte,
                                          {"Red", "Green", "Blue", "Alpha"},
                                          {},
                                          false});
    }

    void Take(int row, int rows, const CoverageBuffers& strip) {
        if (raster_) TakeRaster(row, rows, strip);
        if (picture_) TakePicture(row, rows, strip.values[0]);
    }

    void Finish() {
        if (raster_) raster_->Finish();
        if (picture_) picture_->Finish();
        if (!output_.lines.empty()) FinishLines();
        if (!output_.raster.empty())
            raster_->ConvertAndReplace(RasterFormat::CloudOptimizedTiff, output_.threads);
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
        PartFolder folder(output_.lines);
        For(output_.lines,
            [&] { module_.lines(raster_->Path(), models_, colors_.Breaks(), folder.Path(Made)); });
        folder.Replace(Made);
    }

    // With its place beside it, as GIS look for it: the world file has the centre of the first
    // cell.
    void FinishPicture() {
        const fs::path picture = output_.picture;
        picture_->ConvertAndReplace(RasterFormat::Png, output_.threads);
        if (FileExists(picture_->Folder().Path("made.aux.xml")))
            picture_->Folder().Replace("made.aux.xml", output_.picture + ".aux.xml");
        const auto& toMap = grid_.cells.toMap;
        std::string world;
        for (const double number :
             {toMap[1], 0.0, 0.0, toMap[5], toMap[0] + 0.5 * toMap[1], toMap[3] + 0.5 * toMap[5]})
            world += ShortestText(number) + '\n';
        ReplaceFile(fs::path(picture).replace_extension(".pgw").string(), world);
        ReplaceFile(fs::path(picture).replace_extension(".legend.svg").string(),
                    colors_.Legend(title_));
    }

    const CoverageOutput& output_;
    const ElevationModule& module_;
    const CoverageGrid& grid_;
    std::size_t models_;
    CoverageColors colors_;
    std::string title_;
    std::optional<RasterFile> raster_, picture_;
    std::vector<double> scratch_;
};

}  // namespace

std::optional<std::vector<CoveredArea>> WriteCoverageFiles(
    const CoverageOutput& output, const std::function<const ElevationModule&()>& module,
    const CoverageStation& station, const CoverageGrid& grid,
    const std::function<bool(double done)>& goOn) {
    std::optional<Files> files;
    if (output.Any()) files.emplace(output, module(), station, grid);
    auto areas = RunCoverage(station, grid, output.wanted, output.threads,
                             [&](int row, int rows, const CoverageBuffers& strip) {
                                 if (files) files->Take(row, rows, strip);
                                 return goOn(static_cast<double>(row + rows) / grid.cells.rows);
                             });
    if (areas && files) files->Finish();
    return areas;
}

}  // namespace vardel
