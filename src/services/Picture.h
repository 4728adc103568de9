#pragma once

#include <string>

namespace vardel {

// A picture of the log or the clipboard.
struct Picture {
    std::string png;     // the bytes of a PNG file
    int widthTwips = 0;  // 1440 twips are an inch; 0: as large as its points
    int heightTwips = 0;

    friend bool operator==(const Picture&, const Picture&) = default;
};

}  // namespace vardel
