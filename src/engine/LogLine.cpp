#include "engine/LogLine.h"

#include <array>

#include "text/NumberText.h"

namespace vardel {

namespace {

struct ResultColumn {
    ModelNumber model;
    double ModelResult::*result;
};

constexpr std::array<ResultColumn, 6> ResultColumns = {{
    {ModelNumber::Davidson, &ModelResult::loss},
    {ModelNumber::Cost231, &ModelResult::loss},
    {ModelNumber::Itu529, &ModelResult::loss},
    {ModelNumber::Itu529, &ModelResult::fieldStrength},
    {ModelNumber::Davidson, &ModelResult::fieldStrength},
    {ModelNumber::Cost231, &ModelResult::fieldStrength},
}};

std::string Field(double x, std::string_view pattern) {
    return FixedWidthNumber(FormatNumber(x, pattern));
}

std::string CityColumn(const PathInputs& path) {
    constexpr std::string_view Pattern = "@@@@@@@@@@@@!";
    return FormatText(
        Trimmed(path.area) == "Urban" ? std::string_view(path.city) : std::string_view(), Pattern);
}

}  // namespace

const char* const LogColumnHeader =
    "  Dist     Frq    BaseH   MobilH    Area      City     OHDavLs  C231Ls  H529Ls   H529FS"
    "  HDAVFS C231FS   T%  L% Units    Watts    Date      Time";

std::vector<LogPiece> LogLine(const PathInputs& path, const Calculation& calculation,
                              const CalendarTime& time) {
    std::vector<LogPiece> pieces;
    pieces.reserve(ResultColumns.size() + 2);
    pieces.push_back({Field(path.distance, "00000.00") + ' ' + Field(path.frequency, "00000.0") +
                      ' ' + Field(path.hb, "0000.00") + "  " + Field(path.hm, "000.00") + ' ' +
                      FormatText(path.area, "@@@@@@@@!") + "  " + CityColumn(path)});
    for (const auto& [model, result] : ResultColumns) {
        const ModelResult& of = calculation.Of(model);
        pieces.push_back({Field(of.*result, "0000.00") + ' ', !of.inRange});
    }
    pieces.push_back({' ' + FormatNumber(path.pctTime / 100.0, "00%") + ' ' +
                      FormatNumber(path.pctLoc / 100.0, "00%") +
                      (path.units == Units::English ? " Enlish " : " Metric ") +
                      Field(path.powerWatts, "000000.0") + ' ' + FormatDateTime(time) + "\r\n"});
    return pieces;
}

}  // namespace vardel
