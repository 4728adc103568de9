#include <algorithm>
#include <cstdio>
#include <functional>
#include <map>

#include "forms/main/MainForm.h"
#include "forms/reports/FrmReport.h"
#include "stress/Writers.h"
#include "support/UnattendedProgram.h"

namespace vardel {

namespace {

void Tell(const char* word, const std::string& what) {
    std::printf("%s %s\n", word, what.c_str());
    std::fflush(stdout);
}

std::string LogLines(UnattendedProgram& running) {
    const std::string& log = running.program.FrmReport->rtbLog.Text();
    return std::to_string(std::count(log.begin(), log.end(), '\n'));
}

void SaveLog(UnattendedProgram& running, const std::string&) {
    running.program.MainForm->cmdLossCalc.Press();
    Tell("saved", LogLines(running));
}

// The next whole number as the frequency, in the program's own settings and in the host's.
void SaveSettings(UnattendedProgram& running, const std::string&) {
    TextBox& frequency = running.program.MainForm->txtFreq;
    frequency.SetText(std::to_string(std::stoi(frequency.Text()) + 1));
    running.program.EndSession();
    Tell("saved", frequency.Text());
}

void StoreRun(UnattendedProgram& running, const std::string&) {
    Tell("saved", std::to_string(running.StoreRun("a comment")));
}

void SaveExports(UnattendedProgram& running, const std::string& folder) {
    for (const Export& what : Exports()) {
        running.Save(what, folder);
        Tell("saved", what.file);
    }
}

}  // namespace

int SaveUntilKilled(std::string_view what, const std::string& folder, long call) {
    static const std::map<std::string_view,
                          std::function<void(UnattendedProgram&, const std::string&)>>
        saves = {{"log", SaveLog},
                 {"settings", SaveSettings},
                 {"archive", StoreRun},
                 {"exports", SaveExports}};
    const auto save = saves.find(what);
    if (save == saves.end()) return 2;
    UnattendedProgram running(folder);
    Tell("found", LogLines(running));
    if (what == "exports") {
        running.program.MainForm->cmdLossCalc.Press();
        running.StoreRun("a comment");
    }
    DieAtFileCall(call);
    do {
        save->second(running, folder);
    } while (call >= 0 && running.platform.told.empty());
    for (const std::string& text : running.platform.told) Tell("failed", text);
    return running.platform.told.empty() ? 0 : 1;
}

}  // namespace vardel
