#pragma once

#include "engine/LogLine.h"
#include "forms/reports/RLogClass.h"
#include "services/Clock.h"

namespace vardel {

inline const PathInputs SamplePath{.distance = 10,
                                   .frequency = 450,
                                   .hb = 100,
                                   .hm = 1.5,
                                   .area = "Urban",
                                   .city = "Small/Medium"};
inline const ModelInputs SampleInputs = MetricInputs(SamplePath);

// A calculation with its line in the log.
inline void AddSampleLine(RLogClass& log, Clock& clock) {
    log.AddCalculation(
        LogLine(SamplePath, Calculation(SampleInputs, SamplePath.powerWatts), clock.Now()));
}

}  // namespace vardel
