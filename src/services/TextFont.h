#pragma once

#include <string>

namespace vardel {

struct TextFont {
    std::string name;
    double points = 0.0;
};

}  // namespace vardel
