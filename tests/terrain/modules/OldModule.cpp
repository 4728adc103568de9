// A module of a program of long ago, whose further members would be something else.

#include "terrain/ElevationModule.h"

extern "C" const int* VardelElevationModule() {
    static constexpr int Old = vardel::ElevationModuleVersion - 1;
    return &Old;
}
