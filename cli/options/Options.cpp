#include "cli/options/Options.h"

#include <getopt.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <string_view>
#include <thread>
#include <utility>
#include <vector>

#include "cli/options/PathFields.h"
#include "engine/Calculation.h"
#include "text/NumberText.h"

namespace vardel::cli {

namespace {

constexpr std::array<std::pair<const char*, Command>, 7> Commands = {{
    {"batch", Command::Batch},
    {"curve", Command::Curve},
    {"reach", Command::Reach},
    {"log", Command::Log},
    {"heights", Command::Heights},
    {"contour", Command::Contour},
    {"coverage", Command::Coverage},
}};

constexpr unsigned Bit(Command command) { return 1U << static_cast<unsigned>(command); }
constexpr unsigned Files = Bit(Command::Batch) | Bit(Command::Log);
constexpr unsigned Coverages = Bit(Command::Coverage);
constexpr unsigned Sites = Bit(Command::Heights) | Bit(Command::Contour) | Coverages;
constexpr unsigned Reaches = Bit(Command::Reach) | Bit(Command::Contour) | Coverages;
// Those that have a distance and a base height of their own, and all that have a path.
constexpr unsigned Paths = Files | Bit(Command::Path) | Bit(Command::Curve) | Bit(Command::Reach);
constexpr unsigned All = Paths | Bit(Command::Contour) | Coverages;

enum class Name {
    Units,
    PowerUnit,
    Json,
    Header,
    Threads,
    Start,
    End,
    Step,
    FieldStrength,
    ReceivedPower,
    PathLoss,
    AntennaGain,
    CableLoss,
    Elevation,
    Site,
    Antenna,
    Ground,
    Azimuths,
    Definition,
    Format,
    Radius,
    Bounds,
    Resolution,
    Grid,
    OneModel,
    CoverageOf,
    Interval,
    Type,
    Output,
    Picture,
    Lines,
    Help,
    Version,
    Field
};

struct KnownOption {
    const char* text;
    Name name;
    unsigned commands;
    bool value = true;
    PathField field = PathField::Frequency;  // of Name::Field
};

constexpr std::array<KnownOption, 44> Known = {{
    {"frequency", Name::Field, All, true, PathField::Frequency},
    {"distance", Name::Field, Paths & ~Bit(Command::Curve), true, PathField::Distance},
    {"base-height", Name::Field, Paths | Coverages, true, PathField::BaseHeight},
    {"mobile-height", Name::Field, All, true, PathField::MobileHeight},
    {"area", Name::Field, All, true, PathField::Area},
    {"city", Name::Field, All, true, PathField::City},
    {"percent-time", Name::Field, All, true, PathField::PercentTime},
    {"percent-locations", Name::Field, All, true, PathField::PercentLocations},
    {"time", Name::Field, All, true, PathField::PercentTime},  // short for the two before
    {"locations", Name::Field, All, true, PathField::PercentLocations},
    {"power", Name::Field, All, true, PathField::Power},
    {"power-unit", Name::PowerUnit, All},
    {"units", Name::Units, All | Sites},
    {"json", Name::Json, (All | Sites) & ~Bit(Command::Log), false},
    {"header", Name::Header, Bit(Command::Log), false},
    {"threads", Name::Threads, Files | Coverages},
    {"start", Name::Start, Bit(Command::Curve)},
    {"end", Name::End, Bit(Command::Curve)},
    {"step", Name::Step, Bit(Command::Curve)},
    {"field-strength", Name::FieldStrength, Reaches},
    {"received-power", Name::ReceivedPower, Reaches},
    {"path-loss", Name::PathLoss, Reaches},
    {"antenna-gain", Name::AntennaGain, Reaches},
    {"cable-loss", Name::CableLoss, Reaches},
    {"elevation", Name::Elevation, Sites | Files},
    {"site", Name::Site, Sites},
    {"antenna", Name::Antenna, Sites | Files},
    {"ground", Name::Ground, Sites},
    {"azimuths", Name::Azimuths, Sites},
    {"definition", Name::Definition, Sites | Files},
    {"format", Name::Format, Bit(Command::Contour)},
    {"radius", Name::Radius, Coverages},
    {"bounds", Name::Bounds, Coverages},
    {"resolution", Name::Resolution, Coverages},
    {"grid", Name::Grid, Coverages},
    {"model", Name::OneModel, Coverages},
    {"quantity", Name::CoverageOf, Coverages},
    {"interval", Name::Interval, Coverages},
    {"type", Name::Type, Coverages},
    {"output", Name::Output, Coverages},
    {"picture", Name::Picture, Coverages},
    {"lines", Name::Lines, Coverages},
    {"help", Name::Help, All | Sites, false},
    {"version", Name::Version, All | Sites, false},
}};

struct Given {
    const KnownOption* option;
    std::string value;
};

struct CommandLine {
    std::vector<Given> options;
    std::vector<std::string> operands;
};

std::string Dashed(const KnownOption& option) { return std::string("--") + option.text; }

// The ids of the options begin beyond the characters, which are those of short options.
constexpr int FirstId = 256;

CommandLine Split(int argc, char* const* argv) {
    std::vector<option> longOptions;
    for (std::size_t i = 0; i < Known.size(); ++i)
        longOptions.push_back({Known.at(i).text,
                               Known.at(i).value ? required_argument : no_argument, nullptr,
                               FirstId + static_cast<int>(i)});
    longOptions.push_back({});
    const auto optionOf = [](int id) { return &Known.at(static_cast<std::size_t>(id - FirstId)); };

    CommandLine line;
    optind = 0;
    opterr = 0;
    for (;;) {
        const int id = getopt_long(argc, argv, ":h", longOptions.data(), nullptr);
        if (id == -1) break;
        if (id == 'h') {
            line.options.push_back({&Known.at(Known.size() - 2), {}});
        } else if (id == ':') {
            throw UsageError(Dashed(*optionOf(optopt)) + " needs a value");
        } else if (id == '?') {
            if (optopt >= FirstId) throw UsageError(Dashed(*optionOf(optopt)) + " takes no value");
            throw UsageError("unknown option " +
                             (optopt == 0 ? std::string(argv[optind - 1])
                                          : std::string("-") + static_cast<char>(optopt)));
        } else {
            line.options.push_back({optionOf(id), optarg == nullptr ? "" : optarg});
        }
    }
    line.operands.assign(argv + optind, argv + argc);
    return line;
}

double NumberOf(const Given& given) {
    std::optional<std::string> wrong;
    const auto number = NumberOrFault(given.value, wrong);
    if (!number) throw UsageError(Dashed(*given.option) + ": " + *wrong);
    return *number;
}

template <class Value, std::size_t Count>
Value OneOf(const Given& given, const std::array<std::pair<const char*, Value>, Count>& values) {
    std::string names;
    for (const auto& [name, value] : values) {
        if (given.value == name) return value;
        names += (names.empty() ? "" : ", ") + std::string(name);
    }
    throw UsageError(Dashed(*given.option) + ": " + Shown(given.value) + " is not one of " + names);
}

// What a text means by a function that tells what is wrong with it.
template <class Function>
auto ValueOf(const Given& given, Function function) {
    std::optional<std::string> wrong;
    const auto value = function(given.value, wrong);
    if (!value) throw UsageError(Dashed(*given.option) + ": " + *wrong);
    return *value;
}

class Reader {
public:
    explicit Reader(CommandLine line) : line_(std::move(line)) {}

    Options Read() {
        TakeCommand();
        for (const Given& given : line_.options) TakeEarly(given);
        if (options_.help || options_.version) return options_;
        options_.path = DefaultPath(units_);
        for (const Given& given : line_.options) Take(given);
        TakeFile();
        options_.wantedGiven = wantedGiven_;
        Check();
        return options_;
    }

private:
    void TakeCommand() {
        if (line_.operands.empty()) return;
        for (const auto& [name, command] : Commands) {
            if (line_.operands.front() != name) continue;
            options_.command = command;
            command_ = name;
            line_.operands.erase(line_.operands.begin());
            return;
        }
        throw UsageError("unknown command " + Shown(line_.operands.front()));
    }

    // What the meaning of others depends on.
    void TakeEarly(const Given& given) {
        using Unit = std::pair<const char*, Units>;
        using Power = std::pair<const char*, PowerUnit>;
        switch (given.option->name) {
            case Name::Help:
                options_.help = true;
                break;
            case Name::Version:
                options_.version = true;
                break;
            case Name::Units:
                units_ = OneOf(given, std::array{Unit{"metric", Units::Metric},
                                                 Unit{"english", Units::English}});
                break;
            case Name::PowerUnit:
                powerUnit_ = OneOf(
                    given,
                    std::array{Power{"w", PowerUnit::Watts}, Power{"kw", PowerUnit::Kilowatts},
                               Power{"dbm", PowerUnit::Dbm}, Power{"dbw", PowerUnit::Dbw}});
                powerUnitGiven_ = true;
                break;
            default:
                break;
        }
    }

    void Take(const Given& given) {
        const KnownOption& option = *given.option;
        if ((option.commands & Bit(options_.command)) == 0)
            throw UsageError(Dashed(option) + " does not go with " +
                             (command_.empty() ? "a single path" : command_));
        switch (option.name) {
            case Name::Field:
                if (const auto wrong =
                        SetPathField(options_.path, option.field, given.value, 1.0, powerUnit_))
                    throw UsageError(Dashed(option) + ": " + *wrong);
                heightGiven_ = heightGiven_ || option.field == PathField::BaseHeight;
                powerGiven_ = powerGiven_ || option.field == PathField::Power;
                options_.distanceGiven |= option.field == PathField::Distance;
                break;
            case Name::Json:
                options_.json = true;
                break;
            case Name::Header:
                options_.header = true;
                break;
            case Name::Threads:
                TakeThreads(given);
                break;
            case Name::Start:
                options_.start = NumberOf(given);
                break;
            case Name::End:
                options_.end = NumberOf(given);
                break;
            case Name::Step:
                options_.step = NumberOf(given);
                break;
            default:
                TakeWanted(given);
                TakeTerrain(given);
                TakeCoverage(given);
                TakeCoverageFile(given);
                break;
        }
    }

    double PositiveOf(const Given& given) const {
        const double number = NumberOf(given);
        if (!(number > 0.0))
            throw UsageError(Dashed(*given.option) + ": " + Shown(given.value) +
                             " is not above zero");
        return number;
    }

    void TakeCoverage(const Given& given) {
        using System = std::pair<const char*, CoverageSystem>;
        using Model = std::pair<const char*, ModelNumber>;
        using Kind = std::pair<const char*, CoverageQuantity>;
        CoverageOptions& coverage = options_.coverage;
        switch (given.option->name) {
            case Name::Radius:
                coverage.extent.radiusKm = PositiveOf(given) * KmPerDistance(units_);
                if (coverage.extent.radiusKm > FarthestReach)
                    throw UsageError("--radius: at most 300 km are calculated");
                break;
            case Name::Bounds:
                coverage.extent.bounds = ValueOf(given, BoundsOf);
                break;
            case Name::Resolution:
                coverage.resolution = PositiveOf(given) * MetresPerHeight(units_);
                break;
            case Name::Interval:
                coverage.interval = PositiveOf(given);
                break;
            case Name::Grid:
                coverage.grid =
                    OneOf(given, std::array{System{"site", CoverageSystem::Site},
                                            System{"utm", CoverageSystem::Utm},
                                            System{"elevation", CoverageSystem::Elevation}});
                break;
            case Name::OneModel:
                coverage.model = OneOf(given, std::array{Model{"itu529", ModelNumber::Itu529},
                                                         Model{"davidson", ModelNumber::Davidson},
                                                         Model{"cost231", ModelNumber::Cost231}});
                break;
            case Name::CoverageOf:
                coverage.quantity =
                    OneOf(given, std::array{Kind{"field-strength", CoverageQuantity::FieldStrength},
                                            Kind{"received-power", CoverageQuantity::ReceivedPower},
                                            Kind{"path-loss", CoverageQuantity::PathLoss}});
                break;
            default:
                break;
        }
    }

    void TakeCoverageFile(const Given& given) {
        CoverageOptions& coverage = options_.coverage;
        const auto takeFile = [&](std::string& file) {
            if (given.value.empty())
                throw UsageError(Dashed(*given.option) + ": the file's name is empty");
            file = given.value;
        };
        switch (given.option->name) {
            case Name::Type:
                coverage.type = OneOf(given, std::array{std::pair{"float", CellType::Float},
                                                        std::pair{"double", CellType::Double}});
                break;
            case Name::Output:
                return takeFile(coverage.output);
            case Name::Picture:
                return takeFile(coverage.picture);
            case Name::Lines:
                return takeFile(coverage.lines);
            default:
                break;
        }
    }

    void TakeTerrain(const Given& given) {
        using Format = std::pair<const char*, ContourFormat>;
        TerrainOptions& terrain = options_.terrain;
        switch (given.option->name) {
            case Name::Elevation:
                if (given.value.empty()) throw UsageError("--elevation: the file's name is empty");
                terrain.files.push_back(given.value);
                break;
            case Name::Site:
                terrain.site = ValueOf(given, SiteOf);
                break;
            case Name::Antenna:
                terrain.antenna = NumberOf(given) * MetresPerHeight(units_);
                if (!(*terrain.antenna > 0.0))
                    throw UsageError("--antenna: " + Shown(given.value) + " is not above zero");
                break;
            case Name::Ground:
                terrain.ground = NumberOf(given) * MetresPerHeight(units_);
                break;
            case Name::Azimuths:
                terrain.azimuths = ValueOf(given, AzimuthsOf);
                break;
            case Name::Definition:
                terrain.definition = ValueOf(given, DefinitionOf);
                break;
            case Name::Format:
                terrain.format = OneOf(given, std::array{Format{"csv", ContourFormat::Csv},
                                                         Format{"geojson", ContourFormat::GeoJson},
                                                         Format{"kml", ContourFormat::Kml}});
                break;
            default:
                break;
        }
    }

    void TakeThreads(const Given& given) {
        const double threads = NumberOf(given);
        if (!(1.0 <= threads && threads <= 256.0) || threads != std::floor(threads))
            throw UsageError(Dashed(*given.option) + ": a whole number from 1 to 256 is wanted");
        threads_ = static_cast<unsigned>(threads);
    }

    void TakeWanted(const Given& given) {
        using Kind = Wanted::Kind;
        switch (given.option->name) {
            case Name::FieldStrength:
                return TakeKind(given, Kind::FieldStrength);
            case Name::ReceivedPower:
                return TakeKind(given, Kind::ReceivedPower);
            case Name::PathLoss:
                return TakeKind(given, Kind::PathLoss);
            case Name::AntennaGain:
                options_.wanted.antennaGainDbi = NumberOf(given);
                receiverGiven_ = true;
                break;
            case Name::CableLoss:
                options_.wanted.cableLossDb = NumberOf(given);
                receiverGiven_ = true;
                break;
            default:
                break;
        }
    }

    void TakeKind(const Given& given, Wanted::Kind kind) {
        if (wantedGiven_ && options_.wanted.kind != kind) throw UsageError(command_ + OneWanted);
        wantedGiven_ = true;
        options_.wanted.kind = kind;
        options_.wanted.value = NumberOf(given);
    }

    void TakeFile() {
        options_.threads = threads_.value_or(std::max(1U, std::thread::hardware_concurrency()));
        if ((Sites & Bit(options_.command)) != 0) {
            // A pattern of the shell behind --elevation becomes several.
            if (!options_.terrain.files.empty())
                for (std::string& file : line_.operands)
                    options_.terrain.files.push_back(std::move(file));
            else if (!line_.operands.empty())
                throw UsageError("too much: " + Shown(line_.operands.back()));
            return;
        }
        const bool takesFile = (Files & Bit(options_.command)) != 0;
        if (line_.operands.size() > (takesFile ? 1U : 0U))
            throw UsageError("too much: " + Shown(line_.operands.back()));
        if (!line_.operands.empty()) {
            options_.file = line_.operands.front();
            if (options_.file.empty()) throw UsageError("the file's name is empty");
        }
        if (options_.command == Command::Batch && options_.file.empty())
            throw UsageError("batch needs a file, or - for standard input");
    }

    void Check() const {
        if (powerUnitGiven_ && !powerGiven_) throw UsageError("--power-unit needs --power");
        CheckTerrain();
        if (!options_.file.empty()) return;  // each row is looked at by itself
        if ((Reaches & Bit(options_.command)) != 0) {
            if (options_.command == Command::Coverage)
                CheckCoverage();
            else if (!wantedGiven_)
                throw UsageError(command_ + OneWanted);
            if (receiverGiven_ && !IsReceivedPower() &&
                options_.wanted.kind != Wanted::Kind::ReceivedPower)
                throw UsageError("--antenna-gain and --cable-loss go with --received-power");
        }
        if (options_.command == Command::Curve) return CheckCurve();
        if (const auto refusal = RefusalOf(MetricInputs(options_.path))) throw UsageError(*refusal);
    }

    bool IsReceivedPower() const {
        return !wantedGiven_ && options_.coverage.quantity == CoverageQuantity::ReceivedPower;
    }

    void CheckCoverage() const {
        const CoverageOptions& coverage = options_.coverage;
        if ((coverage.extent.radiusKm > 0.0) == coverage.extent.bounds.has_value())
            throw UsageError("coverage needs one of --radius and --bounds");
        if (wantedGiven_ && coverage.quantity)
            throw UsageError("--quantity goes without a wanted value, which says it");
        if (!wantedGiven_ && (!coverage.picture.empty() || !coverage.lines.empty()))
            throw UsageError(std::string("--picture and --lines: coverage") + OneWanted);
        if (!coverage.picture.empty() && !coverage.model)
            throw UsageError("--picture needs --model");
    }

    // Its height is that of the antenna over the ground, or one for all directions.
    void CheckCoverageGround() const {
        const TerrainOptions& terrain = options_.terrain;
        if (!terrain.files.empty()) {
            if (heightGiven_) throw UsageError("--base-height does not go with --elevation");
            if (!terrain.antenna) throw UsageError("coverage needs --antenna with --elevation");
            return;
        }
        if (terrain.antenna || terrain.ground || terrain.azimuths || terrain.definition ||
            options_.coverage.grid == CoverageSystem::Elevation)
            throw UsageError(
                "--antenna, --ground, --azimuths, --definition and --grid elevation want "
                "--elevation, too");
    }

    void CheckTerrain() const {
        const TerrainOptions& terrain = options_.terrain;
        if ((Sites & Bit(options_.command)) != 0) {
            if (!terrain.site) throw UsageError(command_ + " needs --site");
            if (options_.command == Command::Coverage) return CheckCoverageGround();
            if (!terrain.antenna) throw UsageError(command_ + " needs --antenna");
            if (terrain.files.empty()) throw UsageError(command_ + " needs --elevation");
            if (options_.json && terrain.format.value_or(ContourFormat::Csv) != ContourFormat::Csv)
                throw UsageError("--json goes with --format csv only");
            return;
        }
        if (terrain.files.empty() && (terrain.antenna || terrain.definition))
            throw UsageError("--antenna and --definition want --elevation, too");
        if (!terrain.files.empty() && options_.file.empty())
            throw UsageError("--elevation needs a file of paths");
    }

    void CheckCurve() const {
        constexpr double MostPoints = 1e9;
        for (const double distance : {options_.start, options_.end}) {
            PathInputs path = options_.path;
            path.distance = distance;
            if (const auto refusal = RefusalOf(MetricInputs(path))) throw UsageError(*refusal);
        }
        if (options_.end < options_.start) throw UsageError("--end is before --start");
        if (!(options_.step > 0.0)) throw UsageError("--step is not above zero");
        if ((options_.end - options_.start) / options_.step > MostPoints)
            throw UsageError("--step is too small: a curve has at most 1000000000 points");
    }

    static constexpr const char* OneWanted =
        " needs one of --field-strength, --received-power and --path-loss";

    CommandLine line_;
    Options options_;
    std::string command_;
    Units units_ = Units::Metric;
    PowerUnit powerUnit_ = PowerUnit::Watts;
    std::optional<unsigned> threads_;
    bool powerUnitGiven_ = false;
    bool powerGiven_ = false;
    bool heightGiven_ = false;
    bool receiverGiven_ = false;
    bool wantedGiven_ = false;
};

}  // namespace

Options ParseOptions(int argc, char* const* argv) { return Reader(Split(argc, argv)).Read(); }

}  // namespace vardel::cli
