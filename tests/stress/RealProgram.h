#pragma once

#include <string>

#include "forms/Program.h"
#include "support/ServicesIn.h"

namespace vardel {

// The program on real windows, in a folder of its own.
struct RealProgram {
    explicit RealProgram(const std::string& folder) : program(ServicesIn(folder, platform)) {}

    QtPlatform platform;
    Program program;
};

}  // namespace vardel
