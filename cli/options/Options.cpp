#include "cli/options/Options.h"

#include <algorithm>
#include <array>
#include <thread>
#include <utility>

#include "cli/options/CommandLine.h"
#include "cli/options/PathFields.h"
#include "engine/Calculation.h"

namespace vardel::cli {

namespace {

constexpr std::array<std::pair<const char*, Command>, 7> CommandNames = {{
    {"batch", Command::Batch},
    {"curve", Command::Curve},
    {"reach", Command::Reach},
    {"log", Command::Log},
    {"heights", Command::Heights},
    {"contour", Command::Contour},
    {"coverage", Command::Coverage},
}};

class Reader {
public:
    explicit Reader(CommandLine line) : line_(std::move(line)) {}

    Options Read() {
        TakeCommand();
        TakeOptions(true);
        if (options_.help || options_.version) return options_;
        options_.path = DefaultPath(reading_.units);
        options_.threads = std::max(1U, std::thread::hardware_concurrency());
        options_.distanceGiven = line_.Has("distance");
        TakeOptions(false);
        TakeOperands();
        if (line_.Has("power-unit") && !line_.Has("power"))
            throw UsageError("--power-unit needs --power");
        CheckTerrain();
        if (options_.file.empty()) CheckPath();  // each row of a file is looked at by itself
        return options_;
    }

private:
    bool IsOf(Commands commands) const { return (commands & Bit(options_.command)) != 0; }

    void TakeCommand() {
        if (line_.operands.empty()) return;
        for (const auto& [name, command] : CommandNames) {
            if (line_.operands.front() != name) continue;
            options_.command = command;
            reading_.command = name;
            line_.operands.erase(line_.operands.begin());
            return;
        }
        throw UsageError("unknown command " + Shown(line_.operands.front()));
    }

    void TakeOptions(bool early) {
        for (const auto& [option, value] : line_.options) {
            if (!early && !IsOf(option->commands))
                throw UsageError(Dashed(*option) + " does not go with " +
                                 (command_.empty() ? "a single path" : command_));
            if (option->early == early) option->take(reading_, *option, value);
        }
    }

    void TakeOperands() {
        auto& operands = line_.operands;
        // A pattern of the shell behind --elevation becomes several.
        if (IsOf(OfSites) && !options_.terrain.files.empty()) {
            for (std::string& file : operands) options_.terrain.files.push_back(std::move(file));
            return;
        }
        if (operands.size() > (IsOf(OfFiles) ? 1U : 0U))
            throw UsageError("too much: " + Shown(operands.back()));
        if (!operands.empty()) {
            options_.file = operands.front();
            if (options_.file.empty()) throw UsageError("the file's name is empty");
        }
        if (options_.command == Command::Batch && options_.file.empty())
            throw UsageError("batch needs a file, or - for standard input");
    }

    void CheckPath() const {
        if (IsOf(OfGoals)) CheckGoal();
        if (options_.command == Command::Curve) return CheckCurve();
        if (const auto refusal = RefusalOf(MetricInputs(options_.path))) throw UsageError(*refusal);
    }

    void CheckGoal() const {
        if (options_.command == Command::Coverage)
            CheckCoverage();
        else if (!options_.wantedGiven)
            throw UsageError(command_ + OneGoal);
        if (options_.wanted.quantity != ServiceQuantity::ReceivedPower &&
            (line_.Has("antenna-gain") || line_.Has("cable-loss")))
            throw UsageError("--antenna-gain and --cable-loss go with --received-power");
    }

    void CheckCoverage() const {
        const CoverageOptions& coverage = options_.coverage;
        if ((coverage.extent.radiusKm > 0.0) == coverage.extent.bounds.has_value())
            throw UsageError("coverage needs one of --radius and --bounds");
        if (options_.wantedGiven && line_.Has("quantity"))
            throw UsageError("--quantity goes without a wanted value, which says it");
        if (!options_.wantedGiven && (!coverage.picture.empty() || !coverage.lines.empty()))
            throw UsageError(std::string("--picture and --lines: coverage") + OneGoal);
        if (!coverage.picture.empty() && !coverage.model)
            throw UsageError("--picture needs --model");
    }

    // Its height is that of the antenna over the ground, or one for all directions.
    void CheckCoverageGround() const {
        const TerrainOptions& terrain = options_.terrain;
        if (!terrain.files.empty()) {
            if (line_.Has("base-height"))
                throw UsageError("--base-height does not go with --elevation");
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
        if (IsOf(OfSites)) {
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

    CommandLine line_;
    OptionReading reading_;
    Options& options_ = reading_.options;
    std::string& command_ = reading_.command;
};

}  // namespace

Options ParseOptions(int argc, char* const* argv) {
    return Reader(SplitCommandLine(argc, argv)).Read();
}

}  // namespace vardel::cli
