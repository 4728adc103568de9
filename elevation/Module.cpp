#include "elevation/GdalRasters.h"
#include "elevation/GdalWriters.h"
#include "terrain/ElevationModule.h"

namespace {

std::unique_ptr<vardel::Elevations> Open(const std::vector<std::string>& paths) {
    return vardel::elevation::OpenRasters(paths);
}

constexpr vardel::ElevationModule Module = {
    vardel::ElevationModuleVersion,   Open,
    vardel::elevation::SystemOf,      vardel::elevation::CreateRaster,
    vardel::elevation::ConvertRaster, vardel::elevation::WriteLines,
};

}  // namespace

extern "C" __attribute__((visibility("default"))) const vardel::ElevationModule*
VardelElevationModule() {
    return &Module;
}
