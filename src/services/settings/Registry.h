#pragma once

#include <set>
#include <string>
#include <string_view>
#include <vector>

#include "services/settings/QuorneGlobal.h"
#include "services/settings/SettingsStore.h"

namespace vardel {

// Where the program's own settings are, under the application's title.
inline constexpr const char* SettingsSection = "Loss_FieldStrength";
// The host's, under the section of the parameters that it shares.
inline constexpr const char* HostApplication = "Ostrel_Quorne";
// Whether a start shows the introduction: unless this is stored.
inline constexpr const char* InfoScreenKey = "InfoScreen";
inline constexpr const char* NoInfoScreen = "NoScreen";

// The program's door to the settings store, used as a cursor: set Appname, Section and Key, then
// RegGet and read Setting, or set Setting and RegSave. It also holds the table of the parameters
// that are shared with the host application, read from the store when it is made.
class Registry {
public:
    explicit Registry(SettingsStore& store);

    const std::string& Appname() const { return appname_; }
    void SetAppname(std::string strAppName) { appname_ = std::move(strAppName); }
    const std::string& Section() const { return section_; }
    void SetSection(std::string strSection) { section_ = std::move(strSection); }
    const std::string& Key() const { return key_; }
    void SetKey(std::string strkey) { key_ = std::move(strkey); }
    const std::string& Setting() const { return setting_; }
    void SetSetting(std::string strSetting) { setting_ = std::move(strSetting); }

    void RegGet() { setting_ = store_.Read(appname_, section_, key_); }
    void RegSave() { store_.Write(appname_, section_, key_, setting_); }
    void RegDel() { store_.Delete(appname_, section_, key_); }

    // Read and write in one step, with the cursor on the key afterwards. Without an application, a
    // section or a key they do nothing, and the read gives an empty text.
    std::string Param(const std::string& strkey);
    void SetParam(const std::string& strkey, const std::string& strSetting);

    // Whether the host has started the program. Stored by SaveQuorneGlobals only.
    void SetQuorneActive(bool boolState);
    bool QuorneActive() const;

    // A value goes into its parameter in the type that the parameter has, and not at all where it
    // does not fit. An unknown name is no error: nothing happens, and its value is empty.
    void SetQuorneGlobal(std::string_view strName, const GlobalValue& varValue);
    GlobalValue QuorneGlobalValue(std::string_view strName) const;

    // Writes every parameter, but for a stored text that could not be read and was not set since.
    void SaveQuorneGlobals();

private:
    void AddQuorneGlobal(std::string name, GlobalValue value);
    void LoadQuorneGlobals();
    std::size_t Find(std::string_view name) const;  // the table's size: there is none

    SettingsStore& store_;
    std::vector<QuorneGlobal> globals_;
    std::set<std::string, std::less<>> unreadable_;
    std::string appname_;
    std::string section_;
    std::string key_;
    std::string setting_;
};

}  // namespace vardel
