#include "services/settings/IniText.h"

#include <gtest/gtest.h>

namespace vardel {
namespace {

TEST(IniText, ChangesOneValueAndNothingElse) {
    const std::string before =
        "\xEF\xBB\xBF[Other]\r\nPath=1\r\n[global%20parameters] # as it was\r\n# Path = 2\r\n"
        "foreign\r\nPATH : C:\\data\\new;x, y \r\n\r\n# Of the next\r\n[Last]\r\nPath=3";
    IniText ini(before);
    EXPECT_TRUE(ini.SetValue("Global Parameters", "Path", "C:\\data\\new;x, y"));
    EXPECT_EQ(ini.Text(), before);
    EXPECT_TRUE(ini.SetValue("Global Parameters", "Path", "  "));
    EXPECT_TRUE(ini.SetValue("Global Parameters", "New", "\"q\""));
    EXPECT_TRUE(ini.SetValue("A new", "Key", ""));
    EXPECT_EQ(ini.Value("Global Parameters", "Path"), "  ");
    EXPECT_EQ(ini.Value("Global Parameters", "New"), "\"q\"");
    EXPECT_FALSE(ini.SetValue("Last", "Path", "two\nlines"));
    EXPECT_EQ(ini.Text(),
              "\xEF\xBB\xBF[Other]\r\nPath=1\r\n[global%20parameters] # as it was\r\n# Path = 2\r\n"
              "foreign\r\nPATH : \"  \" \r\nNew=\"\"q\"\"\r\n\r\n# Of the next\r\n[Last]\r\nPath=3"
              "\r\n\r\n[A%20new]\r\nKey=\r\n");
    EXPECT_FALSE(IniText(std::string("[\0A\0]\0", 6)).SetValue("A", "Key", "text")) << "UTF-16";
}

}  // namespace
}  // namespace vardel
