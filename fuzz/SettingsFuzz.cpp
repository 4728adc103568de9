#include <algorithm>
#include <array>
#include <cmath>
#include <cstdint>
#include <string>
#include <string_view>

#include "Check.h"
#include "forms/Program.h"
#include "forms/main/MainForm.h"
#include "support/FakePlatform.h"
#include "text/NumberText.h"

namespace {

using vardel::FakePlatform;
using vardel::GlobalText;
using vardel::GlobalValue;
using vardel::MainForm;
using vardel::Program;
using vardel::Registry;
using vardel::TextBox;

const std::string Own = "Vardel/Loss_FieldStrength/";
const std::string Host = "Ostrel_Quorne/Global Parameters/";

constexpr std::array<TextBox MainForm::*, 6> Boxes = {&MainForm::txtFreq,    &MainForm::txtDist,
                                                      &MainForm::txthb,      &MainForm::txthm,
                                                      &MainForm::txtPctTime, &MainForm::txtPctLoc};

// No log file is made: the state folder cannot be.
class Desktop : public FakePlatform {
public:
    vardel::Platform Services() {
        vardel::Platform services = FakePlatform::Services();
        services.stateDirectory = "/dev/null/state";
        return services;
    }
};

// Lines of "key=text"; a "+" in front of a key means the host's. The log's path is left out: what
// lies there is no matter of this target, and it may be any file of the machine.
void Fill(FakePlatform& platform, std::string_view input) {
    while (!input.empty()) {
        const std::string_view line = input.substr(0, input.find('\n'));
        input.remove_prefix(std::min(input.size(), line.size() + 1));
        const std::size_t equals = line.find('=');
        if (equals == line.npos) continue;
        std::string key(line.substr(0, equals));
        if (key == "TempLogName") continue;
        const bool host = key.starts_with('+');
        platform.store[(host ? Host + key.substr(1) : Own + key)] = line.substr(equals + 1);
    }
}

// The host's parameters keep their types and stay as they are once they were written back.
void CheckGlobals(FakePlatform& platform) {
    FakePlatform bare;
    Registry defaults(bare);
    defaults.SaveQuorneGlobals();
    const auto before = platform.store;
    Registry first(platform);
    first.SaveQuorneGlobals();
    const auto written = platform.store;
    Registry second(platform);
    second.SaveQuorneGlobals();
    Check(platform.store == written);
    for (const std::string& name : bare.writes) {
        const GlobalValue value = second.QuorneGlobalValue(name);
        Check(GlobalText(value) == GlobalText(first.QuorneGlobalValue(name)));
        Check(value.index() == defaults.QuorneGlobalValue(name).index());
        if (const auto* number = std::get_if<double>(&value)) Check(std::isfinite(*number));
        // What could not be read is neither lost nor replaced.
        const auto stored = before.find(Host + name);
        if (stored != before.end() && !stored->second.empty() &&
            !vardel::ConvertLikeDefault(defaults.QuorneGlobalValue(name), stored->second))
            Check(written.at(Host + name) == stored->second);
    }
}

// What the boxes hold comes back at the next start of the same kind, and is a number when the host
// gave it or once the box was left.
void CheckStart(Desktop& platform) {
    std::array<std::string, Boxes.size()> texts;
    const bool fromHost = Registry(platform).QuorneActive();
    {
        Program program(platform.Services());
        program.Start();
        MainForm& form = *program.MainForm;
        for (std::size_t i = 0; i < Boxes.size(); ++i) {
            TextBox& box = form.*Boxes[i];
            if (fromHost) Check(vardel::WholeTextNumber(box.Text()).has_value());
            box.LostFocus.Raise();
            texts[i] = box.Text();
            Check(vardel::WholeTextNumber(texts[i]).has_value());
            box.LostFocus.Raise();
            Check(box.Text() == texts[i]);
        }
        Check(form.mnuUnitsMetric.Checked() != form.mnuUnitsEnglish.Checked());
        Check(form.cmbcitysize.Enabled() == (form.cmbareatype.Text() == "Urban"));
        program.EndSession();
    }
    Check(platform.store[Host + "CalledFromQuorne"] != "True");
    Program again(platform.Services());
    again.Start();
    for (std::size_t i = 0; i < Boxes.size(); ++i)
        Check(((*again.MainForm).*Boxes[i]).Text() == texts[i]);
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    static Desktop platform;  // whose folder, made on the disk, stays empty
    platform.store.clear();
    platform.messages.clear();
    platform.writes.clear();
    Fill(platform, {reinterpret_cast<const char*>(data), size});
    const auto stored = platform.store;
    CheckGlobals(platform);
    platform.store = stored;
    CheckStart(platform);
    return 0;
}
