#pragma once

#include <functional>
#include <string>

#include "cli/batch/Batch.h"
#include "cli/options/Options.h"

// The commands that ask for the ground. Each writes all of its output at once, and says in the
// notes what the user is to know besides. Throws ElevationError, before anything is written.

namespace vardel::cli {

using NoteSink = std::function<void(const std::string& note)>;

// The heights that the options ask for, on so many azimuths where they do not say.
EffectiveHeightTable HeightsOf(const Options& options, Elevations& elevations,
                               std::size_t usualAzimuths);

// A row for each azimuth: the ground's average and the effective height.
void WriteHeights(const Options& options, Elevations& elevations, const Sink& output,
                  const NoteSink& notes);
// A row for each azimuth with the models' reaches, or their outlines for maps.
void WriteContour(const Options& options, Elevations& elevations, const Sink& output,
                  const NoteSink& notes);

}  // namespace vardel::cli
