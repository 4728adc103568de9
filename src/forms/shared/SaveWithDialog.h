#pragma once

#include <functional>
#include <optional>
#include <string>

#include "services/Platform.h"

namespace vardel {

class Form;

// Asks for a file to save to, and before a file that exists is overwritten. Nothing where the user
// wants none.
std::optional<SaveChoice> AskWhereToSave(Form& form, const FileDialog& dialog);

// Asks likewise; then saves under the hourglass. An exception of save is told as an error in
// saving. True when it has saved.
bool SaveWithDialog(Form& form, const FileDialog& dialog,
                    const std::function<void(const SaveChoice&)>& save);

// Likewise in the program's folder, suggesting the name.
bool SaveWithDialog(Form& form, const std::string& filters, int filterIndex,
                    const std::function<void(const SaveChoice&)>& save,
                    const std::string& name = {});

}  // namespace vardel
