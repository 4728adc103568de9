#include "engine/reach/Wanted.h"

#include "text/NumberText.h"

namespace vardel {

const char* NameOf(ServiceQuantity quantity) {
    if (quantity == ServiceQuantity::PathLoss) return "Path loss";
    return quantity == ServiceQuantity::FieldStrength ? "Field strength" : "Received power";
}

const char* UnitOf(ServiceQuantity quantity) {
    if (quantity == ServiceQuantity::PathLoss) return "dB";
    return quantity == ServiceQuantity::FieldStrength ? "dB(µV/m)" : "dBm";
}

std::string WantedText(const Wanted& wanted) {
    std::string text = ShortestText(wanted.value) + ' ' + UnitOf(wanted.quantity);
    if (wanted.quantity == ServiceQuantity::PathLoss) return text + " of path loss";
    if (wanted.quantity == ServiceQuantity::FieldStrength) return text;
    return text + ", antenna " + ShortestText(wanted.antennaGainDbi) + " dBi, cable " +
           ShortestText(wanted.cableLossDb) + " dB";
}

Goal GoalOf(const Wanted& wanted, const PathInputs& path) {
    if (wanted.quantity == ServiceQuantity::PathLoss) return Goal::AllowedLoss(wanted.value);
    const double dBuVm =
        wanted.quantity == ServiceQuantity::FieldStrength
            ? wanted.value
            : FieldStrengthForReceivedPower(
                  {path.frequency, wanted.antennaGainDbi, wanted.cableLossDb}, wanted.value);
    return Goal::FieldStrength(dBuVm, path.powerWatts);
}

}  // namespace vardel
