#include "elevation/GdalRasters.h"
#include "terrain/ElevationModule.h"

namespace {

std::unique_ptr<vardel::Elevations> Open(const std::vector<std::string>& paths) {
    return vardel::elevation::OpenRasters(paths);
}

constexpr vardel::ElevationModule Module = {vardel::ElevationModuleVersion, Open};

}  // namespace

extern "C" __attribute__((visibility("default"))) const vardel::ElevationModule*
VardelElevationModule() {
    return &Module;
}
