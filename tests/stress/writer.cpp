// The real program as a writer of files that others look at, with no user and no display.

#include <QApplication>
#include <QDir>
#include <cstdio>
#include <cstdlib>
#include <string_view>

#include "qt/services/QtPlatform.h"
#include "stress/Writers.h"

int main(int argc, char** argv) {
    if (argc < 4) {
        std::fprintf(stderr,
                     "usage: vardel_writer log|settings|archive|exports FOLDER CALL\n"
                     "       vardel_writer beside FOLDER ACTIONS SEED\n");
        return 2;
    }
    const std::string_view what = argv[1];
    const char* const folder = argv[2];
    for (const char* variable : {"XDG_STATE_HOME", "XDG_CONFIG_HOME"}) qputenv(variable, folder);
    qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication application(argc, argv);
    vardel::SetUpApplication(application);
    QDir().mkpath(folder);
    if (what != "beside") return vardel::SaveUntilKilled(what, folder, std::atol(argv[3]));
    const auto seed = static_cast<unsigned>(argc > 4 ? std::atoi(argv[4]) : 1);
    return vardel::WorkBesideOthers(std::atoi(argv[3]), seed, folder);
}
