#pragma once

#include <string>

namespace vardel {

// The user's store of texts, each found by application, section and key.
class SettingsStore {
public:
    virtual ~SettingsStore() = default;

    // An empty text where nothing is stored.
    virtual std::string Read(const std::string& application, const std::string& section,
                             const std::string& key) = 0;
    // Does not throw; FailedFile names the file that failed.
    virtual void Write(const std::string& application, const std::string& section,
                       const std::string& key, const std::string& text) = 0;
    // The path of the application's file where something that was last written to it is not there;
    // else empty.
    virtual std::string FailedFile(const std::string& application) const = 0;
    virtual void Delete(const std::string& application, const std::string& section,
                        const std::string& key) = 0;
};

}  // namespace vardel
