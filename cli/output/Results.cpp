#include "cli/output/Results.h"

#include "text/AsciiCase.h"
#include "text/NumberText.h"

namespace vardel::cli {

std::string ColumnName(const Model& model) {
    std::string name = LowerCase(model.name);
    std::erase(name, ' ');
    return name;
}

const std::array<ResultNames, ComparedModels.size()>& NamesOfResults() {
    static const auto Names = [] {
        std::array<ResultNames, ComparedModels.size()> names;
        for (std::size_t i = 0; i < names.size(); ++i) {
            const std::string model = ColumnName(ModelOf(ComparedModels.at(i)));
            names.at(i) = {model + "_loss_db", model + "_field_dbuvm", model + "_in_range"};
        }
        return names;
    }();
    return Names;
}

std::vector<std::string> ResultColumns() {
    std::vector<std::string> columns;
    for (const auto& [loss, fieldStrength, inRange] : NamesOfResults())
        columns.insert(columns.end(), {loss, fieldStrength, inRange});
    return columns;
}

void AppendResults(std::string& row, const Calculation* calculation, char delimiter) {
    for (const ModelNumber model : ComparedModels) {
        if (calculation == nullptr) {
            row.append(3, delimiter);
            continue;
        }
        const ModelResult& result = calculation->Of(model);
        row += delimiter;
        row += ShortestText(result.loss);
        row += delimiter;
        row += ShortestText(result.fieldStrength);
        row += delimiter;
        row += YesOrNo(result.inRange);
    }
}

void AddResults(JsonObject& line, const Calculation* calculation) {
    for (std::size_t i = 0; i < ComparedModels.size(); ++i) {
        const ResultNames& names = NamesOfResults().at(i);
        if (calculation == nullptr) {
            for (const auto& name : {names.loss, names.fieldStrength, names.inRange})
                line.Null(name);
            continue;
        }
        const ModelResult& result = calculation->Of(ComparedModels.at(i));
        line.Number(names.loss, result.loss);
        line.Number(names.fieldStrength, result.fieldStrength);
        line.YesNo(names.inRange, result.inRange);
    }
}

}  // namespace vardel::cli
