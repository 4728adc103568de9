#pragma once

#include <cstddef>
#include <stdexcept>
#include <string>
#include <vector>

#include "map/Coordinates.h"

// What the program asks of elevation data, whoever holds them.

namespace vardel {

// Why elevations cannot be had, in words for the user.
struct ElevationError : std::runtime_error {
    using std::runtime_error::runtime_error;
};

// Elevations of the ground. For one thread at a time.
class Elevations {
public:
    Elevations() = default;
    Elevations(const Elevations&) = delete;
    Elevations& operator=(const Elevations&) = delete;
    virtual ~Elevations() = default;

    // Fills in the elevations of count valid places, in m above sea level, bilinear between the
    // nearest four cells; NaN where one of these is not known, or where there are no data.
    // Throws ElevationError where they cannot be read.
    virtual void At(const Place* places, std::size_t count, double* metres) = 0;
    // The distance between neighbouring cells there, in m, the larger one of both directions; NaN
    // where there are no data.
    virtual double Step(const Place& place) = 0;
    // What of the data is left out, in words for the user.
    virtual const std::vector<std::string>& Notes() const = 0;
};

}  // namespace vardel
