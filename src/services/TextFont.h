#pragma once

#include <string>

namespace vardel {

// A font by its family and its size.
struct TextFont {
    std::string name;
    double points = 0.0;  // of 1/72 inch
};

}  // namespace vardel
