#pragma once

#include <array>
#include <optional>
#include <string>
#include <vector>

#include "cli/batch/Csv.h"
#include "cli/batch/PathGround.h"
#include "engine/PathInputs.h"

// The columns that say where a path lies on the earth, in place of its distance, and with the
// ground in place of its base antenna's effective height.

namespace vardel::cli {

// What is found for a row: as many numbers as columns are added.
using FoundValues = std::array<double, 3>;

class PlaceColumns {
public:
    // ground: of all rows, nothing where the base heights are effective ones.
    explicit PlaceColumns(const PathGround* ground) : ground_(ground) {}

    // Whether a name, in small letters, is one of these columns; then it is taken. Throws
    // InputError where another has given the same.
    bool Take(std::size_t column, const std::string& name, const std::string& place);
    // To be called after the last column, with the names of those that give the same inputs or
    // nothing. Throws InputError where columns are missing, or are too many.
    void Check(const char* distanceColumn, const char* baseHeightColumn) const;

    bool Has(std::size_t column) const;
    bool HasPlaces() const { return columns_[0].has_value(); }
    // The names of what is found, in the units of the paths.
    std::vector<std::string> AddedNames(Units units) const;

    // Puts distance and base height into the path, in its units. Gives what is wrong with the row.
    std::optional<std::string> Read(const std::vector<CsvField>& fields,
                                    const std::vector<std::string>& names, PathInputs& path,
                                    FoundValues& found) const;

private:
    enum Which : std::size_t {
        BaseLatitude,
        BaseLongitude,
        MobileLatitude,
        MobileLongitude,
        Antenna
    };
    static constexpr std::size_t Count = 5;

    std::optional<std::string> ReadAntenna(const std::vector<CsvField>& fields,
                                           const std::vector<std::string>& names,
                                           double& metres) const;

    const PathGround* ground_;
    std::array<std::optional<std::size_t>, Count> columns_;
    double antennaFactor_ = 1.0;  // to metres
};

// The names of these columns, separated by commas.
std::string KnownPlaceColumns();

}  // namespace vardel::cli
