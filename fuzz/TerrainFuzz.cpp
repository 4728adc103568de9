#include <algorithm>
#include <cmath>
#include <cstdint>
#include <cstring>
#include <string>
#include <string_view>

#include "Check.h"
#include "cli/options/TerrainOptions.h"
#include "terrain/EffectiveHeights.h"
#include "terrain/RasterMosaic.h"

namespace {

using vardel::Place;

std::string TakeLine(std::string_view& text) {
    const std::string line(text.substr(0, text.find('\n')));
    text.remove_prefix(std::min(text.size(), line.size() + 1));
    return line;
}

// A number made of the next bytes, any; zeros at the end.
template <class Number>
Number Take(std::string_view& bytes) {
    Number number{};
    const std::size_t size = std::min(bytes.size(), sizeof number);
    std::memcpy(&number, bytes.data(), size);
    bytes.remove_prefix(size);
    return number;
}

// Near a whole number of hundredths, so that grids and places meet at times.
double TakeDegrees(std::string_view& bytes) { return Take<std::int16_t>(bytes) / 100.0; }

void CheckOptions(std::string_view& text) {
    std::optional<std::string> wrong;
    if (const auto site = vardel::cli::SiteOf(TakeLine(text), wrong)) Check(IsValid(*site));
    if (const auto definition = vardel::cli::DefinitionOf(TakeLine(text), wrong))
        Check(0.0 <= definition->fromKm && definition->fromKm < definition->toKm &&
              definition->toKm <= vardel::FarthestBound);
    if (const auto azimuths = vardel::cli::AzimuthsOf(TakeLine(text), wrong))
        Check(vardel::FewestAzimuths <= *azimuths && *azimuths <= vardel::MostAzimuths);
}

// Rasters of a byte each cell, or as large as their numbers say; what they are asked for lies
// within.
void AddRaster(vardel::RasterMosaic& mosaic, const std::shared_ptr<vardel::MapProjection>& earth,
               std::string_view& bytes) {
    vardel::RasterGrid grid{Take<std::int32_t>(bytes), Take<std::int32_t>(bytes), {}};
    if (Take<char>(bytes) % 2 == 0) {
        grid.columns = 1 + std::abs(grid.columns % 600);
        grid.rows = 1 + std::abs(grid.rows % 600);
    }
    const bool isSquare = Take<char>(bytes) % 4 != 0;
    for (std::size_t i = 0; i < grid.toMap.size(); ++i)
        grid.toMap.at(i) = !isSquare          ? Take<double>(bytes)
                           : i == 0 || i == 3 ? TakeDegrees(bytes)
                           : i == 1           ? 0.01
                           : i == 5           ? -0.01
                                              : 0.0;
    const unsigned seed = Take<std::uint8_t>(bytes);
    try {
        mosaic.Add(grid, earth, [=](int column, int row, int columns, int rows, float* metres) {
            Check(column >= 0 && row >= 0 && columns > 0 && rows > 0);
            Check(columns <= grid.columns - column && rows <= grid.rows - row);
            for (int i = 0; i < columns * rows; ++i) {
                const unsigned height = (seed + static_cast<unsigned>(i) * 7U) % 256U;
                metres[i] = height == 3 ? std::nanf("") : static_cast<float>(height);
            }
        });
    } catch (const vardel::ElevationError&) {
        Check(!IsUsable(grid));
    }
}

}  // namespace

// Three lines of options, then rasters and places in bytes.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    std::string_view bytes(reinterpret_cast<const char*>(data), size);
    CheckOptions(bytes);
    vardel::RasterMosaic mosaic(0);
    const auto earth = std::make_shared<vardel::Geographic>();
    for (int rasters = Take<std::uint8_t>(bytes) % 4; rasters >= 0; --rasters)
        AddRaster(mosaic, earth, bytes);
    while (!bytes.empty()) {
        const Place place{TakeDegrees(bytes), TakeDegrees(bytes)};
        if (!IsValid(place)) continue;
        double metres = 0.0;
        mosaic.At(&place, 1, &metres);
        Check(std::isnan(metres) || (metres >= -1e-3 && metres <= 255.001));
        const double step = mosaic.Step(place);
        Check(std::isnan(step) || step >= 0.0);
        Check(mosaic.BlocksInMemory() <= 4);
    }
    return 0;
}
