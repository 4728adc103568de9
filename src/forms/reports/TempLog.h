#pragma once

#include <optional>
#include <string>
#include <vector>

#include "services/FileClaim.h"

namespace vardel {

// The file of the report log, in the user's own state folder: a retained log has to outlive a
// reboot. Two programs that run at once never have the same one.
class TempLog {
public:
    explicit TempLog(std::string folder) : folder_(std::move(folder)) {}

    // The log of the last run, when it is there and no other program has it.
    bool Continue(const std::string& path);
    // A log that a program left behind unasked: the youngest that holds
    // anything.
    bool TakeUpOrphan();
    // An empty file with a new name. False where the folder cannot be written; there is no file
    // then.
    bool Begin();

    // The path of a new empty file in the folder; empty where that cannot be written.
    std::string GetTempLogName() const;

    // Empty: there is none.
    std::string Path() const { return claim_ ? claim_->Path() : std::string(); }

    // For a file that is no log: gives it a name that no start takes up, and lets go of it. Returns
    // the new path, or the old one where it cannot be renamed; TakeUpOrphan passes over that too.
    std::string SetAside();
    // A file that has gone meanwhile is no error.
    void Delete();

private:
    std::string folder_;
    std::optional<FileClaim> claim_;
    std::vector<std::string> refused_;  // that keep their names
};

}  // namespace vardel
