#include "reports/TempLog.h"

#include <algorithm>
#include <filesystem>
#include <vector>

#include "platform/Files.h"

namespace vardel {

namespace {

namespace fs = std::filesystem;

std::vector<fs::directory_entry> LogsIn(const std::string& folder) {
    std::vector<fs::directory_entry> logs;
    std::error_code error;
    for (const fs::directory_entry& entry : fs::directory_iterator(folder, error)) {
        const std::string name = entry.path().filename().string();
        if (name.starts_with("log") && name.ends_with(".rtf") && entry.is_regular_file(error))
            logs.push_back(entry);
    }
    std::sort(logs.begin(), logs.end(), [](const auto& a, const auto& b) {
        std::error_code ignored;
        return a.last_write_time(ignored) > b.last_write_time(ignored);
    });
    return logs;
}

}  // namespace

bool TempLog::Continue(const std::string& path) {
    if (path.empty() || !FileExists(path)) return false;
    claim_ = FileClaim::Take(path);
    return claim_.has_value();
}

bool TempLog::TakeUpOrphan() {
    for (const fs::directory_entry& entry : LogsIn(folder_)) {
        auto claim = FileClaim::Take(entry.path().string());
        std::error_code error;
        if (!claim || !fs::exists(entry.path(), error)) continue;
        if (fs::file_size(entry.path(), error) == 0) {
            fs::remove(entry.path(), error);  // begun, and never saved to
            continue;
        }
        claim_ = std::move(claim);
        return true;
    }
    return false;
}

bool TempLog::Begin() {
    // Another start may tidy the new file away before it is claimed.
    for (int attempt = 0; attempt < 10; ++attempt) {
        const std::string path = NewUniqueFile(folder_);
        if (path.empty()) return false;
        if (Continue(path)) return true;
    }
    return false;
}

void TempLog::Delete() {
    if (!claim_) return;
    std::error_code gone;
    fs::remove(claim_->Path(), gone);
    claim_.reset();
}

}  // namespace vardel
