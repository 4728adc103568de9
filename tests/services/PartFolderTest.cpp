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
    // A device, or a pipe, is no file to be replaced.
    EXPECT_THROW(PartFolder("/dev/null"), std::system_error);
    // A link stays one, and the permissions stay those of the file.
    std::filesystem::permissions(file, std::filesystem::perms::owner_all);
    const std::string link = scratch.Path("link.tif");
    std::filesystem::create_symlink(file, link);
    {
        PartFolder behind(link);
        std::ofstream(behind.Path("made")) << "newest";
        behind.Replace("made");
    }
    EXPECT_TRUE(std::filesystem::is_symlink(link));
    EXPECT_EQ(ReadWholeFile(file), "newest");
    EXPECT_EQ(std::filesystem::status(file).permissions(), std::filesystem::perms::owner_all);
}

}  // namespace
}  // namespace vardel
