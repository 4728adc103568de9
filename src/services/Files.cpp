#include "services/Files.h"

#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <filesystem>
#include <system_error>
#include <utility>

namespace vardel {

namespace {

namespace fs = std::filesystem;

[[noreturn]] void Fail(const std::string& path, int error = errno) {
    throw std::system_error(error, std::generic_category(), path);
}

class Descriptor {
public:
    explicit Descriptor(int fd) : fd_(fd) {}
    Descriptor(Descriptor&& other) noexcept : fd_(std::exchange(other.fd_, -1)) {}
    ~Descriptor() {
        if (fd_ >= 0) ::close(fd_);
    }
    int Get() const { return fd_; }
    bool Valid() const { return fd_ >= 0; }

private:
    int fd_;
};

// Without the ending that parts have.
std::string PartBase(const fs::path& target) {
    return (target.parent_path() / ("." + target.filename().string().substr(0, 200))).string();
}

constexpr int MostWriters = 100;  // at once

std::string PartPath(const std::string& base, int number) {
    return base + (number == 0 ? ".part" : "." + std::to_string(number) + ".part");
}

struct PartFile {
    Descriptor file;
    std::string path;
};

// Opens the file that is written before it is renamed, for this program alone. Its name is fixed,
// so that a program killed while writing leaves at most one, which the next save takes up; only
// where another program is writing just now comes a number behind it, which the next save sweeps.
PartFile OpenPart(const fs::path& target, mode_t mode) {
    const std::string base = PartBase(target);
    for (int number = 0; number < MostWriters; ++number) {
        const std::string path = PartPath(base, number);
        Descriptor file(::open(path.c_str(), O_WRONLY | O_CREAT | O_CLOEXEC | O_NOFOLLOW, mode));
        if (!file.Valid()) Fail(path);
        if (::flock(file.Get(), LOCK_EX | LOCK_NB) != 0) continue;
        // The other program may have renamed it between the opening and the locking.
        if (!StillNames(path, file.Get())) continue;
        if (::ftruncate(file.Get(), 0) != 0) Fail(path);
        return {std::move(file), path};
    }
    Fail(base, EBUSY);
}

void WriteAll(int fd, std::string_view content, const std::string& path) {
    while (!content.empty()) {
        const ssize_t written = ::write(fd, content.data(), content.size());
        if (written < 0 && errno == EINTR) continue;
        if (written < 0) Fail(path);
        content.remove_prefix(static_cast<std::size_t>(written));
    }
}

// What programs left that were killed while they wrote beside another.
void SweepParts(const fs::path& target) {
    const std::string base = PartBase(target);
    for (int number = 1; number < MostWriters; ++number) {
        const std::string path = PartPath(base, number);
        const Descriptor file(::open(path.c_str(), O_WRONLY | O_CLOEXEC | O_NOFOLLOW));
        if (file.Valid() && ::flock(file.Get(), LOCK_EX | LOCK_NB) == 0 &&
            StillNames(path, file.Get()))
            ::unlink(path.c_str());
    }
}

// What is to be replaced under a path; a link stays one. Fails where that is no file, or may not be
// written.
fs::path TargetOf(const std::string& path) {
    std::error_code ignored;
    fs::path target = path;
    if (fs::is_symlink(target, ignored)) {
        const fs::path pointedTo = fs::canonical(target, ignored);
        if (!pointedTo.empty()) target = pointedTo;
    }
    struct stat status {};
    if (::stat(target.c_str(), &status) != 0) return target;
    if (!S_ISREG(status.st_mode)) Fail(path, S_ISDIR(status.st_mode) ? EISDIR : EINVAL);
    if (!MayWriteFile(target.string())) Fail(path, EACCES);
    return target;
}

// The renaming is on the disk once its folder is.
void FlushFolder(const fs::path& folder) {
    const Descriptor fd(::open(folder.empty() ? "." : folder.c_str(), O_RDONLY | O_DIRECTORY));
    if (fd.Valid()) ::fsync(fd.Get());
}

}  // namespace

bool FileExists(const std::string& path) {
    std::error_code ignored;
    return fs::exists(path, ignored);
}

bool MayWriteFile(const std::string& path) {
    struct stat status {};
    return ::stat(path.c_str(), &status) == 0 && (status.st_mode & 0222) != 0 &&
           ::access(path.c_str(), W_OK) == 0;
}

bool StillNames(const std::string& path, int descriptor) {
    struct stat opened {
    }, named{};
    return ::fstat(descriptor, &opened) == 0 && ::stat(path.c_str(), &named) == 0 &&
           opened.st_ino == named.st_ino;
}

std::optional<std::string> ReadWholeFile(const std::string& path) {
    const Descriptor file(::open(path.c_str(), O_RDONLY | O_CLOEXEC));
    if (!file.Valid()) return std::nullopt;
    std::string content;
    std::array<char, 65536> buffer;
    for (;;) {
        const ssize_t got = ::read(file.Get(), buffer.data(), buffer.size());
        if (got == 0) return content;
        if (got > 0)
            content.append(buffer.data(), static_cast<std::size_t>(got));
        else if (errno != EINTR)
            return std::nullopt;
    }
}

std::string NewUniqueFile(const std::string& folder) {
    std::error_code error;
    if (fs::create_directories(folder, error)) fs::permissions(folder, fs::perms::owner_all, error);
    std::string path = folder + "/logXXXXXX.rtf";
    constexpr int SuffixLength = 4;
    const Descriptor file(::mkostemps(path.data(), SuffixLength, O_CLOEXEC));
    return file.Valid() ? path : std::string();
}

FolderLock::FolderLock(const std::string& folder)
    : folder_(::open(folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC)) {
    while (folder_ >= 0 && ::flock(folder_, LOCK_EX) != 0 && errno == EINTR) {
    }
}

FolderLock::~FolderLock() {
    if (folder_ >= 0) ::close(folder_);
}

void ReplaceFile(const std::string& path, std::string_view content, Access access) {
    const fs::path target = TargetOf(path);
    struct stat status {};
    const bool replaces = ::stat(target.c_str(), &status) == 0;

    PartFile part = OpenPart(target, access == Access::OwnerOnly ? 0600 : 0666);
    try {
        const mode_t mode = replaces ? status.st_mode & 07777 : 0600;
        if ((replaces || access == Access::OwnerOnly) && ::fchmod(part.file.Get(), mode) != 0)
            Fail(path);
        WriteAll(part.file.Get(), content, path);
        if (::fsync(part.file.Get()) != 0) Fail(path);
        if (::rename(part.path.c_str(), target.c_str()) != 0) Fail(path);
    } catch (...) {
        ::unlink(part.path.c_str());
        throw;
    }
    FlushFolder(target.parent_path());
    SweepParts(target);
}

PartFolder::PartFolder(const std::string& file) : file_(file) {
    const fs::path target = TargetOf(file);
    for (int number = 0; number < MostWriters; ++number) {
        folder_ = PartPath(PartBase(target) + ".d", number);
        if (::mkdir(folder_.c_str(), 0700) != 0 && errno != EEXIST) Fail(file);
        Descriptor folder(::open(folder_.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC | O_NOFOLLOW));
        if (!folder.Valid()) Fail(file);
        if (::flock(folder.Get(), LOCK_EX | LOCK_NB) != 0 || !StillNames(folder_, folder.Get()))
            continue;
        lock_ = ::fcntl(folder.Get(), F_DUPFD_CLOEXEC, 0);
        for (const auto& left : fs::directory_iterator(folder_)) fs::remove_all(left);
        return;
    }
    Fail(file, EBUSY);
}

PartFolder::~PartFolder() {
    std::error_code ignored;
    fs::remove_all(folder_, ignored);
    if (lock_ >= 0) ::close(lock_);
}

void PartFolder::Replace(const std::string& name) { Replace(name, file_); }

void PartFolder::Replace(const std::string& name, const std::string& file) {
    const std::string made = Path(name);
    const fs::path target = TargetOf(file);
    {
        const Descriptor fd(::open(made.c_str(), O_RDONLY | O_CLOEXEC));
        struct stat status {};
        if (!fd.Valid()) Fail(file);
        if (::stat(target.c_str(), &status) == 0 && ::fchmod(fd.Get(), status.st_mode & 07777) != 0)
            Fail(file);
        if (::fsync(fd.Get()) != 0) Fail(file);
    }
    if (::rename(made.c_str(), target.c_str()) != 0) Fail(file);
    FlushFolder(target.parent_path());
}

void RemoveFile(const std::string& path) {
    ::unlink(path.c_str());
    ::unlink(PartPath(PartBase(path), 0).c_str());
    SweepParts(path);
}

}  // namespace vardel
