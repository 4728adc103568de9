#pragma once

#include <string>

#include "qt/services/QtPlatform.h"

namespace vardel {

// The real platform's, as if the program stood in the folder and kept its state in one there.
inline Platform ServicesIn(const std::string& folder, QtPlatform& platform) {
    Platform services = platform.Services();
    services.programDirectory = folder;
    services.stateDirectory = folder + "/state";
    return services;
}

}  // namespace vardel
