#include "qt/look/MenuIcons.h"

#include <algorithm>
#include <array>

namespace vardel {

namespace {

struct NamedIcon {
    std::string_view ending;  // of entries' names
    const char* icon;         // as freedesktop.org names icons
};

constexpr std::array<NamedIcon, 13> NamedIcons = {{
    {"FileNew", "document-new"},
    {"FileSave", "document-save"},
    {"FileSaveAs", "document-save-as"},
    {"FilePrint", "document-print"},
    {"FileClose", "window-close"},
    {"FileExit", "application-exit"},
    {"EditUndo", "edit-undo"},
    {"EditRedo", "edit-redo"},
    {"EditFind", "edit-find"},
    {"FileCopyToReportLog", "edit-copy"},
    {"FileClearLog", "edit-clear"},
    {"HelpVardel", "help-contents"},
    {"HelpAbout", "help-about"},
}};

}  // namespace

QIcon MenuIconOf(std::string_view entry) {
    const auto* it =
        std::find_if(NamedIcons.begin(), NamedIcons.end(),
                     [entry](const NamedIcon& named) { return entry.ends_with(named.ending); });
    return it == NamedIcons.end() ? QIcon() : QIcon::fromTheme(it->icon);
}

}  // namespace vardel
