// The models with whatever numbers there are: what is no number gives none, and nothing else
// happens.

#include <cmath>
#include <cstdint>
#include <cstring>
#include <iterator>

#include "Check.h"
#include "models/ModCalculations.h"

using namespace vardel;

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    double numbers[6];
    if (size < sizeof numbers + 2) return 0;
    std::memcpy(numbers, data, sizeof numbers);
    constexpr const char* Areas[] = {"Urban", " Suburban ", "open", "Desert"};
    constexpr const char* Cities[] = {"Small/Medium", "Large", "Vast"};
    const auto [f, d, hb, hm, pctTime, pctLoc] = numbers;
    const ModelInputs in{f,
                         d,
                         hb,
                         hm,
                         Areas[data[sizeof numbers] % std::size(Areas)],
                         Cities[data[sizeof numbers + 1] % std::size(Cities)],
                         pctTime,
                         pctLoc};
    PowerWatts = 1000.0;
    const bool noNumber = std::isnan(f) || std::isnan(d) || std::isnan(hb) || std::isnan(pctTime);
    for (const ModelFunction function :
         {DavidsonLoss, DavidsonFieldStrength, Itu529Loss, Itu529FieldStrength, Cost231Loss,
          Cost231FieldStrength, UsLoss, UsFieldStrength})
        Check(!noNumber || std::isnan(function(in)));
    Check(!std::isnan(pctLoc) || std::isnan(LocationVariability(f, pctLoc, "Urban")));
    for (int model = -1; model <= static_cast<int>(Models.size()); ++model)
        Check(!noNumber || std::isnan(pctTime) ||
              !ModelInRange(model, in.f, in.hb, in.hm, in.d, in.area));
    return 0;
}
