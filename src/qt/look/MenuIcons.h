#pragma once

#include <QIcon>
#include <string_view>

namespace vardel {

// The desktop's own icon for what an entry of a menu does, by the entry's name; none where the
// desktop has none, or the entry is of this program alone. Whether menus show icons is the
// desktop's to say.
QIcon MenuIconOf(std::string_view entry);

}  // namespace vardel
