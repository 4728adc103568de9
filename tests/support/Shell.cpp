#include "support/Shell.h"

#include <gtest/gtest.h>

#include <array>
#include <cstdio>

namespace vardel {

std::string Output(const std::string& command) {
    std::FILE* pipe = ::popen(command.c_str(), "r");
    if (pipe == nullptr) return {};
    std::string output;
    std::array<char, 4096> buffer;
    for (std::size_t got = 0; (got = std::fread(buffer.data(), 1, buffer.size(), pipe)) > 0;)
        output.append(buffer.data(), got);
    EXPECT_EQ(::pclose(pipe), 0) << command;
    return output;
}

}  // namespace vardel
