#include "models/Model.h"

#include "models/Cost231.h"
#include "models/Davidson.h"
#include "models/Itu529.h"
#include "models/UsVariant.h"

namespace vardel {

const std::array<Model, 4> Models = {{
    {ModelItu529,
     "ITU 529",
     Itu529LossWith,
     Itu529FieldStrengthWith,
     Itu529LossCurve,
     Itu529FieldStrengthCurve,
     {0, 128, 0}},
    {ModelDavidson,
     "Davidson",
     DavidsonLossWith,
     DavidsonFieldStrengthWith,
     DavidsonLossCurve,
     DavidsonFieldStrengthCurve,
     {255, 0, 0}},
    {ModelCost231,
     "Cost 231",
     Cost231LossWith,
     Cost231FieldStrengthWith,
     Cost231LossCurve,
     Cost231FieldStrengthCurve,
     {0, 0, 180}},
    {ModelUs, "US", UsLossWith, UsFieldStrengthWith, UsLossCurve, UsFieldStrengthCurve, {0, 0, 0}},
}};

}  // namespace vardel
