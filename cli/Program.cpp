#include "cli/Program.h"

#include <chrono>
#include <new>
#include <optional>
#include <system_error>

#include "cli/Commands.h"
#include "cli/Coverage.h"
#include "cli/Help.h"
#include "cli/Terrain.h"
#include "cli/batch/RowFormats.h"
#include "cli/options/Options.h"

namespace vardel::cli {

namespace {

// A line on the terminal that is written over by the next, from the second second on.
class Progress {
public:
    explicit Progress(const World& world) : world_(world) {}

    void Tell(const BatchCount& count) {
        using namespace std::chrono_literals;
        const auto now = Clock::now();
        if (!world_.progress || now - told_ < 500ms || now - start_ < 1s) return;
        told_ = now;
        shown_ = true;
        world_.errors("\r" + std::to_string(count.rows) + " rows");
    }

    void Clear() {
        if (shown_) world_.errors("\r\x1B[K");
        shown_ = false;
    }

private:
    using Clock = std::chrono::steady_clock;
    const World& world_;
    Clock::time_point start_ = Clock::now();
    Clock::time_point told_{};
    bool shown_ = false;
};

std::unique_ptr<RowFormat> FormatOf(const Options& options, const World& world) {
    if (options.command == Command::Log)
        return std::make_unique<LogRows>(world.now, options.header);
    if (options.json) return std::make_unique<JsonRows>();
    return std::make_unique<CsvRows>();
}

void Tell(const World& world, const std::string& text) {
    world.errors("vardel-calc: " + text + '\n');
}

std::unique_ptr<Elevations> OpenGround(const Options& options, const World& world) {
    auto elevations = world.ground(options.terrain.files);
    for (const std::string& note : elevations->Notes()) Tell(world, note);
    return elevations;
}

std::optional<PathGround> GroundOfPaths(const Options& options, const World& world) {
    const TerrainOptions& terrain = options.terrain;
    if (terrain.files.empty()) return std::nullopt;
    return std::optional<PathGround>(
        std::in_place, OpenGround(options, world),
        terrain.definition.value_or(*FindHeightDefinition(UsualPathDefinition)), terrain.antenna);
}

ExitStatus RunFile(const Options& options, const World& world) {
    const auto format = FormatOf(options, world);
    const std::string name = options.file == "-" ? "standard input" : options.file;
    const auto ground = GroundOfPaths(options, world);
    Progress progress(world);
    try {
        const BatchCount count =
            RunBatch({.source = world.open(options.file),
                      .output = world.output,
                      .messages = world.errors,
                      .notes = [&](const std::string& note) { Tell(world, name + ": " + note); },
                      .defaults = options.path,
                      .ground = ground ? &*ground : nullptr,
                      .threads = options.threads,
                      .progress = [&](const BatchCount& sofar) { progress.Tell(sofar); }},
                     *format);
        progress.Clear();
        if (count.errors == 0) return ExitStatus::Done;
        Tell(world, name + ": " + std::to_string(count.errors) + " of " +
                        std::to_string(count.rows) + " rows could not be calculated");
        return ExitStatus::RowsWithErrors;
    } catch (const InputError& error) {
        progress.Clear();
        Tell(world, name + ": " + error.what());
        return ExitStatus::Failed;
    } catch (const std::system_error&) {
        progress.Clear();
        throw;
    }
}

ExitStatus RunCommand(const Options& options, const World& world) {
    if (options.help) return world.output(HelpText()), ExitStatus::Done;
    if (options.version) return world.output(VersionText()), ExitStatus::Done;
    if (!options.file.empty()) return RunFile(options, world);
    const auto note = [&](const std::string& text) { Tell(world, text); };
    switch (options.command) {
        case Command::Heights:
            WriteHeights(options, *OpenGround(options, world), world.output, note);
            break;
        case Command::Contour:
            WriteContour(options, *OpenGround(options, world), world.output, note);
            break;
        case Command::Coverage: {
            const auto ground =
                options.terrain.files.empty() ? nullptr : OpenGround(options, world);
            WriteCoverage(options, {ground.get(), world.module}, world.output, note);
            break;
        }
        case Command::Curve:
            WriteCurve(options, world.output);
            break;
        case Command::Reach:
            WriteReach(options, world.output);
            break;
        case Command::Log:
            WriteLogLine(options, world.now, world.output);
            break;
        case Command::Path:
        case Command::Batch:
            WritePath(options, world.output);
            break;
    }
    return ExitStatus::Done;
}

}  // namespace

ExitStatus RunProgram(int argc, char* const* argv, const World& world) {
    try {
        return RunCommand(ParseOptions(argc, argv), world);
    } catch (const UsageError& error) {
        Tell(world, std::string(error.what()) + "\nTry 'vardel-calc --help'.");
        return ExitStatus::WrongUsage;
    } catch (const std::system_error& error) {
        // Who reads the output has enough of it.
        if (error.code() != std::errc::broken_pipe) Tell(world, error.what());
        return ExitStatus::Failed;
    } catch (const std::bad_alloc&) {
        Tell(world, "not enough memory");
        return ExitStatus::Failed;
    } catch (const std::exception& error) {
        Tell(world, error.what());
        return ExitStatus::Failed;
    }
}

}  // namespace vardel::cli
