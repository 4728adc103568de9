#include "cli/Coverage.h"

#include <cmath>

#include "cli/output/Records.h"
#include "cli/output/Results.h"
#include "coverage/CoverageFiles.h"
#include "terrain/Contours.h"

namespace vardel::cli {

namespace {

AzimuthHeights HeightsFor(const Options& options, Elevations* elevations, const NoteSink& notes) {
    if (elevations == nullptr) return AzimuthHeights(MetricInputs(options.path).hb);
    const EffectiveHeightTable table = HeightsOf(options, *elevations, UsualContourAzimuths);
    for (const std::string& note : NotesOn(table)) notes(note);
    return AzimuthHeights(table);
}

CoverageStation StationOf(const Options& options, Elevations* elevations, const NoteSink& notes) {
    CoverageStation station{
        options.terrain.site.value(),
        MetricInputs(options.path),
        options.path.powerWatts,
        HeightsFor(options, elevations, notes),
        options.wanted.quantity,
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

CoverageOutput OutputOf(const Options& options) {
    const CoverageOptions& coverage = options.coverage;
    const TerrainOptions& terrain = options.terrain;
    CoverageOutput output{coverage.output,   coverage.picture, coverage.lines, coverage.type, {},
                          coverage.interval, options.threads};
    if (options.wantedGiven) output.wanted = options.wanted.value;
    if (!terrain.files.empty())
        output.ground = {*terrain.antenna, terrain.definition.value_or(HeightDefinitions.front()),
                         terrain.azimuths.value_or(UsualContourAzimuths)};
    return output;
}

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
    const auto areas = WriteCoverageFiles(OutputOf(options), world.module, station, grid).value();
    std::vector<Record> records;
    for (std::size_t i = 0; i < areas.size(); ++i)
        records.push_back(AreaRecord(station.models[i], areas[i], options.wantedGiven));
    output(options.json ? JsonOf(records) : CsvOf(records));
}

}  // namespace vardel::cli
