#include "terrain/ElevationModule.h"

#include <gmock/gmock.h>

namespace vardel {
namespace {

std::string FaultOf(const std::string& module) {
    try {
        OpenElevationsWith(module, {"tiles"});
    } catch (const ElevationError& error) {
        return error.what();
    }
    return {};
}

TEST(ElevationModule, IsRefusedInWords) {
    EXPECT_THAT(FaultOf(OLD_MODULE), testing::HasSubstr("vardel-terrain is of another version"));
    EXPECT_THAT(FaultOf("/nowhere/vardel-elevation.so"),
                testing::HasSubstr("vardel-terrain cannot be used: /nowhere/vardel-elevation.so"));
    EXPECT_THAT(FaultOf("libm.so.6"), testing::HasSubstr("vardel-terrain is of another version"));
    EXPECT_THROW(OpenElevations({"tiles"}), ElevationError);
}

}  // namespace
}  // namespace vardel
