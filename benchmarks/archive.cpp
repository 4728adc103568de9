// Storing a run to 300 km in an archive, computed curves aside, beside the same four rows written
// by the bare library, each as durable when its insert returns.

#include <benchmark/benchmark.h>
#include <sqlite3.h>

#include <filesystem>

#include "archive/dbOperations.h"
#include "engine/curves/Curves.h"
#include "models/ModCalculations.h"
#include "support/FakePlatform.h"

namespace vardel {
namespace {

constexpr const char* Parameters =
    "hb:100.0,hm:1.5,frq:450.0,Urban,,Small/Medium,Power:1.kW e.r.p.,50%T,50%L";
constexpr int Runs = 40;

CurveData Curve() {
    return ModelCurve(ModelOf(ModelNumber::Itu529), Quantity::Loss,
                      {450, 0, 100, 1.5, "Urban", "Small/Medium", 50, 50}, 0.0, {1.0, 300.0});
}

void StoreArchiveRun(benchmark::State& state) {
    FakePlatform platform;
    const std::string path = platform.folder.Path("runs.mdb");
    std::filesystem::copy_file(EMPTY_ARCHIVE, path);
    const CurveData curve = Curve();
    dbOperations archive(platform);
    for (auto _ : state) {
        archive.OpenArchive(path);
        archive.AddModelRun("Okumura-Hata", Parameters, "", platform.now, 2);
        for (int i = 0; i < 3; ++i)
            archive.AddDataSet(archive.CurrentRunId, "ITU 529 Urban", "", curve.LastPoint + 1, 2,
                               curve.Distances, curve.Values, {});
        archive.CloseArchive();
    }
    if (!platform.messages.empty()) state.SkipWithError(platform.messages[0].text.c_str());
}
BENCHMARK(StoreArchiveRun)->Unit(benchmark::kMillisecond)->UseRealTime()->Iterations(Runs);

// The texts and the points are the statements' own: only the library works here.
void StoreArchiveRun_floor(benchmark::State& state) {
    const ScratchFolder folder;
    const std::string path = folder.Path("runs.mdb");
    std::filesystem::copy_file(EMPTY_ARCHIVE, path);
    const CurveData curve = Curve();
    const Bytes points =
        dbOperations::PackPointsXY(curve.LastPoint + 1, curve.Distances, curve.Values);
    sqlite3* database = nullptr;
    sqlite3_stmt* run = nullptr;
    sqlite3_stmt* set = nullptr;
    sqlite3_open_v2(path.c_str(), &database, SQLITE_OPEN_READWRITE, nullptr);
    sqlite3_prepare_v2(database,
                       "INSERT INTO ModelRun (Model, Parameters, Comment, Date_Time, DataSetType) "
                       "VALUES ('Okumura-Hata', ?, '', '2026-03-09 14:05:00', 2)",
                       -1, &run, nullptr);
    sqlite3_prepare_v2(database,
                       "INSERT INTO DataSets (ID, Legend, Comment, PointCount, DataSet) "
                       "VALUES (?, 'ITU 529 Urban', '', 2991, ?)",
                       -1, &set, nullptr);
    sqlite3_bind_text(run, 1, Parameters, -1, SQLITE_STATIC);
    sqlite3_bind_blob(set, 2, points.data(), static_cast<int>(points.size()), SQLITE_STATIC);
    bool good = true;
    for (auto _ : state) {
        good &= sqlite3_step(run) == SQLITE_DONE;
        sqlite3_reset(run);
        sqlite3_bind_int64(set, 1, sqlite3_last_insert_rowid(database));
        for (int i = 0; i < 3; ++i) {
            good &= sqlite3_step(set) == SQLITE_DONE;
            sqlite3_reset(set);
        }
    }
    if (!good) state.SkipWithError(sqlite3_errmsg(database));
    sqlite3_finalize(run);
    sqlite3_finalize(set);
    sqlite3_close(database);
}
BENCHMARK(StoreArchiveRun_floor)->Unit(benchmark::kMillisecond)->UseRealTime()->Iterations(Runs);

}  // namespace
}  // namespace vardel
