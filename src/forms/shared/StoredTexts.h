#pragma once

#include <string>
#include <variant>
#include <vector>

#include "controls/Controls.h"

namespace vardel {

// The texts of controls that the settings keep from one start to the next.
struct StoredText {
    std::string key;
    std::variant<TextBox*, ComboBox*> control;
};
using StoredTexts = std::vector<StoredText>;

// From and to that section. What is not stored leaves its control as it is.
void TakeTexts(const Platform& platform, const char* section, const StoredTexts& texts);
void StoreTexts(const Platform& platform, const char* section, const StoredTexts& texts);

}  // namespace vardel
