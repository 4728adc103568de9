#pragma once

#include <map>
#include <set>
#include "services/settings/SettingsStore.h"

namespace vardel {

// INI files in the user's configuration folder: one for each application. Others may write to them
// as well.
class QtSettings : public SettingsStore {
public:
    std::string Read(const std::string& application, const std::string& section,
                     const std::string& key) override;
    void Write(const std::string& application, const std::string& section, const std::string& key,
               const std::string& text) override;
    void Delete(const std::string& application, const std::string& section,
                const std::string& key) override;
    std::string FailedFile(const std::string& application) const override;

private:
    std::map<std::string, std::set<std::string>> failed_;  // keys, by application
};

}  // namespace vardel
