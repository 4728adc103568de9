#include "forms/tools/AreaBoxes.h"

#include <algorithm>
#include <cmath>
#include <thread>

#include "coverage/CoverageFiles.h"

namespace vardel {

namespace {

constexpr std::size_t PictureSize = 800;  // pixels each way
constexpr double FewestPixels = 1000.0;   // of a file, each way
constexpr double FinestPixel = 1.0;       // m

std::vector<ComboBox::Item> Items() {
    std::vector<ComboBox::Item> items = {{"none"}};
    for (const ModelNumber number : ComparedModels) items.push_back({ModelOf(number).name});
    return items;
}

// 1, 2 or 5 times a power of ten, so that there are 1,000 to 2,500 pixels across.
double PixelMetres(double radiusKm) {
    const double rough = 2000.0 * radiusKm / FewestPixels;
    const double power = std::pow(10.0, std::floor(std::log10(rough)));
    const double factor = rough >= 5.0 * power ? 5.0 : rough >= 2.0 * power ? 2.0 : 1.0;
    return std::max(FinestPixel, factor * power);
}

}  // namespace

AreaBoxes::AreaBoxes(Form& form, GroundMap& map)
    : lblArea(form, "lblArea", "Area"),
      cmbArea(form, "cmbArea", Items()),
      cmdSaveArea(form, "cmdSaveArea", "Save Ar&ea ..."),
      lblPointed(form, "lblPointed"),
      map_(map) {
    cmbArea.SetToolTipText("The model whose values are shown under the contours");
    cmdSaveArea.SetToolTipText("As GeoTIFF or PNG, 1,000 to 2,500 pixels across");
    map_.Point = [this] { TellPointed(); };
}

std::optional<ModelNumber> AreaBoxes::Chosen() const {
    const int place = cmbArea.ListIndex() - 1;
    if (place < 0) return std::nullopt;
    return ComparedModels.at(static_cast<std::size_t>(place));
}

void AreaBoxes::Show(const std::optional<Wanted>& wanted) {
    const auto& table = map_.Table();
    goal_.reset();
    if (wanted && table) goal_ = AreaGoal{*wanted};
    if (const auto model = Chosen(); goal_ && model)
        map_.SetArea(PictureOf(*table, *goal_, *model, map_.RadiusKm(), PictureSize));
    else if (IsShown())
        map_.SetArea({});
    TellPointed();
}

void AreaBoxes::TellPointed() {
    const auto& place = map_.Pointed();
    if (!place || !goal_ || !map_.Table()) return lblPointed.SetCaption("");
    const double angle = place->azimuth * std::acos(-1.0) / 180.0;
    const double metres =
        map_.Ground().MetresAt(place->km * std::sin(angle), place->km * std::cos(angle));
    lblPointed.SetCaption(TextAt(*map_.Table(), *goal_, *place, metres, map_.ShownUnits()));
}

void AreaBoxes::Save(const std::string& path, bool isPicture,
                     const std::function<const ElevationModule&()>& module,
                     const std::function<bool(double done)>& goOn) const {
    const ContourTable& table = map_.Table().value();
    CoverageStation station = StationOf(
        table, goal_.value(),
        isPicture ? std::vector{Chosen().value()}
                  : std::vector<ModelNumber>{ComparedModels.begin(), ComparedModels.end()});
    station.farthestKm = std::min(FarthestReach, std::ceil(map_.RadiusKm()));
    const auto system = GridSystemAround(station.site);
    const CoverageGrid grid = MakeCoverageGrid(
        station.site, system, PatternOf(*system, station.site, PixelMetres(station.farthestKm)),
        {station.farthestKm});
    CoverageOutput output;
    (isPicture ? output.picture : output.raster) = path;
    output.wanted = goal_->wanted.value;
    output.interval = goal_->stepDb;
    output.threads = std::max(1U, std::thread::hardware_concurrency());
    output.ground = {table.heights.mast.antenna, table.heights.definition,
                     table.heights.radials.size()};
    WriteCoverageFiles(output, module, station, grid, goOn);
}

}  // namespace vardel
