#include "forms/reports/TempLog.h"

#include <algorithm>
#include <filesystem>
#include <vector>

#include "services/Files.h"

namespace vardel {

namespace {

namespace fs = std::filesystem;

// The youngest first. Other programs may write to them meanwhile, so each is looked at once.
std::vector<fs::path> LogsIn(const std::string& folder) {
    std::vector<std::pair<fs::file_time_type, fs::path>> logs;
    std::error_code error;
    for (fs::directory_iterator it(folder, error), end; !error && it != end; it.increment(error)) {
        const std::string name = it->path().filename().string();
        std::error_code gone;
        if (name.starts_with("log") && name.ends_with(".rtf") && it->is_regular_file(gone))
            logs.emplace_back(it->last_write_time(gone), it->path());
    }
    std::sort(logs.rbegin(), logs.rend());
    std::vector<fs::path> paths;
    paths.reserve(logs.size());
    for (auto& [time, path] : logs) paths.push_back(std::move(path));
    return paths;
}

}  // namespace

bool TempLog::Continue(const std::string& path) {
    if (path.empty() || !FileExists(path)) return false;
    claim_ = FileClaim::Take(path);
    return claim_.has_value();
}

bool TempLog::TakeUpOrphan() {
    for (const fs::path& path : LogsIn(folder_)) {
        if (std::ranges::count(refused_, path.string()) > 0) continue;
        auto claim = FileClaim::Take(path.string());
        std::error_code error;
        if (!claim || !fs::exists(path, error)) continue;
        if (fs::file_size(path, error) == 0) {
            RemoveFile(path.string());  // begun, and never saved to
            continue;
        }
        claim_ = std::move(claim);
        return true;
    }
    return false;
}

std::string TempLog::GetTempLogName() const { return NewUniqueFile(folder_); }

bool TempLog::Begin() {
    // Another start may tidy the new file away before it is claimed.
    for (int attempt = 0; attempt < 10; ++attempt) {
        const std::string path = GetTempLogName();
        if (path.empty()) return false;
        if (Continue(path)) return true;
    }
    return false;
}

std::string TempLog::SetAside() {
    const fs::path path = Path();
    const std::string name = path.filename().string();
    std::error_code error;
    fs::path aside = path;
    aside.replace_filename("unreadable-" + name);
    for (int n = 1; fs::exists(aside, error); ++n)
        aside.replace_filename("unreadable-" + std::to_string(n) + '-' + name);
    fs::rename(path, aside, error);
    claim_.reset();
    if (!error) return aside.string();
    refused_.push_back(path.string());
    return path.string();
}

void TempLog::Delete() {
    if (!claim_) return;
    RemoveFile(claim_->Path());
    claim_.reset();
}

}  // namespace vardel
