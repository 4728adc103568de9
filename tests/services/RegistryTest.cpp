#include "services/settings/Registry.h"

#include <gtest/gtest.h>

#include "support/FakePlatform.h"

namespace vardel {
namespace {

TEST(RegistryCursor, ReadsAndWritesWhereItStands) {
    FakePlatform platform;
    Registry registry(platform);
    registry.SetSetting("kept");
    EXPECT_EQ(registry.Param("Freq"), "") << "there is no application yet";
    registry.SetAppname("App");
    registry.SetSection("Part");
    EXPECT_EQ(registry.Param(""), "");
    EXPECT_EQ(registry.Setting(), "kept");
    registry.SetParam("Freq", " 7 ");
    EXPECT_EQ(registry.Key() + registry.Setting(), "Freq 7 ");
    registry.SetSetting("");
    registry.RegGet();
    EXPECT_EQ(registry.Setting(), " 7 ");
    registry.RegDel();
    EXPECT_EQ(registry.Param("Freq"), "");
    EXPECT_EQ(registry.QuorneGlobalValue("Unknown"), GlobalValue());
    registry.SetQuorneGlobal("Sorvik_Drive", "2.5");
    EXPECT_EQ(registry.QuorneGlobalValue("Sorvik_Drive"), GlobalValue(std::int16_t{2}));
    registry.SetQuorneGlobal("Sorvik_Drive", 40000.0);
    EXPECT_EQ(registry.QuorneGlobalValue("Sorvik_Drive"), GlobalValue(std::int16_t{2}));
}

}  // namespace
}  // namespace vardel
