// Whatever saves a file, in a folder that does not take it: one clear message, what stood there
// before stands as it was, and the program goes on.

#include <gmock/gmock.h>
#include <sys/resource.h>
#include <unistd.h>

#include <csignal>
#include <filesystem>

#include "forms/archive/ArchiveForm.h"
#include "forms/main/MainForm.h"
#include "support/FakePlatform.h"
#include "support/UnattendedProgram.h"

namespace vardel {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::SizeIs;

namespace fs = std::filesystem;

// Bad from its making to its end.
class Badness {
public:
    enum class Kind { FullDisk, ReadOnlyFile, ReadOnlyFolder, FolderGone, FolderInTheWay };

    Badness(Kind kind, const std::string& folder, const std::string& file)
        : kind_(kind), folder_(folder), file_(folder + '/' + file) {
        ::getrlimit(RLIMIT_FSIZE, &limit_);
        switch (kind_) {
            case Kind::FullDisk: {  // as far as a program without rights of its own can have one
                const rlimit none{0, limit_.rlim_max};
                ::signal(SIGXFSZ, SIG_IGN);
                ::setrlimit(RLIMIT_FSIZE, &none);
                break;
            }
            case Kind::ReadOnlyFile:
                fs::permissions(file_, fs::perms::owner_read);
                break;
            case Kind::ReadOnlyFolder:
                fs::permissions(folder_, fs::perms(0555));
                fs::permissions(file_, fs::perms(0666));
                BecomeUser(Nobody);  // root might write it all the same
                break;
            case Kind::FolderGone:
                fs::rename(folder_, folder_ + "-gone");
                break;
            case Kind::FolderInTheWay:
                fs::rename(file_, file_ + "-aside");
                fs::create_directory(file_);
        }
    }
    ~Badness() {
        ::setrlimit(RLIMIT_FSIZE, &limit_);
        if (kind_ == Kind::ReadOnlyFolder) BecomeUser(0);
        if (kind_ == Kind::FolderGone) fs::rename(folder_ + "-gone", folder_);
        if (kind_ == Kind::FolderInTheWay) {
            fs::remove(file_);
            fs::rename(file_ + "-aside", file_);
        }
        fs::permissions(folder_, fs::perms::owner_all);
        fs::permissions(file_, fs::perms(0644));
    }

private:
    static constexpr uid_t Nobody = 65534;

    static void BecomeUser(uid_t user) {
        if (::getuid() != 0) return;
        EXPECT_EQ(::seteuid(user), 0);
    }

    Kind kind_;
    std::string folder_, file_;
    rlimit limit_{};
};

using Kind = Badness::Kind;

class BadFolders : public testing::Test {
protected:
    BadFolders() {
        fs::permissions(scratch.Path(), fs::perms(0755));
        fs::create_directory(folder);
        running.program.MainForm->cmdLossCalc.Press();
        EXPECT_EQ(running.StoreRun("kept"), 1);
        EXPECT_THAT(Told(), SizeIs(0));
    }
    std::vector<std::string> Told() { return std::exchange(running.platform.told, {}); }

    ScratchFolder scratch;
    std::string folder = scratch.Path("of the user");
    UnattendedProgram running{scratch.Path()};
};

TEST_F(BadFolders, EveryExportTellsOnceAndLeavesTheOldFile) {
    for (const Export& what : Exports()) {
        const std::string file = folder + '/' + what.file;
        for (const Kind kind : {Kind::FullDisk, Kind::ReadOnlyFile, Kind::ReadOnlyFolder,
                                Kind::FolderGone, Kind::FolderInTheWay}) {
            SCOPED_TRACE(std::string(what.file) + ", bad in way " +
                         std::to_string(static_cast<int>(kind)));
            ReplaceFile(file, "old");
            {
                const Badness badness(kind, folder, what.file);
                running.Save(what, folder);
            }
            EXPECT_THAT(Told(), ElementsAre("Error in saving file " + file));
            EXPECT_EQ(ReadWholeFile(file), "old");
            EXPECT_EQ(std::distance(fs::directory_iterator(folder), {}), 1) << "left beside it";
        }
        running.Save(what, folder);
        EXPECT_THAT(Told(), SizeIs(0));
        EXPECT_NE(ReadWholeFile(file), "old");
        fs::remove(file);
    }
}

// Each step of a run tells its own failure.
TEST_F(BadFolders, AnArchiveKeepsItsRunsAndTellsWhatItDoesNotTake) {
    const struct {
        Kind kind;
        const char* reason;
        std::size_t steps;
        bool editable;        // as the archive's window sees it, whose buttons are off otherwise
        const char* whyNone;  // of an archive that is not there yet; null: it can be made
    } cases[] = {
        {Kind::FullDisk, "disk I/O error", 4, true, "File too large"},
        {Kind::ReadOnlyFile, "attempt to write a readonly database", 4, false, nullptr},
        {Kind::ReadOnlyFolder, "attempt to write a readonly database", 4, true,
         "Permission denied"},
        {Kind::FolderGone, "unable to open database file", 6, false, "No such file or directory"},
    };
    const std::string archive = folder + "/runs.mdb";
    const std::string none = folder + "/none.mdb";
    fs::rename(scratch.Path("runs.mdb"), archive);
    running.platform.archive = none;
    for (const auto& c : cases) {
        SCOPED_TRACE(c.reason);
        running.program.ArchiveFile = archive;
        ArchiveForm& form = *running.program.ArchiveForm;
        const Badness badness(c.kind, folder, "runs.mdb");
        EXPECT_EQ(running.StoreRun("lost"), 0);
        const std::vector<std::string> told = Told();
        EXPECT_THAT(told, SizeIs(c.steps));
        EXPECT_EQ(told.at(0), c.reason);

        running.platform.comment = "another";
        form.cmdComment.Press();
        EXPECT_EQ(form.lblStatus.Caption(), c.editable ? c.reason : "");
        form.cmdDelete.Press();
        form.Unload();
        EXPECT_THAT(Told(), SizeIs(c.editable ? 1 : 0));

        if (c.whyNone == nullptr) continue;
        running.program.ArchiveFile.clear();
        EXPECT_EQ(running.StoreRun("lost"), 0);
        EXPECT_THAT(Told(), ElementsAre("The archive " + none + " cannot be made: " + c.whyNone));
    }
    EXPECT_FALSE(FileExists(none));
    running.program.ArchiveFile = archive;
    EXPECT_GT(running.StoreRun("goes on"), 1);
    ArchiveForm& form = *running.program.ArchiveForm;
    EXPECT_EQ(form.lstRuns.Count(), 2U);
    EXPECT_EQ(form.lstRuns.RowAt(1).cells.at(2), "kept");
    EXPECT_FALSE(form.lstRuns.RowAt(1).marked);
}

TEST_F(BadFolders, SettingsThatCannotBeWrittenAreToldOnceForEachFile) {
    const QByteArray before = qgetenv("XDG_CONFIG_HOME");
    qputenv("XDG_CONFIG_HOME", QByteArray::fromStdString(scratch.Path()));
    const std::string config = scratch.Path("vardel");
    fs::create_directory(config);
    for (const Kind kind : {Kind::FullDisk, Kind::ReadOnlyFolder}) {
        const std::string called = "[Global%20Parameters]\nCalledFromQuorne=True\nTxHt_m=50\n";
        ReplaceFile(config + "/Ostrel_Quorne.ini", called);
        ReplaceFile(config + "/Vardel.ini", "old");
        UnattendedProgram ending(scratch.Path());
        ending.platform.told.clear();
        const auto host = ReadWholeFile(config + "/Ostrel_Quorne.ini");
        {
            const Badness badness(kind, config, "Vardel.ini");
            ending.program.MainForm->txtFreq.SetText("700");
            ending.program.MainForm->mnuFileExit.Pick();
        }
        EXPECT_THAT(ending.platform.told,
                    ElementsAre(HasSubstr("Ostrel_Quorne.ini"), HasSubstr("Vardel.ini")));
        EXPECT_EQ(ReadWholeFile(config + "/Vardel.ini"), "old");
        EXPECT_EQ(ReadWholeFile(config + "/Ostrel_Quorne.ini"), host);
    }
    qputenv("XDG_CONFIG_HOME", before);
}

}  // namespace
}  // namespace vardel
