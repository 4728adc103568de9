#include "engine/reach/CurveReach.h"

#include "engine/reach/ReachTable.h"

namespace vardel {

std::vector<CurveReach> ReachesOf(const GraphCurves& graph, double threshold) {
    const Goal goal{graph.quantity, threshold, graph.powerWatts};
    std::vector<CurveReach> reaches;
    for (const GraphCurves::Curve& curve : graph.curves)
        reaches.push_back({curve.name, curve.color,
                           curve.model != nullptr ? ReachOf(*curve.model, curve.in, goal)
                                                  : FreeSpaceReach(curve.in.f, goal)});
    return reaches;
}

std::string CurveReachText(const CurveReach& curve) {
    if (curve.reach.outcome == Reach::Outcome::Invalid) return curve.curve + ": none";
    const std::string remark = ReachRemark(curve.reach);
    return curve.curve + ": " + ReachText(curve.reach, Units::Metric) + " km" +
           (remark.empty() ? "" : " (" + remark + ')');
}

}  // namespace vardel
