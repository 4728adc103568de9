#include "models/Model.h"

#include "models/ModelFunctions.h"
#include "models/paths/Cost231Path.h"
#include "models/paths/DavidsonPath.h"
#include "models/paths/Itu529Path.h"
#include "models/paths/MakeModel.h"
#include "models/paths/UsPath.h"

namespace vardel {

const std::array<Model, 4> Models = {
    MakeModel<Itu529Path>(ModelNumber::Itu529, "ITU 529", {0, 128, 0}),
    MakeModel<DavidsonPath>(ModelNumber::Davidson, "Davidson", {255, 0, 0}),
    MakeModel<Cost231Path>(ModelNumber::Cost231, "Cost 231", {0, 0, 180}),
    MakeModel<UsPath>(ModelNumber::Us, "US", {0, 0, 0}),
};

// The published names, with the terms and the power of the whole program.
double Itu529Loss(const ModelInputs& in) noexcept { return Itu529Path::Loss(in, ModelTerms); }
double Itu529FieldStrength(const ModelInputs& in) noexcept {
    return Itu529Path::FieldStrength(in, GetPowerWatts(), ModelTerms);
}
double DavidsonLoss(const ModelInputs& in) noexcept { return DavidsonPath::Loss(in, ModelTerms); }
double DavidsonFieldStrength(const ModelInputs& in) noexcept {
    return DavidsonPath::FieldStrength(in, GetPowerWatts(), ModelTerms);
}
double Cost231Loss(const ModelInputs& in) noexcept { return Cost231Path::Loss(in, ModelTerms); }
double Cost231FieldStrength(const ModelInputs& in) noexcept {
    return Cost231Path::FieldStrength(in, GetPowerWatts(), ModelTerms);
}
double UsLoss(const ModelInputs& in) noexcept { return UsPath::Loss(in, ModelTerms); }
double UsFieldStrength(const ModelInputs& in) noexcept {
    return UsPath::FieldStrength(in, GetPowerWatts(), ModelTerms);
}

}  // namespace vardel
