#include <algorithm>
#include <cmath>
#include <utility>

#include "forms/shared/BoxMark.h"
#include "forms/tools/TerrainForm.h"
#include "text/NumberText.h"

// What the boxes hold, and whether the table is of it.

namespace vardel {

namespace {

constexpr double TallestMast = 2000.0;    // m
constexpr double HighestGround = 9000.0;  // m
constexpr double LowestGround = -500.0;   // m

// Separated by semicolons.
std::vector<std::string> PathsOf(std::string_view text) {
    std::vector<std::string> paths;
    while (!text.empty()) {
        const std::size_t end = std::min(text.find(';'), text.size());
        if (const auto path = Trimmed(text.substr(0, end)); !path.empty()) paths.emplace_back(path);
        text.remove_prefix(std::min(end + 1, text.size()));
    }
    return paths;
}

// Heights to a millimetre: a switch of units rounds what stands in the boxes.
bool AreAlike(const Mast& a, const Mast& b) {
    constexpr double Unread = -1e6;
    return a.site.latitude == b.site.latitude && a.site.longitude == b.site.longitude &&
           std::fabs(a.antenna - b.antenna) < 0.001 &&
           std::fabs(a.ground.value_or(Unread) - b.ground.value_or(Unread)) < 0.001;
}

bool AreAlike(const HeightDefinition& a, const HeightDefinition& b) {
    return a.fromKm == b.fromKm && a.toKm == b.toKm && a.floor == b.floor;
}

}  // namespace

void TerrainForm::ConvertBoxes(Units units) {
    for (Label* unit : {&lblAntennaUnit, &lblGroundUnit}) unit->SetCaption(HeightUnit(units));
    if (std::exchange(units_, units) == units) return;
    const double factor =
        MetresPerHeight(units == Units::English ? Units::Metric : Units::English) /
        MetresPerHeight(units);
    for (TextBox* box : {&txtAntenna, &txtGround})
        if (const auto number = WholeTextNumber(box->Text()))
            box->SetText(FormatNumber(*number * factor, "0.0###"));
}

std::optional<HeightDefinition> TerrainForm::ReadDefinition(std::string& problem) {
    const auto chosen = static_cast<std::size_t>(cmbDefinition.ListIndex());
    if (chosen < HeightDefinitions.size()) {
        for (TextBox* box : {&txtFrom, &txtTo}) MarkBox(*box, true, "");
        return HeightDefinitions.at(chosen);
    }
    const char* const rule = "The bounds must be two distances from 0 to 300 km, the nearer first.";
    const auto from = ReadOrTell(txtFrom, 0.0, FarthestBound, rule, problem);
    const auto to = ReadOrTell(txtTo, 0.0, FarthestBound, rule, problem);
    if (!from || !to) return std::nullopt;
    if (!MarkBox(txtTo, *from < *to, rule)) {
        if (problem.empty()) problem = rule;
        return std::nullopt;
    }
    return OwnHeightDefinition(*from, *to);
}

// Boxes that are still empty are no mistakes, but nothing can be read without them.
std::optional<TerrainForm::Inputs> TerrainForm::ReadInputs(std::string& problem) {
    const auto place = site.Read(problem);
    const double metres = MetresPerHeight(UnitsNow());
    const auto antenna = ReadOrTell(txtAntenna, 0.1 / metres, TallestMast / metres,
                                    "The antenna must be 0.1 to 2000 m above the ground.", problem);
    std::optional<double> ground;
    MarkBox(txtGround, true, "");
    if (!Trimmed(txtGround.Text()).empty()) {
        ground = ReadOrTell(txtGround, LowestGround / metres, HighestGround / metres,
                            "The ground must be -500 to 9000 m above sea level.", problem);
        if (!ground) return std::nullopt;
    }
    const auto definition = ReadDefinition(problem);
    const char* const azimuthRule = "The number of azimuths must be a whole number from 8 to 3600.";
    const auto azimuths = ReadOrTell(txtAzimuths, static_cast<double>(FewestAzimuths),
                                     static_cast<double>(MostAzimuths), azimuthRule, problem);
    const bool whole = !azimuths || std::floor(*azimuths) == *azimuths;
    if (!whole) {
        MarkBox(txtAzimuths, false, azimuthRule);
        if (problem.empty()) problem = azimuthRule;
    }
    Inputs inputs{};
    inputs.files = PathsOf(txtFiles.Text());
    if (!place || !antenna || !definition || !azimuths || !whole || inputs.files.empty())
        return std::nullopt;
    inputs.mast = {*place, *antenna * metres, std::nullopt};
    if (ground) inputs.mast.ground = *ground * metres;
    inputs.definition = *definition;
    inputs.azimuths = static_cast<std::size_t>(*azimuths);
    return inputs;
}

// What is wrong, or whether the table is of the inputs.
void TerrainForm::TellGround() {
    const bool own =
        static_cast<std::size_t>(cmbDefinition.ListIndex()) >= HeightDefinitions.size();
    for (TextBox* box : {&txtFrom, &txtTo}) box->SetEnabled(own);
    std::string problem;
    const auto inputs = ReadInputs(problem);
    if (problem.empty()) problem = problem_;
    if (problem.empty() && inputs && heights_) {
        const EffectiveHeightTable& is = *heights_;
        const bool same = AreAlike(is.mast, inputs->mast) &&
                          AreAlike(is.definition, inputs->definition) &&
                          is.radials.size() == inputs->azimuths && openFiles_ == inputs->files;
        if (!same) problem = "The table is for earlier inputs: press Read Ground.";
    }
    lblProblem.SetCaption(problem);
    EnableButtons();
}

}  // namespace vardel
