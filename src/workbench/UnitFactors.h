#pragma once

namespace vardel {

// The factors between English and metric units, everywhere in the program the same.
constexpr double KmPerMile = 1.6093;
constexpr double MetresPerFoot = 0.3048;

}  // namespace vardel
