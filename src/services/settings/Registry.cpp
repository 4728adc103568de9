#include "services/settings/Registry.h"

#include <algorithm>

namespace vardel {

namespace {

constexpr const char* HostSection = "Global Parameters";
constexpr const char* CalledFlag = "CalledFromQuorne";

}  // namespace

Registry::Registry(SettingsStore& store) : store_(store) {
    for (const std::string end : {"Tx", "Rx"}) {
        for (const char* field : {"LatDeg_DD", "LatMin_MM", "LatSec_SS"})
            AddQuorneGlobal(end + field, "  ");
        AddQuorneGlobal(end + "LatH_NS", "N");
        AddQuorneGlobal(end + "LonDeg_DDD", "   ");
        for (const char* field : {"LonMin_MM", "LonSec_SS"}) AddQuorneGlobal(end + field, "  ");
        AddQuorneGlobal(end + "LonH_EW", "W");
    }
    for (const char* name :
         {"TxHt_m", "RxHt_m", "TxLoss_dB", "RxLoss_dB", "TxGain_dBi", "RxGain_dBi", "TxPower_w"})
        AddQuorneGlobal(name, 0.0);
    AddQuorneGlobal("TxPolar_HV", "H");
    AddQuorneGlobal("RxPolar_HV", "H");
    AddQuorneGlobal("TxFreq_MHz", 100.0);
    AddQuorneGlobal("Refrac_Nunits", 301.0);
    AddQuorneGlobal("Humidity_gm3", 10.0);
    AddQuorneGlobal("GrndCond_Sm", 0.005);
    AddQuorneGlobal("GrndDiel", 15.0);
    AddQuorneGlobal("DeltaH_m", 90.0);
    AddQuorneGlobal("PctTime_pct", 0.5);
    AddQuorneGlobal("PctLoc_pct", 0.5);
    AddQuorneGlobal("Dist_Km", 1.0);
    AddQuorneGlobal("Sorvik_Drive", std::int16_t{1});
    AddQuorneGlobal("TerrainHandler", "Sorvik");
    AddQuorneGlobal(CalledFlag, false);
    LoadQuorneGlobals();
}

void Registry::AddQuorneGlobal(std::string name, GlobalValue value) {
    QuorneGlobal global;
    global.SetID(std::move(name));
    global.SetValue(std::move(value));
    globals_.push_back(std::move(global));
}

void Registry::LoadQuorneGlobals() {
    for (QuorneGlobal& global : globals_) {
        const std::string text = store_.Read(HostApplication, HostSection, global.ID());
        if (text.empty()) continue;
        if (auto value = ConvertLikeDefault(global.Value(), text))
            global.SetValue(std::move(*value));
        else
            unreadable_.insert(global.ID());
    }
}

std::size_t Registry::Find(std::string_view name) const {
    const auto it =
        std::find_if(globals_.begin(), globals_.end(),
                     [name](const QuorneGlobal& global) { return global.ID() == name; });
    return static_cast<std::size_t>(it - globals_.begin());
}

void Registry::SetQuorneGlobal(std::string_view strName, const GlobalValue& varValue) {
    const std::size_t i = Find(strName);
    if (i == globals_.size()) return;
    auto converted = ConvertLikeDefault(globals_[i].Value(), varValue);
    if (!converted) return;
    globals_[i].SetValue(std::move(*converted));
    unreadable_.erase(globals_[i].ID());
}

GlobalValue Registry::QuorneGlobalValue(std::string_view strName) const {
    const std::size_t i = Find(strName);
    return i == globals_.size() ? GlobalValue() : globals_[i].Value();
}

void Registry::SetQuorneActive(bool boolState) { SetQuorneGlobal(CalledFlag, boolState); }

bool Registry::QuorneActive() const { return std::get<bool>(QuorneGlobalValue(CalledFlag)); }

void Registry::SaveQuorneGlobals() {
    for (const QuorneGlobal& global : globals_)
        if (!unreadable_.contains(global.ID()))
            store_.Write(HostApplication, HostSection, global.ID(), GlobalText(global.Value()));
}

std::string Registry::Param(const std::string& strkey) {
    if (appname_.empty() || section_.empty() || strkey.empty()) return {};
    key_ = strkey;
    RegGet();
    return setting_;
}

void Registry::SetParam(const std::string& strkey, const std::string& strSetting) {
    if (appname_.empty() || section_.empty() || strkey.empty()) return;
    key_ = strkey;
    setting_ = strSetting;
    RegSave();
}

}  // namespace vardel
