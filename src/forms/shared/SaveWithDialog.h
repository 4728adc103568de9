#pragma once

#include <functional>
#include <initializer_list>
#include <optional>
#include <string>

#include "services/Platform.h"

namespace vardel {

class Form;

// Asks for a file to save to, and before a file that exists is overwritten. Nothing where the user
// wants none.
std::optional<SaveChoice> AskWhereToSave(Form& form, const FileDialog& dialog);

// The place of the ending that the file's name has; of none of them, that of the chosen filter. The
// filters are in the order of the endings.
std::size_t ChosenKind(const SaveChoice& choice, std::initializer_list<const char*> endings);

// Asks likewise; then saves under the hourglass. An exception of save is shown as an error in
// saving. True when it has saved.
bool SaveWithDialog(Form& form, const FileDialog& dialog,
                    const std::function<void(const SaveChoice&)>& save);

// Likewise in the program's folder, suggesting the name.
bool SaveWithDialog(Form& form, const std::string& filters, int filterIndex,
                    const std::function<void(const SaveChoice&)>& save,
                    const std::string& name = {});

}  // namespace vardel
