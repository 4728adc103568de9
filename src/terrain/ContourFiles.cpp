#include <algorithm>
#include <cmath>

#include "map/CoverageProperties.h"
#include "terrain/Contours.h"
#include "text/NumberText.h"

namespace vardel {

namespace {

bool IsWritable(const ContourTable& table) {
    const ModelInputs& path = table.path;
    const Mast& mast = table.heights.mast;
    const auto numbers = {path.f,           path.hm,
                          path.pctLoc,      path.pctTime,
                          table.goal.value, table.goal.powerWatts,
                          mast.antenna,     table.heights.ground};
    return IsValid(mast.site) && table.heights.radials.size() >= FewestAzimuths &&
           std::all_of(numbers.begin(), numbers.end(), [](double x) { return std::isfinite(x); });
}

template <class Items, class Predicate>
std::size_t CountOf(const Items& items, Predicate predicate) {
    return static_cast<std::size_t>(std::count_if(items.begin(), items.end(), predicate));
}

struct Span {
    double least, most;
};

// Of the numbers that there are; the list has one.
template <class Items, class Number>
Span SpanOf(const Items& items, Number number) {
    Span span{HUGE_VAL, -HUGE_VAL};
    for (const auto& item : items) {
        const double x = number(item);
        if (std::isnan(x)) continue;
        span = {std::min(span.least, x), std::max(span.most, x)};
    }
    return span;
}

std::string Rounded(double x) { return ShortestText(std::round(x * 1000.0) / 1000.0); }
std::string CountText(std::size_t count) { return ShortestText(static_cast<double>(count)); }

bool IsNever(const Reach& reach) { return reach.outcome == Reach::Outcome::Never; }
bool IsUnknown(const Reach& reach) { return reach.outcome == Reach::Outcome::Invalid; }

std::vector<FeatureProperty> PropertiesOf(const ContourTable& table, const Contour& contour) {
    const EffectiveHeightTable& heights = table.heights;
    const Span km = SpanOf(contour.reaches, [](const Reach& reach) {
        return IsUnknown(reach) ? std::nan("") : reach.km;
    });
    const Span height =
        SpanOf(heights.radials, [](const RadialHeight& radial) { return radial.effectiveHeight; });
    const Span seen =
        SpanOf(heights.radials, [](const RadialHeight& radial) { return radial.seen; });
    std::vector<FeatureProperty> properties = {{"model", ModelOf(contour.model).name, true},
                                               {"distance_km_least", Rounded(km.least)},
                                               {"distance_km_most", Rounded(km.most)}};
    AddInputs(properties, table.goal, table.path, BaseHeight::Left, heights.mast.site);
    const std::vector<FeatureProperty> ground = {
        {"antenna_above_ground_m", ShortestText(heights.mast.antenna)},
        {"ground_m", Rounded(heights.ground)},
        {"height_definition", std::string(heights.definition.name), true},
        {"height_source", std::string(heights.definition.source), true},
        {"average_from_km", ShortestText(heights.definition.fromKm)},
        {"average_to_km", ShortestText(heights.definition.toKm)},
        {"height_floor_m", ShortestText(heights.definition.floor)},
        {"effective_height_m_least", Rounded(height.least)},
        {"effective_height_m_most", Rounded(height.most)},
        {"azimuths", CountText(heights.radials.size())},
        {"azimuths_floored",
         CountText(CountOf(heights.radials,
                           [](const RadialHeight& radial) { return radial.Floored(); }))},
        {"azimuths_unseen", CountText(CountOf(contour.reaches, IsUnknown))},
        {"seen_least", Rounded(seen.least)},
        {"azimuths_in_range",
         CountText(CountOf(contour.reaches, [](const Reach& reach) { return reach.inRange; }))},
        {"azimuths_not_met", CountText(CountOf(contour.reaches, IsNever))},
        {"azimuths_met_again",
         CountText(CountOf(contour.reaches, [](const Reach& reach) { return reach.Again(); }))},
    };
    properties.insert(properties.end(), ground.begin(), ground.end());
    AddPower(properties, table.goal);
    return properties;
}

std::vector<MapFeature> FeaturesOf(const ContourTable& table) {
    std::vector<MapFeature> features;
    for (const Contour& contour : table.contours) {
        std::vector<double> km;
        km.reserve(contour.reaches.size());
        for (const Reach& reach : contour.reaches) km.push_back(reach.km);
        features.push_back({FeatureName(contour.model, table.path.pctLoc), contour.model,
                            PropertiesOf(table, contour),
                            GeodesicOutline(table.heights.mast.site, km)});
    }
    return features;
}

// Such as "3 of 36 azimuths"; nothing for none.
void AddNote(std::vector<std::string>& notes, std::size_t count, std::size_t of,
             const std::string& what) {
    if (count > 0) notes.push_back(CountText(count) + " of " + CountText(of) + " azimuths " + what);
}

}  // namespace

std::optional<std::string> ContourGeoJson(const ContourTable& table) {
    if (!IsWritable(table)) return std::nullopt;
    return GeoJsonOf(FeaturesOf(table));
}

std::optional<std::string> ContourKml(const ContourTable& table) {
    if (!IsWritable(table)) return std::nullopt;
    return KmlOf(FeaturesOf(table), "Contours");
}

std::vector<std::string> NotesOn(const EffectiveHeightTable& heights) {
    std::vector<std::string> notes;
    const auto& radials = heights.radials;
    const auto count = [&](auto predicate) { return CountOf(radials, predicate); };
    AddNote(notes, count([](const RadialHeight& radial) { return radial.seen == 0.0; }),
            radials.size(), "have no elevation data, so no height");
    AddNote(notes, count([](const RadialHeight& radial) {
                return radial.seen > 0.0 && radial.seen < 1.0;
            }),
            radials.size(),
            "have elevation data for only part of the way; the average is over that part");
    AddNote(notes, count([](const RadialHeight& radial) { return radial.Floored(); }),
            radials.size(),
            "have an effective height below " + ShortestText(heights.definition.floor) +
                " m, which is used instead");
    return notes;
}

std::vector<std::string> NotesOn(const ContourTable& table) {
    std::vector<std::string> notes = NotesOn(table.heights);
    for (const Contour& contour : table.contours) {
        const std::size_t all = contour.reaches.size();
        const auto add = [&](auto predicate, const std::string& what) {
            AddNote(notes, CountOf(contour.reaches, predicate), all,
                    what + std::string(" by ") + ModelOf(contour.model).name);
        };
        add(IsNever, "do not meet the goal anywhere");
        add([](const Reach& reach) { return reach.outcome == Reach::Outcome::Late; },
            "meet the goal only farther out");
        add([](const Reach& reach) { return reach.Again(); },
            "meet the goal once more beyond the contour");
    }
    return notes;
}

}  // namespace vardel
