#include "forms/main/RecentPaths.h"

#include <algorithm>

#include "engine/PathRecord.h"
#include "engine/PathText.h"
#include "services/Platform.h"
#include "text/NumberText.h"

namespace vardel {

namespace {

constexpr const char* Section = "Recent";

std::string KeyOf(std::size_t i) { return std::to_string(i + 1); }

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
    Platform& platform = menu_.Owner().GetPlatform();
    for (std::size_t i = 0; i < Most; ++i) {
        const std::string text =
            platform.settings.Read(platform.applicationTitle, Section, KeyOf(i));
        auto path = PathOfRecord(text);
        if (!path) continue;
        path->distance = LeadingNumber(text.substr(0, text.find(' ')));
        if (path->distance > 0.0) paths_.push_back(*path);
    }
    Show();
}

void RecentPaths::Save() const {
    Platform& platform = menu_.Owner().GetPlatform();
    for (std::size_t i = 0; i < paths_.size(); ++i)
        platform.settings.Write(platform.applicationTitle, Section, KeyOf(i), Stored(paths_[i]));
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
