#include "services/DatabaseFile.h"

#include <sqlite3.h>

#include <filesystem>

namespace vardel {

namespace {

constexpr int StepsToACall = 100'000;
// A row takes a few dozen steps and as many bytes; a tenth of a second for whatever is small.
constexpr std::uintmax_t StepsToAByte = 4;
constexpr std::uintmax_t CallsForAll = 100;

}  // namespace

DatabaseFile::DatabaseFile(const std::string& path, int mode, int longestWait)
    : SQLite::Database(path, mode), path_(path), longestWait_(longestWait) {
    sqlite3* const file = getHandle();
    sqlite3_db_config(file, SQLITE_DBCONFIG_DEFENSIVE, 1, nullptr);
    sqlite3_db_config(file, SQLITE_DBCONFIG_TRUSTED_SCHEMA, 0, nullptr);
    sqlite3_limit(file, SQLITE_LIMIT_LENGTH, MostBytes);
    sqlite3_limit(file, SQLITE_LIMIT_ATTACHED, 0);
    sqlite3_busy_handler(file, &DatabaseFile::Wait, this);
    sqlite3_progress_handler(file, StepsToACall, &DatabaseFile::CountSteps, this);
    BeginStatement();
    exec("PRAGMA cell_size_check = ON");
}

void DatabaseFile::BeginStatement() {
    std::error_code error;
    const std::uintmax_t size = std::filesystem::file_size(path_, error);
    calls_ = 0;
    mostCalls_ = CallsForAll + (error ? 0 : size / StepsToACall * StepsToAByte);
}

// Waits for other programs in steps of a few ms. The library's own grow to 100 ms, in which
// programs that write row after row would always be the first again.
int DatabaseFile::Wait(void* file, int waits) {
    constexpr int Step = 5;  // ms
    if (waits * Step >= static_cast<const DatabaseFile*>(file)->longestWait_) return 0;
    sqlite3_sleep(Step);
    return 1;
}

int DatabaseFile::CountSteps(void* file) {
    auto& counted = *static_cast<DatabaseFile*>(file);
    ++counted.calls_;
    return counted.HasOverrun() ? 1 : 0;
}

}  // namespace vardel
