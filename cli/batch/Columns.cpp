#include "cli/batch/Columns.h"

#include <algorithm>
#include <array>

#include "cli/batch/RowReader.h"
#include "engine/Calculation.h"
#include "text/AsciiCase.h"
#include "text/NumberText.h"

namespace vardel::cli {

namespace {

struct KnownColumn {
    const char* name;
    PathField field;
    Units units = Units::Metric;
    PowerUnit power = PowerUnit::Watts;
};

constexpr std::array<KnownColumn, 15> Known = {{
    {"frequency_mhz", PathField::Frequency},
    {"distance_km", PathField::Distance},
    {"distance_mi", PathField::Distance, Units::English},
    {"base_height_m", PathField::BaseHeight},
    {"base_height_ft", PathField::BaseHeight, Units::English},
    {"mobile_height_m", PathField::MobileHeight},
    {"mobile_height_ft", PathField::MobileHeight, Units::English},
    {"area", PathField::Area},
    {"city", PathField::City},
    {"percent_time", PathField::PercentTime},
    {"percent_locations", PathField::PercentLocations},
    {"power_w", PathField::Power},
    {"power_kw", PathField::Power, Units::Metric, PowerUnit::Kilowatts},
    {"power_dbm", PathField::Power, Units::Metric, PowerUnit::Dbm},
    {"power_dbw", PathField::Power, Units::Metric, PowerUnit::Dbw},
}};

const KnownColumn* Find(std::string_view name) {
    const auto found =
        std::find_if(Known.begin(), Known.end(), [&](const auto& c) { return name == c.name; });
    return found == Known.end() ? nullptr : &*found;
}

constexpr std::array<PathField, 3> Lengths = {PathField::Distance, PathField::BaseHeight,
                                              PathField::MobileHeight};

bool IsLength(PathField field) {
    return std::find(Lengths.begin(), Lengths.end(), field) != Lengths.end();
}

double ToMetric(PathField field, Units units) {
    return field == PathField::Distance ? KmPerDistance(units) : MetresPerHeight(units);
}

double& LengthOf(PathInputs& path, PathField field) {
    if (field == PathField::Distance) return path.distance;
    return field == PathField::BaseHeight ? path.hb : path.hm;
}

}  // namespace

Columns::Columns(const std::vector<CsvField>& head, const PathInputs& defaults,
                 const std::vector<std::string>& reserved, const PathGround* ground)
    : places_(ground), defaults_(defaults) {
    std::array<const KnownColumn*, PathFieldCount> taken{};
    std::array<Units, PathFieldCount> units{};
    units.fill(defaults.units);
    for (std::size_t i = 0; i < head.size(); ++i) {
        const std::string place = "line 1, column " + std::to_string(i + 1) + ": ";
        names_.emplace_back(Trimmed(head[i].Text()));
        const std::string name = LowerCase(names_.back());
        if (std::find(reserved.begin(), reserved.end(), name) != reserved.end())
            throw InputError(place + name + " is the name of a column that is added");
        if (places_.Take(i, name, place)) continue;
        const KnownColumn* const known = Find(name);
        if (known == nullptr) continue;
        const auto index = static_cast<std::size_t>(known->field);
        if (taken.at(index) != nullptr)
            throw InputError(place + taken.at(index)->name + " and " + known->name +
                             " are the same input");
        taken.at(index) = known;
        units.at(index) = known->units;
        inputs_.push_back({i, known->field, 1.0, known->power});
    }
    const auto nameOf = [&](PathField field) {
        const KnownColumn* const known = taken.at(static_cast<std::size_t>(field));
        return known == nullptr ? nullptr : known->name;
    };
    places_.Check(nameOf(PathField::Distance), nameOf(PathField::BaseHeight));
    if (inputs_.empty() && !places_.HasPlaces())
        throw InputError("line 1: no column is an input. The inputs are: " + KnownColumns());
    NoteLikenesses();
    SettleUnits(units);
    const auto added = AddedNames();
    for (const std::string& name : names_)
        if (std::find(added.begin(), added.end(), LowerCase(name)) != added.end())
            throw InputError("line 1: " + name + " is the name of a column that is added");
}

// A mistyped name would have all rows calculated by a default unseen.
void Columns::NoteLikenesses() {
    constexpr std::size_t AlikeLetters = 4;
    const auto isInput = [this](auto same) {
        return std::any_of(inputs_.begin(), inputs_.end(), same);
    };
    for (std::size_t i = 0; i < names_.size(); ++i) {
        if (places_.Has(i) || isInput([i](const Input& input) { return input.column == i; }))
            continue;
        const std::string start = LowerCase(names_[i].substr(0, AlikeLetters));
        const auto like = std::find_if(Known.begin(), Known.end(), [&](const KnownColumn& known) {
            return start == std::string_view(known.name).substr(0, AlikeLetters) &&
                   !isInput([&](const Input& input) { return input.field == known.field; });
        });
        if (like != Known.end())
            notes_.push_back("column " + Shown(names_[i]) + " passes through; the input is " +
                             like->name);
    }
}

// A path has one system of units: where columns and defaults do not all have the English one, all
// become metric.
void Columns::SettleUnits(const std::array<Units, PathFieldCount>& units) {
    const auto unitsOf = [&](PathField field) { return units.at(static_cast<std::size_t>(field)); };
    const bool english = std::all_of(Lengths.begin(), Lengths.end(), [&](PathField field) {
        return unitsOf(field) == Units::English;
    });
    if (english) {
        defaults_.units = Units::English;
        return;
    }
    for (const PathField field : Lengths)
        LengthOf(defaults_, field) *= ToMetric(field, defaults_.units);
    defaults_.units = Units::Metric;
    for (Input& input : inputs_)
        if (IsLength(input.field)) input.factor = ToMetric(input.field, unitsOf(input.field));
}

bool Columns::IsNumber(std::size_t column) const {
    return places_.Has(column) ||
           std::any_of(inputs_.begin(), inputs_.end(), [column](const Input& input) {
               return input.column == column && input.field != PathField::Area &&
                      input.field != PathField::City;
           });
}

std::optional<std::string> Columns::Read(const std::vector<CsvField>& fields, RowPath& row) const {
    row.path = defaults_;
    for (const Input& input : inputs_) {
        const CsvField& field = fields[input.column];
        const auto wrong =
            SetPathField(row.path, input.field, field.raw, input.factor, input.power);
        if (wrong) return "column " + names_[input.column] + ": " + *wrong;
    }
    if (auto wrong = places_.Read(fields, names_, row.path, row.found)) return wrong;
    row.inputs = MetricInputs(row.path);
    return RefusalOf(row.inputs);
}

std::string KnownColumns() {
    std::string names;
    for (const KnownColumn& column : Known) names += column.name + std::string(", ");
    return names + KnownPlaceColumns();
}

}  // namespace vardel::cli
