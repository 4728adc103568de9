#include "forms/main/RecentPaths.h"

#include <sstream>

#include "engine/PathRecord.h"
#include "engine/PathText.h"
#include "services/Platform.h"
#include "text/NumberText.h"

namespace vardel {

namespace {

// All in one value, since each that is written replaces the file.
constexpr const char* Section = "Recent";
constexpr const char* Key = "Paths";
constexpr char Separator = '|';

// The distance, then the rest.
std::string Stored(const PathInputs& path) {
    return ShortestText(path.distance) + ' ' + PathRecord(path);
}

}  // namespace

RecentPaths::RecentPaths(MenuItem& menu, std::function<void(const PathInputs&)> take)
    : menu_(menu), take_(std::move(take)) {
    for (std::size_t i = 0; i < Most; ++i) {
        entries_.push_back(
            std::make_unique<MenuItem>(menu, menu.Name() + '(' + std::to_string(i) + ')', ""));
        entries_.back()->Click = [this, i] {
            if (i < paths_.size()) take_(PathInputs(paths_[i]));
        };
    }
    Show();
}

void RecentPaths::Add(const PathInputs& path) {
    const std::string stored = Stored(path);
    std::erase_if(paths_, [&](const PathInputs& other) { return Stored(other) == stored; });
    paths_.insert(paths_.begin(), path);
    if (paths_.size() > Most) paths_.pop_back();
    Show();
}

void RecentPaths::Load() {
    paths_.clear();
    Platform& platform = menu_.Owner().GetPlatform();
    std::istringstream stored(platform.settings.Read(platform.applicationTitle, Section, Key));
    for (std::string text; std::getline(stored, text, Separator) && paths_.size() < Most;) {
        auto path = PathOfRecord(text);
        if (!path) continue;
        path->distance = LeadingNumber(text.substr(0, text.find(' ')));
        if (path->distance > 0.0) paths_.push_back(*path);
    }
    Show();
}

void RecentPaths::Save() const {
    if (paths_.empty()) return;
    std::string stored;
    for (const PathInputs& path : paths_)
        stored += (stored.empty() ? std::string() : std::string(1, Separator)) + Stored(path);
    Platform& platform = menu_.Owner().GetPlatform();
    platform.settings.Write(platform.applicationTitle, Section, Key, stored);
}

void RecentPaths::Show() {
    menu_.SetEnabled(!paths_.empty());
    for (std::size_t i = 0; i < entries_.size(); ++i) {
        const bool used = i < paths_.size();
        entries_[i]->SetVisible(used);
        if (used)
            entries_[i]->SetCaption(DistanceText(paths_[i]) + ", " + PathText(paths_[i]) + ", " +
                                    PercentText(paths_[i].pctLoc) + " of locations");
    }
}

}  // namespace vardel
