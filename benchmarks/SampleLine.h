#pragma once

#include "engine/LogLine.h"

namespace vardel {

inline const LogLine SampleLine{.distance = 10,
                                .frequency = 450,
                                .hb = 100,
                                .hm = 1.5,
                                .english = false,
                                .inputs = {450, 10, 100, 1.5, "Urban", "Small/Medium", 50, 50},
                                .powerWatts = 1000};

}  // namespace vardel
