#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "cli/options/KnownOptions.h"

namespace vardel::cli {

// An option as it was given. Nothing but a value that it takes stands behind it.
struct GivenOption {
    const KnownOption* option;
    std::string value;
};

// A command line in its parts, each in the order in which it came.
struct CommandLine {
    std::vector<GivenOption> options;
    std::vector<std::string> operands;

    bool Has(std::string_view option) const;
};

// Options stand anywhere, and may be shortened as far as they are clear. Throws UsageError. Uses
// the one state of getopt_long, so one call at a time.
CommandLine SplitCommandLine(int argc, char* const* argv);

}  // namespace vardel::cli
