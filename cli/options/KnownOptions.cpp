#include "cli/options/KnownOptions.h"

#include <array>
#include <initializer_list>
#include <utility>

#include "cli/options/PathFields.h"
#include "cli/output/Results.h"

namespace vardel::cli {

namespace {

using Reading = OptionReading;

// Those that have a distance and a base height of their own, and all that have a path.
constexpr Commands OfPaths =
    OfFiles | Bit(Command::Path) | Bit(Command::Curve) | Bit(Command::Reach);
constexpr Commands OfCurve = Bit(Command::Curve);
constexpr Commands OfCoverage = Bit(Command::Coverage);
constexpr Commands OfModels = OfPaths | Bit(Command::Contour) | OfCoverage;
constexpr Commands OfAll = OfModels | OfSites;

[[noreturn]] void Fail(const KnownOption& option, const std::string& what) {
    throw UsageError(Dashed(option) + ": " + what);
}

// What a text means by a function that says what is wrong with it.
template <class Function>
auto ValueOf(const KnownOption& option, const std::string& text, Function function) {
    std::optional<std::string> wrong;
    const auto value = function(text, wrong);
    if (!value) Fail(option, *wrong);
    return *value;
}

double NumberOf(const KnownOption& option, const std::string& text) {
    return ValueOf(option, text, NumberOrFault);
}

double PositiveOf(const KnownOption& option, const std::string& text) {
    const double number = NumberOf(option, text);
    if (!(number > 0.0)) Fail(option, Shown(text) + " is not above zero");
    return number;
}

template <class Value>
Value OneOf(const KnownOption& option, const std::string& text,
            std::initializer_list<std::pair<std::string, Value>> values) {
    std::string names;
    for (const auto& [name, value] : values) {
        if (text == name) return value;
        names += (names.empty() ? "" : ", ") + name;
    }
    Fail(option, Shown(text) + " is not one of " + names);
}

std::string FileOf(const KnownOption& option, const std::string& text) {
    if (text.empty()) Fail(option, "the file's name is empty");
    return text;
}

template <PathField Field>
void TakeField(Reading& reading, const KnownOption& option, const std::string& text) {
    if (const auto wrong = SetPathField(reading.options.path, Field, text, 1.0, reading.powerUnit))
        Fail(option, *wrong);
}

template <ServiceQuantity Wish>
void TakeGoal(Reading& reading, const KnownOption& option, const std::string& text) {
    Wanted& wanted = reading.options.wanted;
    if (reading.options.wantedGiven && wanted.quantity != Wish)
        throw UsageError(reading.command + OneGoal);
    reading.options.wantedGiven = true;
    wanted.quantity = Wish;
    wanted.value = NumberOf(option, text);
}

template <bool Options::*Flag>
void TakeFlag(Reading& reading, const KnownOption&, const std::string&) {
    reading.options.*Flag = true;
}

template <double Options::*Number>
void TakeNumber(Reading& reading, const KnownOption& option, const std::string& text) {
    reading.options.*Number = NumberOf(option, text);
}

template <double Wanted::*Number>
void TakeReceiver(Reading& reading, const KnownOption& option, const std::string& text) {
    reading.options.wanted.*Number = NumberOf(option, text);
}

template <std::string CoverageOptions::*File>
void TakeFile(Reading& reading, const KnownOption& option, const std::string& text) {
    reading.options.coverage.*File = FileOf(option, text);
}

void TakeUnits(Reading& reading, const KnownOption& option, const std::string& text) {
    reading.units =
        OneOf<Units>(option, text, {{"metric", Units::Metric}, {"english", Units::English}});
}

void TakePowerUnit(Reading& reading, const KnownOption& option, const std::string& text) {
    reading.powerUnit = OneOf<PowerUnit>(option, text,
                                         {{"w", PowerUnit::Watts},
                                          {"kw", PowerUnit::Kilowatts},
                                          {"dbm", PowerUnit::Dbm},
                                          {"dbw", PowerUnit::Dbw}});
}

void TakeThreads(Reading& reading, const KnownOption& option, const std::string& text) {
    reading.options.threads = static_cast<unsigned>(
        ValueOf(option, text, [](const std::string& number, std::optional<std::string>& wrong) {
            return WholeNumberOrFault(number, 1, 256, wrong);
        }));
}

void TakeElevation(Reading& reading, const KnownOption& option, const std::string& text) {
    reading.options.terrain.files.push_back(FileOf(option, text));
}

void TakeSite(Reading& reading, const KnownOption& option, const std::string& text) {
    reading.options.terrain.site = ValueOf(option, text, SiteOf);
}

void TakeAntenna(Reading& reading, const KnownOption& option, const std::string& text) {
    reading.options.terrain.antenna = PositiveOf(option, text) * MetresPerHeight(reading.units);
}

void TakeGround(Reading& reading, const KnownOption& option, const std::string& text) {
    reading.options.terrain.ground = NumberOf(option, text) * MetresPerHeight(reading.units);
}

void TakeAzimuths(Reading& reading, const KnownOption& option, const std::string& text) {
    reading.options.terrain.azimuths = ValueOf(option, text, AzimuthsOf);
}

void TakeDefinition(Reading& reading, const KnownOption& option, const std::string& text) {
    reading.options.terrain.definition = ValueOf(option, text, DefinitionOf);
}

void TakeFormat(Reading& reading, const KnownOption& option, const std::string& text) {
    reading.options.terrain.format = OneOf<ContourFormat>(option, text,
                                                          {{"csv", ContourFormat::Csv},
                                                           {"geojson", ContourFormat::GeoJson},
                                                           {"kml", ContourFormat::Kml}});
}

void TakeRadius(Reading& reading, const KnownOption& option, const std::string& text) {
    double& radius = reading.options.coverage.extent.radiusKm;
    radius = PositiveOf(option, text) * KmPerDistance(reading.units);
    if (radius > FarthestReach) Fail(option, "at most 300 km are calculated");
}

void TakeBounds(Reading& reading, const KnownOption& option, const std::string& text) {
    reading.options.coverage.extent.bounds = ValueOf(option, text, BoundsOf);
}

void TakeResolution(Reading& reading, const KnownOption& option, const std::string& text) {
    reading.options.coverage.resolution = PositiveOf(option, text) * MetresPerHeight(reading.units);
}

void TakeGrid(Reading& reading, const KnownOption& option, const std::string& text) {
    reading.options.coverage.grid =
        OneOf<CoverageSystem>(option, text,
                              {{"site", CoverageSystem::Site},
                               {"utm", CoverageSystem::Utm},
                               {"elevation", CoverageSystem::Elevation}});
}

void TakeModel(Reading& reading, const KnownOption& option, const std::string& text) {
    const auto named = [](ModelNumber number) {
        return std::pair{ColumnName(ModelOf(number)), number};
    };
    static_assert(ComparedModels.size() == 3);
    reading.options.coverage.model = OneOf<ModelNumber>(
        option, text,
        {named(ComparedModels[0]), named(ComparedModels[1]), named(ComparedModels[2])});
}

void TakeQuantity(Reading& reading, const KnownOption& option, const std::string& text) {
    reading.options.wanted.quantity =
        OneOf<ServiceQuantity>(option, text,
                               {{"field-strength", ServiceQuantity::FieldStrength},
                                {"received-power", ServiceQuantity::ReceivedPower},
                                {"path-loss", ServiceQuantity::PathLoss}});
}

void TakeInterval(Reading& reading, const KnownOption& option, const std::string& text) {
    reading.options.coverage.interval = PositiveOf(option, text);
}

void TakeType(Reading& reading, const KnownOption& option, const std::string& text) {
    reading.options.coverage.type =
        OneOf<CellType>(option, text, {{"float", CellType::Float}, {"double", CellType::Double}});
}

// The first is that of -h.
constexpr std::array<KnownOption, 44> Table = {{
    {"help", OfAll, TakeFlag<&Options::help>, false, true},
    {"version", OfAll, TakeFlag<&Options::version>, false, true},
    {"units", OfAll, TakeUnits, true, true},
    {"power-unit", OfModels, TakePowerUnit, true, true},
    {"frequency", OfModels, TakeField<PathField::Frequency>},
    {"distance", OfPaths & ~OfCurve, TakeField<PathField::Distance>},
    {"base-height", OfPaths | OfCoverage, TakeField<PathField::BaseHeight>},
    {"mobile-height", OfModels, TakeField<PathField::MobileHeight>},
    {"area", OfModels, TakeField<PathField::Area>},
    {"city", OfModels, TakeField<PathField::City>},
    {"percent-time", OfModels, TakeField<PathField::PercentTime>},
    {"percent-locations", OfModels, TakeField<PathField::PercentLocations>},
    {"time", OfModels, TakeField<PathField::PercentTime>},  // short for the two before
    {"locations", OfModels, TakeField<PathField::PercentLocations>},
    {"power", OfModels, TakeField<PathField::Power>},
    {"json", OfAll & ~Bit(Command::Log), TakeFlag<&Options::json>, false},
    {"header", Bit(Command::Log), TakeFlag<&Options::header>, false},
    {"threads", OfFiles | OfCoverage, TakeThreads},
    {"start", OfCurve, TakeNumber<&Options::start>},
    {"end", OfCurve, TakeNumber<&Options::end>},
    {"step", OfCurve, TakeNumber<&Options::step>},
    {"field-strength", OfGoals, TakeGoal<ServiceQuantity::FieldStrength>},
    {"received-power", OfGoals, TakeGoal<ServiceQuantity::ReceivedPower>},
    {"path-loss", OfGoals, TakeGoal<ServiceQuantity::PathLoss>},
    {"antenna-gain", OfGoals, TakeReceiver<&Wanted::antennaGainDbi>},
    {"cable-loss", OfGoals, TakeReceiver<&Wanted::cableLossDb>},
    {"elevation", OfSites | OfFiles, TakeElevation},
    {"site", OfSites, TakeSite},
    {"antenna", OfSites | OfFiles, TakeAntenna},
    {"ground", OfSites, TakeGround},
    {"azimuths", OfSites, TakeAzimuths},
    {"definition", OfSites | OfFiles, TakeDefinition},
    {"format", Bit(Command::Contour), TakeFormat},
    {"radius", OfCoverage, TakeRadius},
    {"bounds", OfCoverage, TakeBounds},
    {"resolution", OfCoverage, TakeResolution},
    {"grid", OfCoverage, TakeGrid},
    {"model", OfCoverage, TakeModel},
    {"quantity", OfCoverage, TakeQuantity},
    {"interval", OfCoverage, TakeInterval},
    {"type", OfCoverage, TakeType},
    {"output", OfCoverage, TakeFile<&CoverageOptions::output>},
    {"picture", OfCoverage, TakeFile<&CoverageOptions::picture>},
    {"lines", OfCoverage, TakeFile<&CoverageOptions::lines>},
}};

}  // namespace

std::span<const KnownOption> KnownOptions() { return Table; }
const KnownOption& HelpOption() { return Table.front(); }

std::string Dashed(const KnownOption& option) { return std::string("--") + option.text; }

}  // namespace vardel::cli
