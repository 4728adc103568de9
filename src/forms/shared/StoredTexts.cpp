#include "forms/shared/StoredTexts.h"

#include "services/Platform.h"

namespace vardel {

void TakeTexts(const Platform& platform, const char* section, const StoredTexts& texts) {
    for (const auto& [key, control] : texts) {
        const std::string text = platform.settings.Read(platform.applicationTitle, section, key);
        if (!text.empty()) std::visit([&](auto* held) { held->SetText(text); }, control);
    }
}

void StoreTexts(const Platform& platform, const char* section, const StoredTexts& texts) {
    for (const auto& [key, control] : texts)
        platform.settings.Write(platform.applicationTitle, section, key,
                                std::visit([](auto* held) { return held->Text(); }, control));
}

}  // namespace vardel
