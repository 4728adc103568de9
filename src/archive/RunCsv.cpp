#include "archive/RunCsv.h"

#include <algorithm>

#include "text/CsvText.h"
#include "text/NumberText.h"

namespace vardel {

namespace {

// Of a comment, which is one line.
std::string OneLine(std::string text) {
    std::replace_if(
        text.begin(), text.end(), [](char c) { return c == '\r' || c == '\n'; }, ' ');
    return text;
}

void AddColumns(std::string& csv, const std::vector<CurveRow>& curves) {
    csv += "distance_km";
    for (const CurveRow& curve : curves) {
        csv += ',';
        AppendCsvField(csv, curve.legend);
    }
    csv += "\r\n";
    for (std::size_t i = 0; i < curves.front().x.size(); ++i) {
        csv += ShortestText(curves.front().x[i]);
        for (const CurveRow& curve : curves) csv += ',' + ShortestText(curve.y[i]);
        csv += "\r\n";
    }
}

void AddPoints(std::string& csv, const std::vector<CurveRow>& curves) {
    csv += "curve,distance_km,value\r\n";
    for (const CurveRow& curve : curves)
        for (std::size_t i = 0; i < curve.x.size(); ++i) {
            AppendCsvField(csv, curve.legend);
            csv += ',' + ShortestText(curve.x[i]) + ',' + ShortestText(curve.y[i]) + "\r\n";
        }
}

}  // namespace

std::string RunCsv(const RunRow& run, const std::vector<CurveRow>& curves) {
    std::string csv = "# run " + std::to_string(run.number) + ", " + OneLine(run.time) + "\r\n# " +
                      OneLine(run.parameters) + "\r\n# " + OneLine(run.comment) + "\r\n";
    const bool alike =
        !curves.empty() && std::all_of(curves.begin(), curves.end(), [&](const CurveRow& curve) {
            return curve.x == curves.front().x;
        });
    (alike ? AddColumns : AddPoints)(csv, curves);
    return csv;
}

}  // namespace vardel
