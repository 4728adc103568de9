#pragma once

#include <array>
#include <optional>
#include <vector>

#include "engine/curves/Curves.h"
#include "engine/curves/Stretches.h"
#include "models/Model.h"

// The questions that a planner asks of a model backwards: how far does a station reach, how high
// must its mast be, how much power does it need.

namespace vardel {

// What a service asks of a path: a loss of at most, or a field strength of at least, the value.
struct Goal {
    Quantity quantity;
    double value;             // dB, or dB(µV/m)
    double powerWatts = 0.0;  // e.r.p., for a field strength

    static Goal AllowedLoss(double dB) { return {Quantity::Loss, dB}; }
    static Goal FieldStrength(double dBuVm, double powerWatts) {
        return {Quantity::FieldStrength, dBuVm, powerWatts};
    }
};

// Distances are looked at from the first of the field strength graphs to the last of all graphs.
constexpr double ShortestReach = 0.1;            // km
constexpr double FarthestReach = FarthestPoint;  // km

// How far a goal is met, and where.
struct Reach {
    enum class Outcome {
        Invalid,     // no answer: an input is NaN or not above zero
        Never,       // met at no distance
        Ends,        // met from the shortest distance to km
        Everywhere,  // met at every distance
        Late,        // not met near the station, but farther out up to km, at times the farthest
    };
    static constexpr std::array<const char*, 5> OutcomeNames = {"invalid", "never", "ends",
                                                                "everywhere", "late"};
    Outcome outcome = Outcome::Invalid;
    double km = 0.0;       // where service ends for the first time, so still met there; 0 for Never
    bool inRange = false;  // the model covers that distance, for Never the shortest
    // All of the service, to within a millimetre. Gaps and islands below a metre may be left out.
    std::vector<Stretch> served;

    // Whether it is met once more beyond km: the models' losses need not grow with the distance.
    bool Again() const { return served.size() > 1; }
};

// How far the goal is met, whatever in.d is. Safe on any thread.
Reach ReachOf(const Model& model, const ModelInputs& in, const Goal& goal);

// The same in free space at f in MHz. Its field strength is that of 1 kW, whatever the power.
Reach FreeSpaceReach(double f, const Goal& goal);

// Base heights are looked at between the limits of a calculation, see RefusalOf.
constexpr double LowestMast = 20.0;     // m
constexpr double HighestMast = 2500.0;  // m

// How high a base antenna meets a goal.
struct NeededHeight {
    enum class Outcome {
        Invalid,  // no answer, as above
        Never,    // met at no height
        Lowest,   // met already at the lowest height
        Found,    // met from the height on
    };
    static constexpr std::array<const char*, 4> OutcomeNames = {"invalid", "never", "lowest",
                                                                "found"};
    Outcome outcome = Outcome::Invalid;
    double metres = 0.0;   // the lowest height that meets the goal, 0 for Never
    bool inRange = false;  // the model covers that height, for Never the highest
    // All heights that meet the goal, as in Reach. A taller mast than the last of a stretch, short
    // of the highest, fails the goal again.
    std::vector<Stretch> served;
};

// How high the base antenna must be for the goal at in.d, whatever in.hb is. Safe on any thread.
NeededHeight BaseHeightFor(const Model& model, const ModelInputs& in, const Goal& goal);

// What power meets a goal.
struct NeededPower {
    double watts;  // e.r.p.
    bool inRange;  // the model covers the inputs
};

// The power for a field strength in dB(µV/m) at in.d. Nothing for an input that is NaN or not
// above zero, and for a power too small or large to be a number.
std::optional<NeededPower> PowerForFieldStrength(const Model& model, const ModelInputs& in,
                                                 double dBuVm);

}  // namespace vardel
