#pragma once

#include "services/SettingsStore.h"

namespace vardel {

// INI files in the user's configuration folder: one for each application, a group for each section.
class QtSettings : public SettingsStore {
public:
    std::string Read(const std::string& application, const std::string& section,
                     const std::string& key) override;
    void Write(const std::string& application, const std::string& section, const std::string& key,
               const std::string& text) override;
    void Delete(const std::string& application, const std::string& section,
                const std::string& key) override;
    bool HasFailed() const override { return failed_; }

private:
    bool failed_ = false;
};

}  // namespace vardel
