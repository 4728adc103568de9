#pragma once

#include <string>
#include <utility>
#include <variant>
#include <vector>

#include "engine/Units.h"
#include "engine/reach/Reach.h"

// Tables that the commands write, as CSV and as lines of JSON.

namespace vardel::cli {

// A value of a record, or none.
using Cell = std::variant<std::monostate, std::string, double, bool>;
using Record = std::vector<std::pair<std::string, Cell>>;

constexpr const char* LineEnd = "\r\n";  // of RFC 4180

// One row of CSV.
std::string CsvRow(const std::vector<std::string>& fields);
// The names, then the values of each; the records, one at least, have the same names.
std::string CsvOf(const std::vector<Record>& records);
// An object for each on a line of its own. A number that is not finite is null, in CSV empty.
std::string JsonOf(const std::vector<Record>& records);

// A quantity with the unit behind it, such as "reach_km".
std::string DistanceColumn(const std::string& quantity, Units units);
std::string HeightColumn(const std::string& quantity, Units units);

// How a reach or a needed height came out, in a word; empty where there is no answer.
template <class Answer>
Cell OutcomeOf(const Answer& answer) {
    if (answer.outcome == Answer::Outcome::Invalid) return {};
    return Answer::OutcomeNames.at(static_cast<std::size_t>(answer.outcome));
}

}  // namespace vardel::cli
