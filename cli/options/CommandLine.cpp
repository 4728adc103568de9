#include "cli/options/CommandLine.h"

#include <getopt.h>

#include <algorithm>

namespace vardel::cli {

namespace {

// The ids of the options begin beyond the characters, which are those of short options.
constexpr int FirstId = 256;

const KnownOption& OptionOf(int id) {
    return KnownOptions()[static_cast<std::size_t>(id - FirstId)];
}

std::vector<option> LongOptions() {
    std::vector<option> options;
    for (const KnownOption& known : KnownOptions())
        options.push_back({known.text, known.value ? required_argument : no_argument, nullptr,
                           FirstId + static_cast<int>(options.size())});
    options.push_back({});
    return options;
}

}  // namespace

bool CommandLine::Has(std::string_view option) const {
    return std::any_of(options.begin(), options.end(),
                       [&](const GivenOption& given) { return given.option->text == option; });
}

CommandLine SplitCommandLine(int argc, char* const* argv) {
    const std::vector<option> longOptions = LongOptions();
    CommandLine line;
    optind = 0;
    opterr = 0;
    for (;;) {
        const int id = getopt_long(argc, argv, ":h", longOptions.data(), nullptr);
        if (id == -1) break;
        if (id == ':') throw UsageError(Dashed(OptionOf(optopt)) + " needs a value");
        if (id == '?' && optopt >= FirstId)
            throw UsageError(Dashed(OptionOf(optopt)) + " takes no value");
        if (id == '?')
            throw UsageError("unknown option " +
                             (optopt == 0 ? std::string(argv[optind - 1])
                                          : std::string("-") + static_cast<char>(optopt)));
        line.options.push_back(
            {id == 'h' ? &HelpOption() : &OptionOf(id), optarg == nullptr ? "" : optarg});
    }
    line.operands.assign(argv + optind, argv + argc);
    return line;
}

}  // namespace vardel::cli
