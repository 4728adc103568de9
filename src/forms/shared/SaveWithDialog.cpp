#include "forms/shared/SaveWithDialog.h"

#include <algorithm>
#include <exception>

#include "controls/Form.h"
#include "controls/Hourglass.h"
#include "services/Files.h"

namespace vardel {

bool SaveWithDialog(Form& form, const std::string& filters, int filterIndex,
                    const std::function<void(const SaveChoice&)>& save, const std::string& name) {
    return SaveWithDialog(form, {form.GetPlatform().programDirectory, filters, filterIndex, name},
                          save);
}

std::optional<SaveChoice> AskWhereToSave(Form& form, const FileDialog& dialog) {
    Platform& platform = form.GetPlatform();
    auto choice = platform.windows.AskSaveFile(dialog);
    if (!choice || choice->path.empty()) return std::nullopt;
    if (FileExists(choice->path) &&
        platform.windows.ShowMessage({.text = "File already exits.  Overwrite It?",
                                      .buttons = Message::Buttons::YesNo}) == Answer::No)
        return std::nullopt;
    return choice;
}

std::size_t ChosenKind(const SaveChoice& choice, std::initializer_list<const char*> endings) {
    const auto* const named = std::find_if(endings.begin(), endings.end(), [&](const char* ending) {
        return choice.path.ends_with(ending);
    });
    return static_cast<std::size_t>(named != endings.end() ? named - endings.begin()
                                                           : choice.filterIndex - 1);
}

bool SaveWithDialog(Form& form, const FileDialog& dialog,
                    const std::function<void(const SaveChoice&)>& save) {
    Platform& platform = form.GetPlatform();
    const auto choice = AskWhereToSave(form, dialog);
    if (!choice) return false;
    bool saved = true;
    try {
        const Hourglass hourglass(form);
        save(*choice);
    } catch (const std::exception&) {
        saved = false;
    }
    if (!saved)
        platform.windows.ShowMessage({.text = "Error in saving file " + choice->path,
                                      .title = "File Save",
                                      .icon = Message::Icon::Critical});
    return saved;
}

}  // namespace vardel
