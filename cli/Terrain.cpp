#include "cli/Terrain.h"

#include "cli/output/Records.h"
#include "cli/output/Results.h"
#include "terrain/Contours.h"

namespace vardel::cli {

EffectiveHeightTable HeightsOf(const Options& options, Elevations& elevations,
                               std::size_t usualAzimuths) {
    const TerrainOptions& terrain = options.terrain;
    return EffectiveHeights(elevations,
                            {terrain.site.value(), terrain.antenna.value(), terrain.ground},
                            terrain.definition.value_or(HeightDefinitions.front()),
                            terrain.azimuths.value_or(usualAzimuths));
}

namespace {

Record HeightRecord(const EffectiveHeightTable& table, const RadialHeight& radial, Units units) {
    const auto height = [&](double metres) { return metres / MetresPerHeight(units); };
    return {{"azimuth_deg", radial.azimuth},
            {HeightColumn("ground", units), height(table.ground)},
            {HeightColumn("average_terrain", units), height(radial.averageTerrain)},
            {HeightColumn("above_average", units), height(radial.aboveAverage)},
            {HeightColumn("effective_height", units), height(radial.effectiveHeight)},
            {"floored", radial.Floored()},
            {"seen", radial.seen}};
}

void AddReach(Record& record, const Model& model, const Reach& reach, Units units) {
    const std::string name = ColumnName(model);
    record.insert(record.end(),
                  {{name + "_reach", OutcomeOf(reach)},
                   {DistanceColumn(name + "_reach", units),
                    reach.served.empty() ? Cell() : Cell(reach.km / KmPerDistance(units))},
                   {name + "_in_range", reach.inRange},
                   {name + "_met_again", reach.Again()}});
}

std::vector<Record> ContourRecords(const ContourTable& table, Units units) {
    std::vector<Record> records;
    for (std::size_t i = 0; i < table.heights.radials.size(); ++i) {
        Record record = HeightRecord(table.heights, table.heights.radials[i], units);
        for (const Contour& contour : table.contours)
            AddReach(record, ModelOf(contour.model), contour.reaches[i], units);
        records.push_back(std::move(record));
    }
    return records;
}

void TellAll(const NoteSink& notes, const std::vector<std::string>& all) {
    for (const std::string& note : all) notes(note);
}

}  // namespace

void WriteHeights(const Options& options, Elevations& elevations, const Sink& output,
                  const NoteSink& notes) {
    const EffectiveHeightTable table = HeightsOf(options, elevations, UsualHeightAzimuths);
    std::vector<Record> records;
    for (const RadialHeight& radial : table.radials)
        records.push_back(HeightRecord(table, radial, options.path.units));
    output(options.json ? JsonOf(records) : CsvOf(records));
    TellAll(notes, NotesOn(table));
}

void WriteContour(const Options& options, Elevations& elevations, const Sink& output,
                  const NoteSink& notes) {
    const ContourTable table =
        ContoursOf(HeightsOf(options, elevations, UsualContourAzimuths), MetricInputs(options.path),
                   GoalOf(options.wanted, options.path));
    switch (options.terrain.format.value_or(ContourFormat::Csv)) {
        case ContourFormat::GeoJson:
            output(ContourGeoJson(table).value());
            break;
        case ContourFormat::Kml:
            output(ContourKml(table).value());
            break;
        case ContourFormat::Csv: {
            const auto records = ContourRecords(table, options.path.units);
            output(options.json ? JsonOf(records) : CsvOf(records));
            break;
        }
    }
    TellAll(notes, NotesOn(table));
}

}  // namespace vardel::cli
