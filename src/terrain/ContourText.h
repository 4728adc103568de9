#pragma once

#include <string>

#include "engine/Units.h"
#include "terrain/Contours.h"
#include "text/TableText.h"

namespace vardel {

// The table in words, a line for each azimuth below a line of heads: azimuth, average terrain,
// effective height, the models' reaches, what was seen of the radial. Heights and distances are in
// the units, which the heads name.
Cells ContourCells(const ContourTable& table, Units units);

// Of an azimuth in degrees, to two decimals.
std::string AzimuthText(double degrees);

// One azimuth of it.
std::vector<std::string> ContourLine(const ContourTable& table, std::size_t azimuth, Units units);

// What there is to say of an azimuth besides, such as a floored height; empty: nothing.
std::string ContourRemark(const ContourTable& table, std::size_t azimuth, Units units);

// What the table was made of, for people: "Average terrain 3 to 16 km, 50 points around ...".
std::string ContourHead(const ContourTable& table, Units units);

}  // namespace vardel
