#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>

#include "services/Files.h"
#include "support/FakePlatform.h"

namespace vardel {
namespace {

TEST(PartFolder, HoldsWhatIsMadeUntilItTakesThePlace) {
    const ScratchFolder scratch;
    const std::string file = scratch.Path("area.tif");
    std::ofstream(file) << "old";
    std::string left;
    {
        PartFolder folder(file), other(file);
        left = folder.Path("made");
        EXPECT_NE(left, other.Path("made"));
        std::ofstream(left) << "new";
        std::ofstream(folder.Path("rest")) << "rest";
        EXPECT_EQ(ReadWholeFile(file), "old");
        folder.Replace("made");
        EXPECT_EQ(ReadWholeFile(file), "new");
        EXPECT_THROW(folder.Replace("made"), std::system_error);
    }
    // One that a killed program left is taken up, and goes.
    const auto folder = std::filesystem::path(left).parent_path();
    EXPECT_FALSE(std::filesystem::exists(folder));
    std::filesystem::create_directory(folder);
    std::ofstream(left) << "left";
    EXPECT_FALSE(FileExists(PartFolder(file).Path("made")));
    EXPECT_FALSE(std::filesystem::exists(folder));
    EXPECT_THROW(PartFolder(scratch.Path("")), std::system_error);
}

}  // namespace
}  // namespace vardel
