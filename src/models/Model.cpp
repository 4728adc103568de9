#include "models/Model.h"

#include "models/Cost231.h"
#include "models/Davidson.h"
#include "models/Itu529.h"
#include "models/UsVariant.h"

namespace vardel {

const std::array<Model, 4> Models = {{
    {ModelNumber::Itu529,
     "ITU 529",
     Itu529LossWith,
     Itu529FieldStrengthWith,
     Itu529LossCurve,
     Itu529FieldStrengthCurve,
     Itu529LossCurve,
     Itu529FieldStrengthCurve,
     Itu529LossTerms,
     Itu529FieldStrengthTerms,
     {0, 128, 0}},
    {ModelNumber::Davidson,
     "Davidson",
     DavidsonLossWith,
     DavidsonFieldStrengthWith,
     DavidsonLossCurve,
     DavidsonFieldStrengthCurve,
     DavidsonLossCurve,
     DavidsonFieldStrengthCurve,
     DavidsonLossTerms,
     DavidsonFieldStrengthTerms,
     {255, 0, 0}},
    {ModelNumber::Cost231,
     "Cost 231",
     Cost231LossWith,
     Cost231FieldStrengthWith,
     Cost231LossCurve,
     Cost231FieldStrengthCurve,
     Cost231LossCurve,
     Cost231FieldStrengthCurve,
     Cost231LossTerms,
     Cost231FieldStrengthTerms,
     {0, 0, 180}},
    {ModelNumber::Us,
     "US",
     UsLossWith,
     UsFieldStrengthWith,
     UsLossCurve,
     UsFieldStrengthCurve,
     UsLossCurve,
     UsFieldStrengthCurve,
     UsLossTerms,
     UsFieldStrengthTerms,
     {0, 0, 0}},
}};

}  // namespace vardel
