#include <gtest/gtest.h>

#include <QDir>
#include <QStandardPaths>

#include "qt/services/QtSettings.h"
#include "support/Shell.h"

namespace vardel {
namespace {

// A host's file as Python's configparser writes and reads it, with a comment above it.
constexpr const char* Python =
    "python3 -c 'import configparser, sys\n"
    "host = configparser.RawConfigParser()\n"
    "host.optionxform = str\n"
    "if host.read(sys.argv[1]): print(host[\"Some%20Section\"][\"Text\"], "
    "open(sys.argv[1]).read(6))\n"
    "else:\n"
    "    host[\"Some%20Section\"] = {\"Text\": r\"C:\\data\\new;x, y\"}\n"
    "    file = open(sys.argv[1], \"w\"); file.write(\"# host\\n\"); host.write(file)' ";

TEST(QtSettings, KeepsEveryText) {
    const QDir config(QStandardPaths::writableLocation(QStandardPaths::GenericConfigLocation));
    config.mkpath("vardel/A folder.ini");
    const std::string python = Python + config.filePath("vardel/Host.ini").toStdString();
    Output(python);
    QtSettings settings;
    EXPECT_EQ(settings.Read("Host", "Some Section", "Text"), "C:\\data\\new;x, y");
    for (const std::string text :
         {"450.0", "  ", " a b ", "x,y", "a;b=c", "\"q\"", "é\\n", "True", "C:\\data\\new;x, y"}) {
        settings.Write("Host", "Some Section", "Key_1", text);
        EXPECT_EQ(settings.Read("Host", "Some Section", "Key_1"), text);
        settings.Write("Host", "Some Section", "Text", text);
    }
    EXPECT_EQ(Output(python), "C:\\data\\new;x, y # host\n");
    settings.Delete("Host", "Some Section", "Key_1");
    EXPECT_EQ(settings.Read("Host", "Some Section", "Key_1"), "");
    EXPECT_EQ(settings.Read("Nobody", "Nothing", "Key"), "");
    settings.Write("A folder", "Section", "Key", "text");
    EXPECT_EQ(settings.FailedFile("A folder"),
              config.filePath("vardel/A folder.ini").toStdString());
    EXPECT_EQ(settings.FailedFile("Host"), "");
}

}  // namespace
}  // namespace vardel
