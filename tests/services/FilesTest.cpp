#include "services/Files.h"

#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/file.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <csignal>
#include <random>
#include <system_error>

#include "support/FakePlatform.h"

namespace vardel {
namespace {

namespace fs = std::filesystem;

unsigned Mode(const std::string& path) {
    struct stat status {};
    EXPECT_EQ(::lstat(path.c_str(), &status), 0) << path;
    return status.st_mode & 07777U;
}

// The number of the error that replacing the file gives, 0 for none.
int ReplaceError(const std::string& path, std::string_view content = "new") {
    try {
        ReplaceFile(path, content);
    } catch (const std::system_error& error) {
        return error.code().value();
    }
    return 0;
}

std::size_t PartFiles(const std::string& folder) {
    std::size_t count = 0;
    for (const auto& entry : fs::directory_iterator(folder))
        if (entry.path().extension() == ".part") ++count;
    return count;
}

class FilesTest : public testing::Test {
protected:
    FilesTest() : umask_(::umask(022)) {}
    ~FilesTest() override { ::umask(umask_); }

    ScratchFolder folder_;
    std::string path_ = folder_.Path("log.rtf");

private:
    mode_t umask_;
};

TEST_F(FilesTest, ReplacesAllAndKeepsPermissions) {
    std::string content(300'000, '\0');
    std::mt19937 random(1);
    for (char& c : content) c = static_cast<char>(random());
    ReplaceFile(path_, content);
    EXPECT_EQ(ReadWholeFile(path_), content);
    EXPECT_EQ(Mode(path_), 0644U);
    for (const unsigned mode : {0640U, 0666U, 0755U, 0200U}) {
        ASSERT_EQ(::chmod(path_.c_str(), mode), 0);
        ReplaceFile(path_, "short", mode == 0640U ? Access::OwnerOnly : Access::AsUsual);
        EXPECT_EQ(Mode(path_), mode);
    }
    ::chmod(path_.c_str(), 0644);
    EXPECT_EQ(ReadWholeFile(path_), "short");
    const std::string own = folder_.Path("own.rtf");
    ReplaceFile(own, "x", Access::OwnerOnly);
    EXPECT_EQ(Mode(own), 0600U);
    EXPECT_EQ(std::distance(fs::directory_iterator(folder_.Path()), {}), 2);
}

TEST_F(FilesTest, ReplacesWhatALinkPointsTo) {
    const std::string link = folder_.Path("link.rtf");
    fs::create_directory(folder_.Path("sub"));
    const std::string target = folder_.Path("sub/target.rtf");
    ReplaceFile(target, "old");
    fs::create_symlink("sub/target.rtf", folder_.Path("middle"));
    fs::create_symlink(folder_.Path("middle"), link);
    ReplaceFile(link, "new");
    EXPECT_TRUE(fs::is_symlink(link));
    EXPECT_TRUE(fs::is_symlink(folder_.Path("middle")));
    EXPECT_FALSE(fs::is_symlink(target));
    EXPECT_EQ(ReadWholeFile(target), "new");
}

TEST_F(FilesTest, RefusesWhatItMayNotReplace) {
    ReplaceFile(path_, "old");
    ASSERT_EQ(::chmod(path_.c_str(), 0444), 0);
    EXPECT_EQ(ReplaceError(path_), EACCES);
    EXPECT_EQ(ReadWholeFile(path_), "old");
    EXPECT_EQ(ReplaceError(folder_.Path("missing/log.rtf")), ENOENT);
    EXPECT_EQ(ReplaceError(folder_.Path()), EISDIR);
    EXPECT_EQ(ReplaceError(path_ + "/log.rtf"), ENOTDIR);

    const std::string pipe = folder_.Path("pipe");
    ASSERT_EQ(::mkfifo(pipe.c_str(), 0666), 0);
    EXPECT_EQ(ReplaceError(pipe), EINVAL);
    EXPECT_TRUE(fs::is_fifo(pipe));
    EXPECT_EQ(PartFiles(folder_.Path()), 0U);
    EXPECT_FALSE(ReadWholeFile(folder_.Path()).has_value());
    EXPECT_FALSE(ReadWholeFile(folder_.Path("missing")).has_value());
}

TEST_F(FilesTest, AFullDiskLeavesTheOldFile) {
    ReplaceFile(path_, "old");
    const pid_t child = ::fork();
    ASSERT_GE(child, 0);
    if (child == 0) {
        ::signal(SIGXFSZ, SIG_IGN);
        const rlimit limit{100'000, 100'000};
        if (::setrlimit(RLIMIT_FSIZE, &limit) != 0) ::_exit(1);
        ::_exit(ReplaceError(path_, std::string(1'000'000, 'x')) == EFBIG ? 0 : 2);
    }
    int status = 0;
    ASSERT_EQ(::waitpid(child, &status, 0), child);
    ASSERT_TRUE(WIFEXITED(status));
    EXPECT_EQ(WEXITSTATUS(status), 0);
    EXPECT_EQ(ReadWholeFile(path_), "old");
    EXPECT_EQ(PartFiles(folder_.Path()), 0U);
}

TEST_F(FilesTest, AFileGoesWithWhatAKilledSaveLeftBesideIt) {
    const std::string second = folder_.Path(".log.rtf.2.part");
    ReplaceFile(path_, "whole");
    ReplaceFile(second, "of one that was not alone");
    {
        const int writing = ::open(second.c_str(), O_WRONLY);
        ::flock(writing, LOCK_EX);
        ReplaceFile(path_, "new");
        EXPECT_TRUE(FileExists(second)) << "somebody is writing it";
        ::close(writing);
    }
    ReplaceFile(path_, "new");
    EXPECT_FALSE(FileExists(second));
    ReplaceFile(folder_.Path(".log.rtf.part"), "half");
    ReplaceFile(folder_.Path(".log.rtf.1.part"), "half");
    RemoveFile(path_);
    EXPECT_TRUE(fs::is_empty(folder_.Path()));
}

TEST_F(FilesTest, UniqueFilesAreForTheUserAlone) {
    ::umask(0);
    const std::string state = folder_.Path("deep/state");
    const std::string first = NewUniqueFile(state);
    const std::string second = NewUniqueFile(state);
    EXPECT_NE(first, second);
    EXPECT_EQ(Mode(state), 0700U);
    for (const std::string& file : {first, second}) {
        EXPECT_EQ(fs::path(file).parent_path(), state);
        EXPECT_EQ(Mode(file), 0600U);
        EXPECT_EQ(ReadWholeFile(file), "");
    }
    ReplaceFile(path_, "a file in the folder's place");
    EXPECT_EQ(NewUniqueFile(path_), "");
    EXPECT_EQ(NewUniqueFile(path_ + "/state"), "");
}

}  // namespace
}  // namespace vardel
