#pragma once

#include <string>

#include "engine/PathInputs.h"
#include "engine/reach/LinkBudget.h"
#include "engine/reach/Reach.h"

namespace vardel {

// In what the service of a station is measured.
enum class ServiceQuantity { FieldStrength, ReceivedPower, PathLoss };
const char* NameOf(ServiceQuantity quantity);
const char* UnitOf(ServiceQuantity quantity);

// What a service asks for, as it is known.
struct Wanted {
    ServiceQuantity quantity = ServiceQuantity::FieldStrength;
    double value = 0.0;           // dB(µV/m), dBm or dB
    double antennaGainDbi = 0.0;  // of the receiver, for a received power
    double cableLossDb = 0.0;
};

// In words, for people.
std::string WantedText(const Wanted& wanted);

// The same as a goal for the models, on a path of that frequency and power.
Goal GoalOf(const Wanted& wanted, const PathInputs& path);

}  // namespace vardel
