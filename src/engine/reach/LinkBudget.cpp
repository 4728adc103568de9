#include "engine/reach/LinkBudget.h"

#include "models/Primitives.h"

namespace vardel {

namespace {

// What an isotropic antenna makes of a field strength, see the header: dB(µV/m) less dBm.
double IsotropicTerm(double f) noexcept { return 77.2 + 20.0 * Log10(f); }

double GainOf(const Receiver& receiver) noexcept {
    return receiver.antennaGainDbi - receiver.cableLossDb;
}

}  // namespace

double FieldStrengthForReceivedPower(const Receiver& receiver, double powerDbm) noexcept {
    return powerDbm + IsotropicTerm(receiver.f) - GainOf(receiver);
}

double ReceivedPower(const Receiver& receiver, double dBuVm) noexcept {
    return dBuVm - IsotropicTerm(receiver.f) + GainOf(receiver);
}

double AllowedLoss(double f, double powerWatts, double dBuVm) noexcept {
    const double eirpDbm = 10.0 * Log10(powerWatts) + 30.0 + 2.15;
    return eirpDbm - (dBuVm - IsotropicTerm(f));
}

}  // namespace vardel
