#include "archive/ArchiveReader.h"

#include <SQLiteCpp/SQLiteCpp.h>
#include <gmock/gmock.h>
#include <sys/wait.h>
#include <unistd.h>

#include <filesystem>
#include <functional>

#include "archive/ArchiveEditor.h"
#include "services/Files.h"
#include "support/FakePlatform.h"

namespace vardel {
namespace {

using testing::ElementsAre;

// The points (1, 3) and (2, 4), then (1, 3, 5), as docs/file-formats.md describes them.
constexpr const char* TwoPoints =
    "x'000000000000F03F000000000000084000000000000000400000000000001040' || x'00'";
constexpr const char* SpacePoint = "x'000000000000F03F0000000000000840000000000000144000'";

class ArchiveReading : public testing::Test {
protected:
    ArchiveReading() {
        std::filesystem::copy_file(EMPTY_ARCHIVE, path);
        for (const char* const comment : {"b", "a", "B"})
            Change(std::string("INSERT INTO ModelRun (Model, Parameters, Comment, Date_Time, "
                               "DataSetType) VALUES ('m', 'p', '") +
                   comment + "', '2026-03-09 14:05:06', 2)");
        for (const char* const legend : {"one", "two", "three"})
            AddCurve(1, legend, "2", TwoPoints);
    }
    void Change(const std::string& sql) const {
        SQLite::Database(path, SQLite::OPEN_READWRITE).exec(sql);
    }
    void AddCurve(int run, const std::string& legend, const std::string& count,
                  const std::string& points) const {
        Change("INSERT INTO DataSets VALUES (" + std::to_string(run) + ", '" + legend + "', '', " +
               count + ", CAST(" + points + " AS BLOB))");
    }
    static std::string Fault(const std::function<void()>& step) {
        try {
            step();
        } catch (const ArchiveFault& fault) {
            return fault.what();
        }
        return "none";
    }
    std::vector<std::int64_t> Numbers(RunOrder order, int offset, int limit) const {
        std::vector<std::int64_t> numbers;
        for (const RunRow& run : ArchiveReader(path).Runs(order, offset, limit))
            numbers.push_back(run.number);
        return numbers;
    }

    ScratchFolder folder;
    const std::string path = folder.Path("runs.mdb");
};

TEST_F(ArchiveReading, GivesRunsAndPoints) {
    AddCurve(2, "space", "1", SpacePoint);
    AddCurve(9, "lost", "2", TwoPoints);
    Change("UPDATE ModelRun SET DataSetType = 3 WHERE ID = 2");
    const ArchiveReader archive(path);
    EXPECT_EQ(archive.RunCount(), 3);
    const RunRow first = archive.Run(1).value(), second = archive.Run(2).value();
    EXPECT_THAT((std::vector{first.model, first.parameters, first.comment, first.time}),
                ElementsAre("m", "p", "b", "2026-03-09 14:05:06"));
    EXPECT_TRUE(first.complete);
    EXPECT_FALSE(second.complete);
    EXPECT_EQ(archive.Run(9), std::nullopt);
    EXPECT_THAT(archive.CurvesWithoutRun(), ElementsAre(9));
    EXPECT_EQ(archive.Curves(1).at(2).legend, "three");
    for (const int run : {1, 9}) {
        EXPECT_THAT(archive.Curves(run).at(0).x, ElementsAre(1, 2));
        EXPECT_THAT(archive.Curves(run).at(0).y, ElementsAre(3, 4));
    }
    EXPECT_THAT(archive.Curves(2).at(0).z, ElementsAre(5));
    Change("BEGIN EXCLUSIVE; COMMIT");  // no lock stays
}

TEST_F(ArchiveReading, OrdersRunsAndGivesSomeOfThem) {
    using enum RunOrder::By;
    EXPECT_THAT(Numbers({Number, false}, 1, 9), ElementsAre(2, 3));
    EXPECT_THAT(Numbers({Number, true}, 0, 2), ElementsAre(3, 2));
    EXPECT_THAT(Numbers({Comment, false}, 0, 3), ElementsAre(2, 1, 3));
    EXPECT_THAT(Numbers({Time, true}, 2, 3), ElementsAre(1));
}

TEST_F(ArchiveReading, TellsWhatIsWrong) {
    const std::string curve = "The curve \"x\" of run 2 ";
    const struct {
        const char* count;
        const char* points;
        std::string fault;
    } curves[] = {
        {"2", SpacePoint, curve + "is damaged: 25 bytes do not hold 2 points of 2 numbers."},
        {"3", TwoPoints, curve + "is damaged: 33 bytes do not hold 3 points of 2 numbers."},
        {"-1", "x''", curve + "is damaged: 0 bytes do not hold -1 points of 2 numbers."},
        {"1152921504606846978", TwoPoints,
         curve + "is damaged: 33 bytes do not hold 1152921504606846978 points of 2 numbers."},
        {"'many'", TwoPoints, curve + "has no points."},
        {"2", "NULL", curve + "has no points."},
    };
    for (const auto& c : curves) {
        AddCurve(2, "x", c.count, c.points);
        EXPECT_EQ(Fault([&] { ArchiveReader(path).Curves(2); }), c.fault);
        Change("DELETE FROM DataSets WHERE ID = 2");
    }
    EXPECT_EQ(Fault([&] { ArchiveReader(path).Curves(4); }),
              "The archive " + path + " has no run 4.");
    Change("UPDATE ModelRun SET DataSetType = 'x', Comment = 12.5 WHERE ID = 1");
    EXPECT_EQ(ArchiveReader(path).Run(1)->comment, "12.5");
    EXPECT_EQ(Fault([&] { ArchiveReader(path).Curves(1); }),
              "Run 1 has points of neither two nor three numbers.");

    const std::string other = folder.Path("other");
    EXPECT_EQ(Fault([&] { ArchiveReader{other}; }),
              "The archive " + other + " cannot be read: unable to open database file.");
    ReplaceFile(other, std::string(5000, 'x'));
    EXPECT_EQ(Fault([&] { ArchiveReader{other}; }),
              "The archive " + other + " cannot be read: file is not a database.");
    ReplaceFile(other, "");
    EXPECT_EQ(Fault([&] { ArchiveReader{other}; }),
              other + " is no archive: no such table: ModelRun.");
    const std::string whole = ReadWholeFile(path).value();
    ReplaceFile(other, whole.substr(0, whole.size() / 2));
    EXPECT_EQ(Fault([&] { ArchiveReader(other).Curves(1); }),
              "The archive " + other + " cannot be read: database disk image is malformed.");
}

// Each would take the reader's time or memory without end.
TEST_F(ArchiveReading, AFileThatIsMadeToBeEndlessIsTold) {
    const std::string numbers = "WITH RECURSIVE n(ID) AS (SELECT 1 UNION ALL SELECT ID + 1 FROM n)";
    const std::string run = "'' Model, '' Parameters, '' Comment, '' Date_Time, 2 DataSetType";
    const struct {
        std::string made;
        std::string fault;
    } cases[] = {
        {"DROP TABLE ModelRun; CREATE VIEW ModelRun AS " + numbers + " SELECT ID, " + run +
             " FROM n",
         "ModelRun is no table."},
        {"DROP TABLE DataSets; CREATE VIEW DataSets AS SELECT 1 ID, 'x' Legend, '' Comment, "
         "62500000 PointCount, zeroblob(1000000000) DataSet",
         "DataSets is no table."},
        {"DROP TABLE DataSets; CREATE TABLE DataSets (ID, Legend, PointCount, DataSet AS "
         "(zeroblob(PointCount * 16 + 1)))",
         "DataSets.DataSet is computed and not stored."},
    };
    const std::string whole = ReadWholeFile(path).value();
    for (const auto& c : cases) {
        ReplaceFile(path, whole);
        Change(c.made);
        EXPECT_EQ(Fault([&] { ArchiveReader{path}; }), path + " is no archive: " + c.fault);
    }
    ReplaceFile(path, whole);
    Change("INSERT INTO DataSets VALUES (7, 'x', '', 1, zeroblob(20000000))");
    EXPECT_EQ(Fault([&] { ArchiveReader(path).Curves(7); }),
              "The archive " + path + " cannot be read: string or blob too big.");
    Change(
        "CREATE TRIGGER endless AFTER UPDATE ON ModelRun BEGIN DELETE FROM DataSets WHERE ID IN (" +
        numbers + " SELECT ID FROM n WHERE ID < 0); END");
    try {
        ArchiveEditor(path).SetComment(1, "more");
        ADD_FAILURE() << "an endless change";
    } catch (const std::exception& error) {
        EXPECT_STREQ(error.what(), "it takes more steps than a file of its size can need");
    }
    EXPECT_EQ(ArchiveReader(path).Run(1)->comment, "b");
}

TEST_F(ArchiveReading, TakesBackWhatAKilledProgramLeftHalfWritten) {
    const pid_t writer = ::fork();
    if (writer == 0) {
        SQLite::Database file(path, SQLite::OPEN_READWRITE);
        file.exec(
            "PRAGMA cache_size = 1; BEGIN; DELETE FROM DataSets; INSERT INTO DataSets "
            "VALUES (7, 'half', '', 0, zeroblob(100000))");
        ::_exit(0);
    }
    ::waitpid(writer, nullptr, 0);
    ASSERT_TRUE(FileExists(path + "-journal"));
    EXPECT_EQ(ArchiveReader(path).Curves(1).size(), 3U);
}

}  // namespace
}  // namespace vardel
