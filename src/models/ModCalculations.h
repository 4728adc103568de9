#pragma once

// The chief header of the propagation models: all that a caller of them needs. Units stand with the
// fields of ModelInputs. The models share PowerWatts and ModelTerms without a lock: call them from
// one thread at a time.

#include "models/Cost231.h"
#include "models/Davidson.h"
#include "models/Itu529.h"
#include "models/ModelInputs.h"
#include "models/ModelRanges.h"
#include "models/ModelTerms.h"
#include "models/Primitives.h"
#include "models/UsVariant.h"
#include "models/Variability.h"
