#include <gtest/gtest.h>

#include <QDir>
#include <QStandardPaths>

#include "qt/services/QtSettings.h"

namespace vardel {
namespace {

TEST(QtSettings, KeepsEveryText) {
    QtSettings settings;
    for (const std::string text :
         {"450.0", "  ", " a b ", "x,y", "a;b=c", "\"q\"", "é\\n", "True"}) {
        settings.Write("App name", "Some Section", "Key_1", text);
        EXPECT_EQ(settings.Read("App name", "Some Section", "Key_1"), text);
    }
    settings.Delete("App name", "Some Section", "Key_1");
    EXPECT_EQ(settings.Read("App name", "Some Section", "Key_1"), "");
    EXPECT_EQ(settings.Read("Nobody", "Nothing", "Key"), "");
    EXPECT_FALSE(settings.HasFailed());
    const QDir config(QStandardPaths::writableLocation(QStandardPaths::GenericConfigLocation));
    config.mkpath("vardel/A folder.ini");
    settings.Write("A folder", "Section", "Key", "text");
    EXPECT_TRUE(settings.HasFailed());
}

}  // namespace
}  // namespace vardel
