#pragma once

#include <string>

namespace vardel::cli {

// For a terminal of 80 columns.
std::string HelpText();
std::string VersionText();

}  // namespace vardel::cli
