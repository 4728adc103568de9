#include <gtest/gtest.h>

#include <QDir>
#include <QStandardPaths>

#include "qt/services/QtSettings.h"
#include "support/Shell.h"

namespace vardel {
namespace {

// Prints the host's text, or writes it where there is no file yet.
constexpr const char* Host =
    "python3 -c 'import configparser, sys\n"
    "host = configparser.RawConfigParser()\n"
    "if host.read(sys.argv[1]): print(host[\"A%20b\"][\"Text\"])\n"
    "else: host[\"A%20b\"] = {\"Text\": r\"C:\\data\\new;x, y\"}; host.write(open(sys.argv[1], "
    "\"w\"))' ";

TEST(QtSettings, AgreeWithAHostAndTellAFailure) {
    const QDir config(QStandardPaths::writableLocation(QStandardPaths::GenericConfigLocation));
    config.mkpath("vardel/A folder.ini");
    const std::string host = Host + config.filePath("vardel/Host.ini").toStdString();
    Output(host);
    QtSettings settings;
    EXPECT_EQ(settings.Read("Host", "A b", "Text"), "C:\\data\\new;x, y");
    for (const char* text : {"another", "C:\\data\\new;x, y"})
        settings.Write("Host", "A b", "Text", text);
    EXPECT_EQ(Output(host), "C:\\data\\new;x, y\n");
    settings.Delete("Host", "A b", "Text");
    EXPECT_EQ(settings.Read("Host", "A b", "Text"), "");
    settings.Write("A folder", "Section", "Key", "text");
    EXPECT_EQ(settings.FailedFile("A folder"),
              config.filePath("vardel/A folder.ini").toStdString());
    EXPECT_EQ(settings.FailedFile("Host"), "");
}

}  // namespace
}  // namespace vardel
