#include "terrain/ElevationModule.h"

#include <dlfcn.h>

#include <filesystem>

namespace vardel {

namespace {

constexpr const char* ModuleName = "vardel-elevation.so";

std::string InstalledModule() {
    std::error_code none;
    const auto folder = std::filesystem::read_symlink("/proc/self/exe", none).parent_path();
    for (const auto& beside : {folder / ModuleName, folder / "modules" / ModuleName,
                               folder / "../lib/vardel/modules" / ModuleName})
        if (std::filesystem::exists(beside, none)) return beside.string();
    throw ElevationError("elevation data need the package vardel-terrain, which is not installed");
}

const ElevationModule& ModuleIn(const std::string& moduleFile) {
    // It stays for as long as the program runs: its libraries cannot be unloaded.
    void* const module = dlopen(moduleFile.c_str(), RTLD_NOW | RTLD_LOCAL);
    if (module == nullptr)
        throw ElevationError(std::string("the package vardel-terrain cannot be used: ") +
                             dlerror());
    const auto entry =
        reinterpret_cast<ElevationModuleEntry>(dlsym(module, ElevationModuleEntryName));
    const ElevationModule* const found = entry == nullptr ? nullptr : entry();
    if (found == nullptr || found->version != ElevationModuleVersion)
        throw ElevationError(
            "the package vardel-terrain is of another version; install that of this program");
    return *found;
}

}  // namespace

const ElevationModule& InstalledElevationModule() { return ModuleIn(InstalledModule()); }

std::unique_ptr<Elevations> OpenElevations(const std::vector<std::string>& paths) {
    return InstalledElevationModule().open(paths);
}

std::unique_ptr<Elevations> OpenElevationsWith(const std::string& moduleFile,
                                               const std::vector<std::string>& paths) {
    return ModuleIn(moduleFile).open(paths);
}

}  // namespace vardel
