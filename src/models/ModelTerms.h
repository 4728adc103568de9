#pragma once

namespace vardel {

// The intermediate terms of the models, in dB but for the exponents (no unit) and the effective
// base heights (m). A model function writes only its own fields. A field that a call does not
// assign keeps what the previous call of the same function left in it: the antenna terms of
// Davidson and ITU-R P.529 depend on this when an urban city size is neither of the known ones.
struct ModelTermsRecord {
    double DavAntennaTerm = 0.0;
    double DavAreaTerm = 0.0;
    double DavDistanceTerm = 0.0;
    double DavHeightTerm = 0.0;
    double DavFreqDistTerm = 0.0;

    double ItuLossAntennaTerm = 0.0;
    double ItuLossAreaTerm = 0.0;
    double ItuLossExponent = 0.0;
    double ItuLossEffectiveHb = 0.0;
    double ItuFsAntennaTerm = 0.0;
    double ItuFsAreaTerm = 0.0;
    double ItuFsExponent = 0.0;
    double ItuFsEffectiveHb = 0.0;

    double UsLossAreaTerm = 0.0;
    double UsFsAreaTerm = 0.0;

    double CostLossAntennaTerm = 0.0;
    double CostLossAreaTerm = 0.0;
    double CostLossExponent = 0.0;
    double CostLossEffectiveHb = 0.0;
    double CostFsAntennaTerm = 0.0;
    double CostFsAreaTerm = 0.0;
    double CostFsExponent = 0.0;
    double CostFsEffectiveHb = 0.0;
};

// One record for the life of the program, all zero at its start. Not safe to share between threads.
extern ModelTermsRecord ModelTerms;

}  // namespace vardel
