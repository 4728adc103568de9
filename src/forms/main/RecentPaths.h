#pragma once

#include <functional>
#include <memory>
#include <vector>

#include "controls/Controls.h"
#include "engine/PathInputs.h"

namespace vardel {

// The paths that were calculated last, the newest first, as the entries of a menu. They come back
// with the next start.
class RecentPaths {
public:
    static constexpr std::size_t Most = 20;

    // take is done with the path of an entry that is picked.
    RecentPaths(MenuItem& menu, std::function<void(const PathInputs&)> take);

    void Add(const PathInputs& path);
    void Load();
    void Save() const;

private:
    void Show();

    MenuItem& menu_;
    std::function<void(const PathInputs&)> take_;
    std::vector<std::unique_ptr<MenuItem>> entries_;
    std::vector<PathInputs> paths_;
};

}  // namespace vardel
