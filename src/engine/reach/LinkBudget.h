#pragma once

// Between a receiver's input and the field strength at its antenna.
//
// Source: ITU-R Recommendation P.525, "Calculation of free-space attenuation": the power that an
// isotropic antenna receives is Pr(dBW) = E(dB(µV/m)) - 20 log f(GHz) - 167.2. In dBm and MHz that
// is the constant 77.2, as engineers know it; exactly it is 77.216, by c and 376.73 ohms.

namespace vardel {

// What stands between a field and the power at an input.
struct Receiver {
    double f;                     // MHz, above zero
    double antennaGainDbi = 0.0;  // dB over an isotropic antenna
    double cableLossDb = 0.0;     // between antenna and receiver
};

// The field strength in dB(µV/m) that gives the receiver a power in dBm. Not finite where an input
// is not, or where f is not above zero.
double FieldStrengthForReceivedPower(const Receiver& receiver, double powerDbm) noexcept;

// The power in dBm that the receiver gets of a field strength in dB(µV/m); not finite likewise.
double ReceivedPower(const Receiver& receiver, double dBuVm) noexcept;

// The path loss in dB between isotropic antennas that a power in watts e.r.p. may suffer for a
// field strength in dB(µV/m) at f in MHz; not finite likewise. A half-wave dipole, of which an
// e.r.p. refers to, has a gain of 2.15 dBi.
double AllowedLoss(double f, double powerWatts, double dBuVm) noexcept;

}  // namespace vardel
