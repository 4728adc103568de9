#include "archive/dbOperations.h"

#include <SQLiteCpp/SQLiteCpp.h>
#include <gmock/gmock.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <filesystem>
#include <memory>

#include "services/Files.h"
#include "support/FakePlatform.h"

namespace vardel {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

constexpr int Points = 991;

struct Archiving {
    void StoreRun(const std::string& path, const std::string& name) {
        const std::vector<double> points(Points, 1.5);
        operations.OpenArchive(path);
        operations.AddModelRun("Okumura-Hata", name, name, {}, 2);
        for (int i = 0; i < 3; ++i)
            operations.AddDataSet(operations.CurrentRunId, name, name, Points, 2, points, points,
                                  {});
        operations.CloseArchive();
    }
    std::string NewArchive(const std::string& name) {
        std::filesystem::copy_file(EMPTY_ARCHIVE, platform.folder.Path(name));
        return platform.folder.Path(name);
    }

    FakePlatform platform;
    dbOperations operations{platform};
};

std::string Ask(const std::string& path, const std::string& sql) {
    return SQLite::Database(path).execAndGet(sql).getString();
}

void Change(const std::string& path, const std::string& sql) {
    SQLite::Database(path, SQLite::OPEN_READWRITE).exec(sql);
}

TEST(DbOperations, AnUnnamedArchiveIsTheUsualOneAndIsNotMade) {
    Archiving archiving;
    for (const char* name : {"", "*.mdb"}) {
        archiving.operations.OpenArchive(name);
        EXPECT_EQ(archiving.operations.ArchivePath, "C:\\My Documents\\New Model Data.mdb");
        EXPECT_FALSE(FileExists(archiving.operations.ArchivePath));
    }
}

TEST(DbOperations, ARunCanBeSeenRowByRowAndNoLockStays) {
    Archiving archiving;
    const std::string path = archiving.NewArchive("runs.mdb");
    dbOperations& operations = archiving.operations;
    const double x[] = {1, 2}, y[] = {3, 4}, z[] = {5, 6};
    operations.OpenArchive(path);
    EXPECT_EQ(operations.CurrentRunId, -1);
    operations.AddModelRun("m", "p", "c", {2026, 3, 9, 14, 5, 6}, 3);
    EXPECT_EQ(operations.CurrentRunId, 1);
    EXPECT_EQ(operations.ModelRunRecords.CurrentRow(), 1);
    EXPECT_EQ(Ask(path, "SELECT Date_Time FROM ModelRun"), "2026-03-09 14:05:06");
    operations.AddDataSet(1, "three", "c", 1, 3, x, y, z);
    operations.AddDataSet(1, "none", "c", 2, 4, x, y, z);
    EXPECT_EQ(Ask(path, "SELECT hex(DataSet) FROM DataSets WHERE Legend = 'three'"),
              "000000000000F03F0000000000000840000000000000144000");
    EXPECT_EQ(Ask(path, "SELECT DataSet IS NULL FROM DataSets WHERE Legend = 'none'"), "1");
    for (const int count : {-1, 3}) {
        operations.AddDataSet(1, "short", "c", count, 2, x, y, z);
        EXPECT_THAT(archiving.platform.TakeMessages(),
                    ElementsAre("A data set has fewer points than its point count"));
    }
    operations.CloseArchive();
    Change(path, "BEGIN EXCLUSIVE; DELETE FROM ModelRun; COMMIT");
    archiving.StoreRun(path, "next");
    EXPECT_EQ(operations.CurrentRunId, 2) << "a number is never given twice";
    EXPECT_THAT(archiving.platform.TakeMessages(), IsEmpty());
}

// What is wrong with an archive, for as long as it lasts.
using Trouble = std::shared_ptr<void>;

Trouble Holding(const std::string& path, const char* sql) {
    auto other = std::make_shared<SQLite::Database>(path, SQLite::OPEN_READWRITE);
    other->exec(sql);
    return other;
}

Trouble ReadOnly(const std::string& path) {
    ::chmod(path.c_str(), 0444);
    return {nullptr, [=](void*) { ::chmod(path.c_str(), 0644); }};
}

TEST(DbOperations, EveryFailureIsToldAndHarmsNothing) {
    const std::string notOpen = "The database is not open";
    const auto failedOpen = [&](const char* why) {
        return std::vector<std::string>{why, notOpen, notOpen, notOpen, notOpen, notOpen};
    };
    const auto spoiled = [](const char* sql) {
        return [sql](const std::string& path) {
            Change(path, sql);
            return Trouble();
        };
    };
    const auto times = [](std::size_t n, const char* text) {
        return std::vector<std::string>(n, text);
    };
    const struct {
        const char* what;
        std::function<Trouble(const std::string&)> spoil;
        std::vector<std::string> messages;
        int runId;         // afterwards; 0: as it was
        const char* rows;  // stored runs and curves, and the curves' run; null: they cannot be read
        const char* repair = "";  // null: beyond it
    } cases[] = {
        {"missing",
         [](const std::string& path) {
             std::filesystem::remove(path);
             return Trouble();
         },
         failedOpen("unable to open database file"), 0, nullptr, nullptr},
        {"not a database",
         [](const std::string& path) {
             ReplaceFile(path, std::string(5000, 'x'));
             return Trouble();
         },
         failedOpen("file is not a database"), 0, nullptr, nullptr},
        {"locked for writing", [](const auto& path) { return Holding(path, "BEGIN IMMEDIATE"); },
         failedOpen("database is locked"), 0, "0 0 "},
        {"no ModelRun", spoiled("DROP TABLE ModelRun"), failedOpen("no such table: ModelRun"), 0,
         nullptr, nullptr},
        {"no DataSets",
         spoiled("DROP TABLE DataSets"),
         {"no such table: DataSets", notOpen, notOpen, notOpen, notOpen},
         1,
         nullptr,
         nullptr},
        {"a run that is refused",
         spoiled("CREATE TRIGGER Refusal BEFORE INSERT ON ModelRun "
                 "BEGIN SELECT RAISE(ABORT, 'not this one'); END"),
         times(1, "not this one"), 1, "0 3 1", "DROP TRIGGER Refusal"},
        {"read-only", ReadOnly, times(4, "attempt to write a readonly database"), -1, "0 0 "},
    };
    Archiving archiving;
    for (const auto& c : cases) {
        SCOPED_TRACE(c.what);
        const std::string path = archiving.NewArchive(c.what);
        archiving.operations.CurrentRunId = 77;
        Trouble trouble = c.spoil(path);
        archiving.StoreRun(path, "first");
        EXPECT_EQ(archiving.platform.TakeMessages(), c.messages);
        EXPECT_EQ(archiving.operations.CurrentRunId, c.runId == 0 ? 77 : c.runId);
        EXPECT_EQ(FileExists(path), c.what != std::string("missing"));
        trouble.reset();
        if (c.rows != nullptr) {
            EXPECT_EQ(Ask(path,
                          "SELECT (SELECT count(*) FROM ModelRun) || ' ' || count(*) || ' ' || "
                          "ifnull(max(ID), '') FROM DataSets"),
                      c.rows);
        }

        const std::string later =
            c.repair != nullptr ? path : archiving.NewArchive(c.what + std::string(", later"));
        if (c.repair != nullptr) Change(path, c.repair);
        archiving.StoreRun(later, "later");
        EXPECT_THAT(archiving.platform.TakeMessages(), IsEmpty());
        EXPECT_EQ(Ask(later, "PRAGMA integrity_check"), "ok");
        EXPECT_EQ(
            Ask(later,
                "SELECT count(*) || ' ' || count(DISTINCT r.ID) FROM ModelRun r JOIN DataSets "
                "d USING (ID) WHERE r.Parameters = 'later' AND d.Legend = 'later'"),
            "3 1");
        EXPECT_EQ(Ask(later,
                      "SELECT count(*) FROM ModelRun r JOIN DataSets d USING (ID) "
                      "WHERE r.Parameters <> d.Legend"),
                  "0")
            << "no curve is another run's";
    }
}

TEST(DbOperations, AKeyWithoutASequenceIsNumberedToo) {
    Archiving archiving;
    const std::string path = archiving.platform.folder.Path("own.mdb");
    SQLite::Database(path, SQLite::OPEN_READWRITE | SQLite::OPEN_CREATE)
        .exec(
            "CREATE TABLE ModelRun (ID INTEGER PRIMARY KEY, Model, Parameters, Comment, Date_Time, "
            "DataSetType); CREATE TABLE DataSets (ID, Legend, Comment, PointCount, DataSet)");
    archiving.StoreRun(path, "first");
    archiving.StoreRun(path, "second");
    EXPECT_THAT(archiving.platform.TakeMessages(), IsEmpty());
    EXPECT_EQ(Ask(path, "SELECT group_concat(ID || Parameters) FROM ModelRun"), "1first,2second");
    Change(path, "UPDATE ModelRun SET ID = 2147483646 WHERE ID = 2");
    archiving.StoreRun(path, "last");
    EXPECT_EQ(archiving.operations.CurrentRunId, 2147483647);
    archiving.StoreRun(path, "one more");
    EXPECT_EQ(archiving.platform.TakeMessages().at(0),
              "The archive has no number left for another run");
}

pid_t Elsewhere(const std::function<int()>& program) {
    const pid_t process = ::fork();
    if (process == 0) ::_exit(program());
    return process;
}

TEST(DbOperations, TwoProgramsStoreIntoOneArchive) {
    Archiving archiving;
    const std::string path = archiving.NewArchive("runs.mdb");
    std::vector<pid_t> processes;
    for (const std::string name : {"one", "other"})
        processes.push_back(Elsewhere([&] {
            Archiving its;
            for (int i = 0; i < 12; ++i) its.StoreRun(path, name);
            return static_cast<int>(its.platform.messages.size());
        }));
    for (const pid_t process : processes) {
        int status = -1;
        ::waitpid(process, &status, 0);
        EXPECT_EQ(status, 0);
    }
    EXPECT_EQ(Ask(path, "SELECT count(*) || ' ' || max(ID) FROM ModelRun"), "24 24");
    EXPECT_EQ(Ask(path,
                  "SELECT count(*) FROM ModelRun r JOIN DataSets d USING (ID) "
                  "WHERE r.Parameters = d.Legend"),
              "72");
}

}  // namespace
}  // namespace vardel
