#pragma once

#include <array>
#include <string>
#include <vector>

#include "engine/Calculation.h"
#include "text/JsonText.h"

// What the compared models say of a path, as columns and as members.

namespace vardel::cli {

// A model's name as columns begin with it, such as "itu529".
std::string ColumnName(const Model& model);

// The names of a model's columns.
struct ResultNames {
    std::string loss;           // dB
    std::string fieldStrength;  // dB(µV/m)
    std::string inRange;
};

// By the order of ComparedModels.
const std::array<ResultNames, ComparedModels.size()>& NamesOfResults();
// The same one after the other, as they stand in a head.
std::vector<std::string> ResultColumns();

constexpr const char* YesOrNo(bool yes) { return yes ? "yes" : "no"; }

// Each value with the delimiter before it. Without a calculation the fields are empty.
void AppendResults(std::string& row, const Calculation* calculation, char delimiter);
void AddResults(JsonObject& line, const Calculation* calculation);

}  // namespace vardel::cli
