#pragma once

#include <string>
#include <vector>

#include "cli/Program.h"

namespace vardel::cli {

struct Outcome {
    ExitStatus status;
    std::string output, errors;
};

using GroundOpener =
    std::function<std::unique_ptr<Elevations>(const std::vector<std::string>& paths)>;

// The program with such words on its command line and such an input.
inline Outcome Calc(std::vector<std::string> words, const std::string& input = {},
                    const GroundOpener& ground = {}) {
    words.insert(words.begin(), "vardel-calc");
    std::vector<char*> arguments;
    for (std::string& word : words) arguments.push_back(word.data());
    arguments.push_back(nullptr);
    Outcome outcome{};
    std::size_t at = 0;
    const Source source = [&input, &at](char* bytes, std::size_t size) {
        const std::size_t come = input.copy(bytes, size, at);
        at += come;
        return come;
    };
    outcome.status = RunProgram(static_cast<int>(words.size()), arguments.data(),
                                {.open = [&](const std::string&) { return source; },
                                 .output = [&](std::string_view text) { outcome.output += text; },
                                 .errors = [&](std::string_view text) { outcome.errors += text; },
                                 .now = {2024, 2, 29, 13, 5, 0},
                                 .ground = ground});
    return outcome;
}

}  // namespace vardel::cli
