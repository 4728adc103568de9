#pragma once

#include <cstdlib>

// What must hold whatever the fuzzer brings.
inline void Check(bool good) {
    if (!good) std::abort();
}
