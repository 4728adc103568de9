#pragma once

#include <string>

namespace vardel {

// What a command of the shell prints. A command that fails is a failure of the test.
std::string Output(const std::string& command);

}  // namespace vardel
