#pragma once

#include <span>
#include <string>

#include "cli/options/Options.h"
#include "engine/PowerUnits.h"

// The table of all options: which commands take each, and what it does.

namespace vardel::cli {

using Commands = unsigned;
constexpr Commands Bit(Command command) { return 1U << static_cast<unsigned>(command); }
constexpr Commands OfFiles = Bit(Command::Batch) | Bit(Command::Log);
constexpr Commands OfSites = Bit(Command::Heights) | Bit(Command::Contour) | Bit(Command::Coverage);
constexpr Commands OfGoals = Bit(Command::Reach) | Bit(Command::Contour) | Bit(Command::Coverage);

constexpr const char* OneGoal = " needs one of --field-strength, --received-power and --path-loss";

// What the options before have said.
struct OptionReading {
    Options options = {};
    std::string command = {};  // its name; empty: a single path
    Units units = Units::Metric;
    PowerUnit powerUnit = PowerUnit::Watts;
};

struct KnownOption {
    // Fills in what a text means. Throws UsageError.
    using Take = void(OptionReading& reading, const KnownOption& option, const std::string& text);

    const char* text;
    Commands commands;
    Take* take;
    bool value = true;
    bool early = false;  // what others mean depends on it
};

std::span<const KnownOption> KnownOptions();
const KnownOption& HelpOption();

std::string Dashed(const KnownOption& option);

}  // namespace vardel::cli
