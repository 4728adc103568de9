#include "cli/Streams.h"

#include <fcntl.h>
#include <unistd.h>

#include <cerrno>
#include <memory>
#include <system_error>

namespace vardel::cli {

namespace {

[[noreturn]] void Fail(const std::string& name) {
    throw std::system_error(errno, std::generic_category(), name);
}

class OpenFile {
public:
    explicit OpenFile(int fd) : fd_(fd) {}
    OpenFile(const OpenFile&) = delete;
    OpenFile& operator=(const OpenFile&) = delete;
    ~OpenFile() { ::close(fd_); }

private:
    int fd_;
};

Source SourceOfDescriptor(int fd, const std::string& name) {
    return [fd, name](char* bytes, std::size_t size) {
        for (;;) {
            const ssize_t come = ::read(fd, bytes, size);
            if (come >= 0) return static_cast<std::size_t>(come);
            if (errno != EINTR) Fail(name);
        }
    };
}

Sink SinkOfDescriptor(int fd, const std::string& name) {
    return [fd, name](std::string_view text) {
        while (!text.empty()) {
            const ssize_t gone = ::write(fd, text.data(), text.size());
            if (gone >= 0)
                text.remove_prefix(static_cast<std::size_t>(gone));
            else if (errno != EINTR)
                Fail(name);
        }
    };
}

}  // namespace

Source SourceOf(const std::string& path) {
    if (path == "-") return SourceOfDescriptor(STDIN_FILENO, "standard input");
    const int fd = ::open(path.c_str(), O_RDONLY | O_CLOEXEC);
    if (fd < 0) Fail(path);
    const auto file = std::make_shared<const OpenFile>(fd);
    return [file, read = SourceOfDescriptor(fd, path)](char* bytes, std::size_t size) {
        return read(bytes, size);
    };
}

Sink StandardOutput() { return SinkOfDescriptor(STDOUT_FILENO, "standard output"); }

Sink StandardError() {
    return [write = SinkOfDescriptor(STDERR_FILENO, "standard error")](std::string_view text) {
        try {
            write(text);
        } catch (const std::system_error&) {
            // There is no other place to report it.
        }
    };
}

bool ProgressIsSeen() { return ::isatty(STDERR_FILENO) != 0 && ::isatty(STDOUT_FILENO) == 0; }

}  // namespace vardel::cli
