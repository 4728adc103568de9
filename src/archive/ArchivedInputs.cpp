#include "archive/ArchivedInputs.h"

#include <cmath>
#include <string_view>

#include "text/NumberText.h"

namespace vardel {

namespace {

constexpr double Unlike = 1e-6;         // dB, that no rounding of the last bits makes
constexpr double PowerRounding = 5.01;  // W, of kilowatts with two decimals

// The line from its front.
class ParameterReader {
public:
    explicit ParameterReader(std::string_view line) : rest_(line) {}

    // What stands up to the end mark, behind the start mark; takes both.
    std::optional<std::string_view> Take(std::string_view start, std::string_view end) {
        const auto at = rest_.find(end, start.size());
        if (!rest_.starts_with(start) || at == rest_.npos) return std::nullopt;
        const std::string_view text = Trimmed(rest_.substr(start.size(), at - start.size()));
        rest_.remove_prefix(at + end.size());
        return text;
    }
    std::optional<double> TakeNumber(std::string_view start, std::string_view end) {
        const auto text = Take(start, end);
        return text ? WholeTextNumber(*text) : std::nullopt;
    }

private:
    std::string_view rest_;
};

struct ParameterLine {
    PathInputs path;
    double kilowatts = 0.0;
};

std::optional<ParameterLine> Parsed(const std::string& text) {
    ParameterReader line(text);
    const auto hb = line.TakeNumber("hb:", ",");
    const auto hm = line.TakeNumber("hm:", ",");
    const auto f = line.TakeNumber("frq:", ",");
    const auto area = line.Take("", ",");
    const auto city = line.Take("", ",Power:");
    const auto power = line.Take("", "kW e.r.p.,");
    const auto time = line.TakeNumber("", "%T,");
    const auto locations = line.TakeNumber("", "%L");
    if (!hb || !hm || !f || !area || !city || !power || !time || !locations) return std::nullopt;
    ParameterLine parsed;
    parsed.path = {.frequency = *f,
                   .hb = *hb,
                   .hm = *hm,
                   .area = std::string(*area),
                   .city = city->starts_with(',') ? std::string(city->substr(1)) : "Small/Medium",
                   .pctTime = *time,
                   .pctLoc = *locations};
    parsed.kilowatts = LeadingNumber(*power);
    return parsed;
}

// By how much the stored points lie above those of the model for 1 kW; nothing where they do not
// by one and the same. No point at all is as good as another.
std::optional<double> OffsetOf(const PathInputs& path, const std::vector<CurveRow>& curves) {
    const Quantity quantity = QuantityOf(curves);
    std::optional<double> offset;
    for (const CurveRow& curve : curves) {
        const Model* model = ModelOfLegend(curve.legend);
        if (model == nullptr || curve.x.empty()) return std::nullopt;
        for (const std::size_t i : {std::size_t{0}, curve.x.size() / 2, curve.x.size() - 1}) {
            ModelInputs at = MetricInputs(path);
            at.d = curve.x[i];
            ModelTermsRecord terms;
            const double value = quantity == Quantity::Loss
                                     ? model->loss(at, terms)
                                     : model->fieldStrength(at, 1000.0, terms);
            const double above = curve.y[i] - value;
            if (!offset) offset = above;
            if (!(std::abs(above - *offset) < Unlike)) return std::nullopt;
        }
    }
    return offset;
}

}  // namespace

const Model* ModelOfLegend(const std::string& legend) {
    for (const ModelNumber number : ComparedModels)
        if (legend.starts_with(ModelOf(number).name)) return &ModelOf(number);
    return nullptr;
}

Quantity QuantityOf(const std::vector<CurveRow>& curves) {
    for (const CurveRow& curve : curves)
        if (const Model* model = ModelOfLegend(curve.legend))
            return curve.legend.starts_with(std::string(model->name) + " - ")
                       ? Quantity::FieldStrength
                       : Quantity::Loss;
    return Quantity::Loss;
}

std::optional<ArchivedInputs> InputsOfRun(const std::string& parameters,
                                          const std::vector<CurveRow>& curves) {
    const auto line = Parsed(parameters);
    if (!line) return std::nullopt;
    for (const Units units : {Units::Metric, Units::English}) {
        ArchivedInputs inputs{line->path, QuantityOf(curves) == Quantity::FieldStrength};
        inputs.path.units = units;
        const auto offset = OffsetOf(inputs.path, curves);
        if (!offset) continue;
        inputs.path.powerWatts = 1000.0 * std::pow(10.0, *offset / 10.0);
        if (inputs.hasPower
                ? std::abs(inputs.path.powerWatts - 1000.0 * line->kilowatts) <= PowerRounding
                : std::abs(*offset) < Unlike)
            return inputs;
    }
    return std::nullopt;
}

}  // namespace vardel
