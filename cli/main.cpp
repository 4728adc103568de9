#include <ctime>

#include "cli/Program.h"
#include "cli/Streams.h"
#include "terrain/ElevationModule.h"

namespace {

vardel::CalendarTime Now() {
    const std::time_t now = std::time(nullptr);
    std::tm local{};
    localtime_r(&now, &local);
    return {local.tm_year + 1900, local.tm_mon + 1, local.tm_mday,
            local.tm_hour,        local.tm_min,     local.tm_sec};
}

}  // namespace

int main(int argc, char** argv) {
    using namespace vardel::cli;
    return static_cast<int>(RunProgram(argc, argv,
                                       {.open = SourceOf,
                                        .output = StandardOutput(),
                                        .errors = StandardError(),
                                        .now = Now(),
                                        .ground = vardel::OpenElevations,
                                        .module = vardel::InstalledElevationModule,
                                        .progress = ProgressIsSeen()}));
}
