#pragma once

#include "ModelInputs.h"
#include "Primitives.h"
#include "Variability.h"

// What the ITU-R P.529 and the COST 231 formulas have in common besides their antenna terms.

namespace vardel {

// The fields of ModelTerms that one function writes.
struct P529Fields {
    double& areaTerm;     // dB
    double& exponent;     // of log d
    double& effectiveHb;  // m, written beyond 20 km only
};

struct P529Statistics {
    double time;      // dB, see TimeVariability
    double location;  // dB, see LocationVariability
};

inline P529Statistics AssignP529Terms(const P529Fields& fields, Area area,
                                      const ModelInputs& in) noexcept {
    fields.areaTerm = AreaCorrection(area, in.f);
    fields.exponent = PathExponent(in.f, in.d, in.hb, fields.effectiveHb);
    return {TimeVariability(in.d, in.pctTime), LocationVariability(in.f, in.pctLoc, in.area)};
}

}  // namespace vardel
