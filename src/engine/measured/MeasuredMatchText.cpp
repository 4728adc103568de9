#include "engine/measured/MeasuredMatchText.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <tuple>
#include <vector>

#include "text/NumberText.h"

namespace vardel {

namespace {

constexpr std::size_t NearestTold = 3;

// What a column and a path have in common, and what not.
struct Candidate {
    std::size_t table;
    int column;
    int differences = 0;
    double distance = 0.0;  // of the numbers that differ, as ratios
    bool rounding = false;  // one differs by no more than what a height in feet is rounded by
};

struct ComparedNumber {
    const char* what;
    const char* unit;
    double held;
    double wanted;
};

std::array<ComparedNumber, 4> NumbersOf(const MeasuredSegment& segment, int column,
                                        const ModelInputs& wanted) {
    return {{{"", " MHz", segment.Frequency, wanted.f},
             {"hb ", " m", segment.BaseHeight[column], wanted.hb},
             {"hm ", " m", segment.MobileHeight, wanted.hm},
             // As they are compared: a fraction.
             {"time ", "", segment.PercentTime, wanted.pctTime / 100.0}}};
}

Candidate CandidateOf(const MeasuredTable& table, std::size_t i, int column,
                      const ModelInputs& wanted) {
    constexpr double RoundedFeet = 1e-4;
    Candidate candidate{i, column};
    for (const ComparedNumber& number : NumbersOf(table[i], column, wanted)) {
        if (number.held == number.wanted) continue;
        const double ratio = std::abs(std::log(std::abs(number.held / number.wanted)));
        ++candidate.differences;
        candidate.distance += std::isfinite(ratio) ? ratio : 100.0;
        candidate.rounding = candidate.rounding || ratio < RoundedFeet;
    }
    if (!IsAreaOf(table[i], wanted.area)) {
        ++candidate.differences;
        candidate.distance += 1.0;
    }
    return candidate;
}

std::string DifferencesOf(const Candidate& candidate, const MeasuredSegment& segment,
                          const ModelInputs& wanted) {
    std::string text;
    const auto add = [&text](const std::string& held, const std::string& instead) {
        text += (text.empty() ? "" : ", ") + held + " instead of " + instead;
    };
    for (const auto& [what, unit, held, asked] : NumbersOf(segment, candidate.column, wanted))
        if (held != asked) add(what + ShortestText(held) + unit, ShortestText(asked) + unit);
    if (!IsAreaOf(segment, wanted.area)) add(segment.City, wanted.area);
    return text;
}

// The nearest first, by the number of differences, then by their size.
std::vector<Candidate> NearestOf(const MeasuredTable& table, const ModelInputs& wanted) {
    std::vector<Candidate> candidates;
    for (std::size_t i = 0; i < table.size(); ++i)
        for (int column = 0; column < table[i].HeightCount; ++column)
            candidates.push_back(CandidateOf(table, i, column, wanted));
    const std::size_t told = std::min(NearestTold, candidates.size());
    std::partial_sort(candidates.begin(), candidates.begin() + static_cast<std::ptrdiff_t>(told),
                      candidates.end(), [](const Candidate& a, const Candidate& b) {
                          return std::tuple(a.differences, a.distance, a.table, a.column) <
                                 std::tuple(b.differences, b.distance, b.table, b.column);
                      });
    candidates.resize(told);
    return candidates;
}

std::string NameOf(std::size_t table) { return "Table " + std::to_string(table); }

}  // namespace

std::string MatchText(const PathInputs& path, const MeasuredTable& table,
                      const MeasuredMatch& match) {
    const ModelInputs wanted = MetricInputs(path);
    if (match.found) {
        const MeasuredSegment& segment = table[static_cast<std::size_t>(match.segment)];
        return NameOf(static_cast<std::size_t>(match.segment)) +
               " of measured.csv: " + ShortestText(segment.Frequency) + " MHz, hb " +
               ShortestText(segment.BaseHeight[match.column]) + " m, hm " +
               ShortestText(segment.MobileHeight) + " m, " + segment.City + ", " +
               ShortestText(segment.PercentTime * 100.0) + " % of time";
    }
    const std::vector<Candidate> nearest = NearestOf(table, wanted);
    if (nearest.empty()) return "There are no measured data: measured.csv is empty or missing.";
    std::string text = "No table of measured.csv matches these inputs. The nearest:";
    bool rounding = false;
    for (const Candidate& candidate : nearest) {
        text += "\n  " + NameOf(candidate.table) + " has " +
                DifferencesOf(candidate, table[candidate.table], wanted);
        rounding = rounding || candidate.rounding;
    }
    if (rounding && path.units == Units::English)
        text += "\nHeights in feet are rounded and fit no table exactly: compare in metric units.";
    return text;
}

}  // namespace vardel
