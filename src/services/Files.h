#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace vardel {

// Who may read and write a new file: whom the user's umask lets, or the user alone.
enum class Access { AsUsual, OwnerOnly };

// Whether there is anything of that path.
bool FileExists(const std::string& path);

// Whether the user may write the file. The superuser may write everything, so for him the
// permissions speak.
bool MayWriteFile(const std::string& path);

// Whether the path still names the file that the descriptor has open, and no other that was put in
// its place since.
bool StillNames(const std::string& path, int descriptor);

// The whole content; nothing when the file cannot be read.
std::optional<std::string> ReadWholeFile(const std::string& path);

// Makes an empty file with a name of its own in the folder, which is made where it is missing; both
// for the user alone. Returns its path, or an empty text where that fails.
std::string NewUniqueFile(const std::string& folder);

// Keeps the other programs that take one of the same folder waiting for as long as it lives: for a
// file there that is read, changed and written again. Where none can be had, nobody waits.
class FolderLock {
public:
    explicit FolderLock(const std::string& folder);
    FolderLock(const FolderLock&) = delete;
    FolderLock& operator=(const FolderLock&) = delete;
    ~FolderLock();

private:
    int folder_;
};

// Writes the content beside the file, flushes it to the disk and renames it over, so that at every
// moment the path holds all of the old or all of the new. A file that may not be written stays. A
// file that is replaced keeps its permissions; access is for a new one. Throws std::system_error,
// and then the old file stands as it was.
void ReplaceFile(const std::string& path, std::string_view content,
                 Access access = Access::AsUsual);

// A folder beside a file, for what a library writes there until it is whole and takes the file's
// place. It goes at the end with all that is in it; one that a killed program left is taken up.
class PartFolder {
public:
    // Throws std::system_error, also for a file that may not be written.
    explicit PartFolder(const std::string& file);
    PartFolder(const PartFolder&) = delete;
    PartFolder& operator=(const PartFolder&) = delete;
    ~PartFolder();

    std::string Path(const std::string& name) const { return folder_ + '/' + name; }
    // Flushes what lies there under the name to the disk and renames it over the file. Throws
    // std::system_error.
    void Replace(const std::string& name);
    // The same over another file of the same folder.
    void Replace(const std::string& name, const std::string& file);

private:
    std::string file_;
    std::string folder_;
    int lock_ = -1;
};

// With what a program that was killed while replacing it has left beside. A file that has gone is
// no error.
void RemoveFile(const std::string& path);

}  // namespace vardel
