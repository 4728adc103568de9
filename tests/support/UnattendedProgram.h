#pragma once

#include <string>
#include <vector>

#include "forms/Program.h"
#include "forms/graphs/GraphForm.h"
#include "services/Files.h"
#include "support/Exports.h"
#include "support/ServicesIn.h"

namespace vardel {

// The real platform with a user who answers at once.
class UnattendedPlatform : public QtPlatform {
public:
    Answer ShowMessage(const Message& message) override {
        if (message.buttons == Message::Buttons::Ok) told.push_back(message.text);
        return message.buttons == Message::Buttons::YesNo ? yesNo : Answer::Ok;
    }
    std::optional<SaveChoice> AskSaveFile(const FileDialog&) override { return saveChoice; }
    std::optional<std::string> AskOpenFile(const FileDialog&) override { return archive; }
    std::string AskText(const TextQuestion&) override { return comment; }
    // With no event loop to end, Qt would let none wait that a window of a later test runs.
    void EndProgram() override {}

    std::vector<std::string> told;  // by messages that ask nothing
    Answer yesNo = Answer::Yes;
    SaveChoice saveChoice;
    std::string archive;
    std::string comment;
};

// The real program as it stands beside its user, with everything that it can save at hand.
struct UnattendedProgram {
    // The archive is in the folder, and the state in a folder there.
    explicit UnattendedProgram(const std::string& folder) : program(ServicesIn(folder, platform)) {
        platform.archive = folder + "/runs.mdb";
        ReplaceFile(folder + "/measured.csv", MeasuredExample);
        program.Start();
    }

    // The run's number, or 0 where it was not told as stored.
    int StoreRun(const std::string& comment) {
        GraphForm& graph = *program.GraphForm;
        platform.comment = comment;
        graph.ShowStatus({});
        graph.cmdArchiveData.SetVisible(true);
        graph.cmdArchiveData.Press();
        const std::string told = graph.lblStatus.Caption();
        return told.starts_with("Run ") ? std::stoi(told.substr(4)) : 0;
    }

    void Save(const Export& what, const std::string& folder) {
        platform.saveChoice = {folder + '/' + what.file, what.filterIndex};
        what.command(program);
    }

    UnattendedPlatform platform;
    Program program;
};

}  // namespace vardel
