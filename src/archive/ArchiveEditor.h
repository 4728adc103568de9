#pragma once

#include <cstdint>
#include <string>
#include <vector>

namespace vardel {

// Changes to runs that are in an archive. Each opens the file, makes all of its changes or none,
// and throws std::exception with a text for the user where it cannot.
class ArchiveEditor {
public:
    explicit ArchiveEditor(std::string path) : path_(std::move(path)) {}

    // Whether the user may write the file at all. Throws nothing.
    bool MayWrite() const;
    // The comment of the run, and of its curves, which have it too.
    void SetComment(std::int64_t run, const std::string& comment) const;
    // The runs with their curves. A number that is there no more is none to delete.
    void DeleteRuns(const std::vector<std::int64_t>& runs) const;

private:
    std::string path_;
};

}  // namespace vardel
