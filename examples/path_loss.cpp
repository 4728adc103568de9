// The path loss and the field strength of a 450 MHz base station at 10 km, by three models.
//
//     c++ -std=c++20 path_loss.cpp $(pkg-config --cflags --libs vardel-models) -o path_loss

#include <vardel/models/ModCalculations.h>
#include <cstdio>

int main() {
    using namespace vardel;
    const ModelInputs in{.f = 450,
                         .d = 10,
                         .hb = 100,
                         .hm = 1.5,
                         .area = "Urban",
                         .city = "Small/Medium",
                         .pctTime = 50,
                         .pctLoc = 50};
    PowerWatts = 1000;  // e.r.p.
    std::printf("ITU-R P.529  %.2f dB  %.2f dB(uV/m)\n", Itu529Loss(in), Itu529FieldStrength(in));
    std::printf("Davidson     %.2f dB  %.2f dB(uV/m)\n", DavidsonLoss(in),
                DavidsonFieldStrength(in));
    std::printf("COST 231     %.2f dB  %.2f dB(uV/m)%s\n", Cost231Loss(in),
                Cost231FieldStrength(in),
                InRange(ModelOf(ModelNumber::Cost231), in) ? "" : "  out of range");
}
