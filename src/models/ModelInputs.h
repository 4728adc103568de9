#pragma once

#include <string>

namespace vardel {

// What every propagation model takes. All quantities are metric whatever units a form shows; the
// models need f, d, hb and hm above zero and refuse nothing else.
struct ModelInputs {
    double f = 0.0;       // frequency, MHz
    double d = 0.0;       // distance, km
    double hb = 0.0;      // base antenna height, m
    double hm = 0.0;      // mobile antenna height, m
    std::string area;     // "Urban", "Suburban" or "Open"
    std::string city;     // "Small/Medium" or "Large"
    double pctTime = 50;  // percent of time, 50 meaning 50 %
    double pctLoc = 50;   // percent of locations
};

// A loss in dB, or a field strength in dB(µV/m).
using ModelFunction = double (*)(const ModelInputs&) noexcept;

}  // namespace vardel
