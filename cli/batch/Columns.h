#pragma once

#include <array>
#include <optional>
#include <string>
#include <vector>

#include "cli/batch/Csv.h"
#include "cli/batch/PlaceColumns.h"
#include "cli/options/PathFields.h"

namespace vardel::cli {

// The path that a row means, and the same for the models.
struct RowPath {
    PathInputs path;
    ModelInputs inputs;
    FoundValues found;  // of the columns' AddedNames()
};

// Which column of a file is which input of a path.
class Columns {
public:
    // The fields of a head. Inputs without a column are those of the default path; with a ground
    // base heights are found. Throws InputError where no column is an input, where two give the
    // same one, where one is missing that others want, or where a name is one of reserved.
    Columns(const std::vector<CsvField>& head, const PathInputs& defaults,
            const std::vector<std::string>& reserved, const PathGround* ground = nullptr);

    const std::vector<std::string>& Names() const { return names_; }
    // On columns that are no input by their names, but much like one that is missing.
    const std::vector<std::string>& Notes() const { return notes_; }
    // Whether a column is an input that is a number.
    bool IsNumber(std::size_t column) const;
    // Of columns that are found for each row, besides the results.
    std::vector<std::string> AddedNames() const { return places_.AddedNames(defaults_.units); }

    // Puts the path of a row in. Gives what is wrong with the row, with its column; nothing: it can
    // be calculated.
    std::optional<std::string> Read(const std::vector<CsvField>& fields, RowPath& row) const;

private:
    struct Input {
        std::size_t column;
        PathField field;
        double factor;
        PowerUnit power;
    };
    void NoteLikenesses();
    void SettleUnits(const std::array<Units, PathFieldCount>& units);

    std::vector<std::string> names_;
    std::vector<std::string> notes_;
    std::vector<Input> inputs_;
    PlaceColumns places_;
    PathInputs defaults_;
};

// The names of all columns that are inputs, separated by commas.
std::string KnownColumns();

}  // namespace vardel::cli
