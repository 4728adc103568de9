#include "archive/ArchiveEditor.h"

#include "services/Database.h"
#include "services/Files.h"

namespace vardel {

bool ArchiveEditor::MayWrite() const { return MayWriteFile(path_); }

void ArchiveEditor::SetComment(std::int64_t run, const std::string& comment) const {
    Database::OpenDatabase(path_).Change(
        {{"UPDATE ModelRun SET Comment = ?2 WHERE ID = ?1", {run, comment}},
         {"UPDATE DataSets SET Comment = ?2 WHERE ID = ?1", {run, comment}}});
}

void ArchiveEditor::DeleteRuns(const std::vector<std::int64_t>& runs) const {
    std::vector<RowChange> changes;
    for (const std::int64_t run : runs) {
        changes.push_back({"DELETE FROM DataSets WHERE ID = ?1", {run}});
        changes.push_back({"DELETE FROM ModelRun WHERE ID = ?1", {run}});
    }
    Database::OpenDatabase(path_).Change(changes);
}

}  // namespace vardel
