#pragma once

// The chief header of the propagation models: all that a caller of them needs. Units stand with the
// fields of ModelInputs. The functions that take nothing but these share PowerWatts and ModelTerms
// without a lock: call them from one thread at a time. Those of the table of models may be called
// from any thread.

#include "Model.h"
#include "ModelFunctions.h"
#include "ModelInputs.h"
#include "ModelRanges.h"
#include "ModelTerms.h"
#include "Primitives.h"
#include "Variability.h"
