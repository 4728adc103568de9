#pragma once

#include <cstdint>
#include <vector>

#include "archive/ArchiveReader.h"
#include "engine/curves/CurvePlot.h"

// Curves of an archive as graphs show them. One of very many points is drawn through some of them.

namespace vardel {

// By themselves, in the colours of their models.
CurvePlot PreviewOf(const std::vector<CurveRow>& curves);

// Over the curves of a graph, dashed, named after their run. place counts runs from 0 and
// distinguishes those of one apart from those of another.
CurvePlot LaidCurves(std::int64_t run, const std::vector<CurveRow>& curves, std::size_t place);

}  // namespace vardel
