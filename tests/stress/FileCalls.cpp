// The system's calls that change files, in place of the library's own, also for the libraries.

#include <fcntl.h>
#include <sys/stat.h>
#include <sys/syscall.h>
#include <unistd.h>

#include <atomic>
#include <csignal>
#include <cstdio>

#include "stress/Writers.h"

namespace {

std::atomic<long> callsLeft = 0;  // 0: nothing is counted

bool IsTheLast() { return callsLeft > 0 && --callsLeft == 0; }

bool IsTheLastOn(int fd) {
    struct stat status {};
    return callsLeft > 0 && ::fstat(fd, &status) == 0 && S_ISREG(status.st_mode) && IsTheLast();
}

void DieIf(bool last) {
    if (last) ::raise(SIGKILL);
}

}  // namespace

void vardel::DieAtFileCall(long call) { callsLeft = call; }

extern "C" {

ssize_t write(int fd, const void* data, size_t size) {
    const bool last = IsTheLastOn(fd);
    const ssize_t written = ::syscall(SYS_write, fd, data, last ? size / 2 : size);
    DieIf(last);
    return written;
}

ssize_t pwrite64(int fd, const void* data, size_t size, off_t at) {
    const bool last = IsTheLastOn(fd);
    const ssize_t written = ::syscall(SYS_pwrite64, fd, data, last ? size / 2 : size, at);
    DieIf(last);
    return written;
}

int fsync(int fd) {
    DieIf(IsTheLastOn(fd));
    return static_cast<int>(::syscall(SYS_fsync, fd));
}

int fdatasync(int fd) {
    DieIf(IsTheLastOn(fd));
    return static_cast<int>(::syscall(SYS_fdatasync, fd));
}

int rename(const char* from, const char* to) noexcept {
    DieIf(IsTheLast());
    return static_cast<int>(::syscall(SYS_renameat2, AT_FDCWD, from, AT_FDCWD, to, 0));
}

int unlink(const char* path) noexcept {
    DieIf(IsTheLast());
    return static_cast<int>(::syscall(SYS_unlinkat, AT_FDCWD, path, 0));
}
}
