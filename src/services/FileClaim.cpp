#include "services/FileClaim.h"

#include <fcntl.h>
#include <sys/file.h>
#include <unistd.h>

#include <utility>

#include "services/Files.h"

namespace vardel {

namespace {

std::string LockPath(const std::string& path) { return path + ".lock"; }

}  // namespace

std::optional<FileClaim> FileClaim::Take(const std::string& path) {
    const std::string lockPath = LockPath(path);
    const int lock = ::open(lockPath.c_str(), O_RDWR | O_CREAT | O_CLOEXEC | O_NOFOLLOW, 0600);
    if (lock < 0) return std::nullopt;
    // A lock on a file that its last holder has just removed claims nothing.
    if (::flock(lock, LOCK_EX | LOCK_NB) != 0 || !StillNames(lockPath, lock)) {
        ::close(lock);
        return std::nullopt;
    }
    return FileClaim(path, lock);
}

FileClaim::FileClaim(FileClaim&& other) noexcept
    : path_(std::move(other.path_)), lock_(std::exchange(other.lock_, -1)) {}

FileClaim& FileClaim::operator=(FileClaim&& other) noexcept {
    if (this == &other) return *this;
    Release();
    path_ = std::move(other.path_);
    lock_ = std::exchange(other.lock_, -1);
    return *this;
}

FileClaim::~FileClaim() { Release(); }

void FileClaim::Release() {
    if (lock_ < 0) return;
    ::unlink(LockPath(path_).c_str());
    ::close(lock_);
    lock_ = -1;
}

}  // namespace vardel
